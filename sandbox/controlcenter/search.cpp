#include "sandbox/controlcenter/search.h"

#include "sandbox/controlcenter/searchfield.h"
#include "sandbox/controlcenter/searchpopup.h"

#include <algorithm>

namespace controlcenter {
namespace {

constexpr int popupGap = 6; // px between field and results

QStringList wordsOf(const QString &query)
{
    QStringList words = query.simplified().split(QLatin1Char(' '));
    words.removeAll(QString());
    return words;
}

QString ownName(const SearchEntry &entry)
{
    return entry.item.isEmpty() ? entry.page : entry.item;
}

// 0 is the best match; see findEntries().
int rank(const SearchEntry &entry, const QString &text)
{
    const QString name = ownName(entry);
    if (name.startsWith(text, Qt::CaseInsensitive))
        return 0;
    if (name.contains(text, Qt::CaseInsensitive))
        return 1;
    return 2;
}

bool matches(const SearchEntry &entry, const QStringList &words)
{
    const QString everything =
        entry.module + QLatin1Char(' ') + entry.page + QLatin1Char(' ') + entry.item;
    return std::all_of(words.cbegin(), words.cend(), [&](const QString &word) {
        return everything.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

QVector<TextPart> matchedParts(const QString &text, const QString &query)
{
    QVector<TextPart> parts;
    for (const QString &word : wordsOf(query))
        for (int at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
             at = text.indexOf(word, at + word.size(), Qt::CaseInsensitive))
            parts.append({at, word.size()});
    return parts;
}

QVector<SearchEntry> findEntries(const QVector<SearchEntry> &entries, const QString &text)
{
    const QString query = text.simplified();
    QVector<SearchEntry> found;
    if (query.isEmpty())
        return found;

    const QStringList words = wordsOf(query);
    std::copy_if(entries.cbegin(), entries.cend(), std::back_inserter(found),
                 [&](const SearchEntry &entry) { return matches(entry, words); });
    std::stable_sort(found.begin(), found.end(), [&](const SearchEntry &a, const SearchEntry &b) {
        return rank(a, query) < rank(b, query);
    });
    return found;
}

Search::Search(const QVector<SearchEntry> &entries, SearchField *field, SearchPopup *popup,
               QObject *parent)
    : QObject(parent)
    , m_entries(entries)
    , m_field(field)
    , m_popup(popup)
{
    connect(m_field, &QLineEdit::textChanged, this, &Search::showResults);
    connect(m_field, &SearchField::focusLost, this, &Search::hideResults);
    connect(m_field, &SearchField::accepted, m_popup, &SearchPopup::acceptSelection);
    connect(m_field, &SearchField::moved, this, [this](int rows) {
        if (!m_popup->isVisible()) {
            showResults(m_field->text());
            return;
        }
        m_popup->moveSelection(rows);
        announce();
    });
    connect(m_popup, &SearchPopup::chosen, this, &Search::choose);
}

void Search::showResults(const QString &text)
{
    if (text.trimmed().isEmpty()) {
        hideResults();
        return;
    }
    m_popup->showResults(findEntries(m_entries, text), text);
    const QRect field(m_field->mapTo(m_field->window(), QPoint()), m_field->size());
    const QSize window = m_field->window()->size();
    m_popup->resize(m_popup->sizeHint().boundedTo(
        {window.width() - 2 * popupGap, window.height() - field.bottom() - 1 - 2 * popupGap}));
    const bool mirrored = m_field->layoutDirection() == Qt::RightToLeft;
    m_popup->move(mirrored ? field.right() + 1 - m_popup->width() : field.left(),
                  field.bottom() + 1 + popupGap);
    announce();
}

void Search::hideResults()
{
    m_popup->hide();
    announce();
}

// By value: clearing the field empties the results that the entry stands in.
void Search::choose(SearchEntry entry)
{
    m_field->clear();
    Q_EMIT chosen(entry);
}

void Search::announce()
{
    m_field->setAccessibleDescription(m_popup->isHidden() ? m_field->hint()
                                                          : m_popup->description());
}

} // namespace controlcenter
