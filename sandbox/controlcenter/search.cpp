#include "sandbox/controlcenter/search.h"

#include "sandbox/controlcenter/searchpopup.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/ziconbutton.h>

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZIconButton;

namespace controlcenter {
namespace {

constexpr int fieldHeight = 36;        // px, a comfortable target
constexpr int textMargin = 12;         // px, around the text
constexpr int clearSide = 28;          // px, of the button on the trailing side
constexpr int clearEdge = 4;           // px, from the button to the field's edges
constexpr int usualMagnifierRoom = 28; // px, on the leading side
constexpr qreal magnifierRadius = 4.5;

int magnifierRoom()
{
    return ZFontSizeManager::instance()->scaled(usualMagnifierRoom);
}

} // namespace

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
    , m_clearButton(new ZIconButton(this))
{
    setPlaceholderText(tr("Search settings"));
    setAccessibleName(tr("Search settings"));
    setAccessibleDescription(hint());
    setMinimumHeight(fieldHeight);

    m_clearButton->setIcon(QIcon::fromTheme(QStringLiteral("zcc_clear")));
    m_clearButton->setAccessibleName(tr("Clear search"));
    m_clearButton->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the field
    m_clearButton->setCursor(Qt::ArrowCursor);
    m_clearButton->hide();
    connect(m_clearButton, &QAbstractButton::clicked, this, [this] {
        setFocus();
        clear();
    });
    connect(this, &QLineEdit::textChanged, this, &SearchField::placeParts);
    placeParts();
}

QString SearchField::hint()
{
    return tr("Up and Down choose a result, Enter opens it");
}

QSize SearchField::sizeHint() const
{
    const QSize usual = QLineEdit::sizeHint();
    const int text = fontMetrics().horizontalAdvance(placeholderText());
    return usual.expandedTo(
        QSize(magnifierRoom() + text + 2 * textMargin + clearSide + clearEdge, fieldHeight));
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        Q_EMIT moved(1);
        return;
    case Qt::Key_Up:
        Q_EMIT moved(-1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT accepted();
        return;
    case Qt::Key_Escape:
        clear();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void SearchField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT focusLost();
}

void SearchField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    placeParts();
}

void SearchField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        placeParts();
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(secondaryTextColor(palette()), 1.6, Qt::SolidLine, Qt::RoundCap));
    const qreal scale = magnifierRoom() / qreal(usualMagnifierRoom);
    const qreal leading = 12 + magnifierRadius * scale;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    painter.translate(mirrored ? width() - leading - 3 * scale : leading, height() / 2.0 - scale);
    painter.scale(scale, scale);
    painter.drawEllipse(QPointF(), magnifierRadius, magnifierRadius);
    painter.drawLine(QPointF(3.3, 3.3), QPointF(7, 7));
}

void SearchField::placeParts()
{
    const bool clearable = !text().isEmpty();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int trailing = clearable ? clearSide + clearEdge : 0;
    setTextMargins(mirrored ? trailing : magnifierRoom(), 0, mirrored ? magnifierRoom() : trailing,
                   0);
    m_clearButton->setVisible(clearable);
    m_clearButton->setGeometry(QStyle::visualRect(
        layoutDirection(), rect(),
        QRect(width() - clearEdge - clearSide, (height() - clearSide) / 2, clearSide, clearSide)));
}

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
