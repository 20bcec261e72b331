#include "sandbox/controlcenter/searchquery.h"

#include <algorithm>

namespace controlcenter {
namespace {

QString ownName(const SearchEntry &entry)
{
    return entry.item.isEmpty() ? entry.page : entry.item;
}

/** 0 is the best match; see findEntries(). */
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
    const QString everything = entry.module + ' ' + entry.page + ' ' + entry.item;
    return std::all_of(words.cbegin(), words.cend(), [&](const QString &word) {
        return everything.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

QVector<SearchEntry> findEntries(const QVector<SearchEntry> &entries, const QString &text)
{
    const QString query = text.simplified();
    QVector<SearchEntry> found;
    if (query.isEmpty())
        return found;

    const QStringList words = query.split(QLatin1Char(' '));
    std::copy_if(entries.cbegin(), entries.cend(), std::back_inserter(found),
                 [&](const SearchEntry &entry) { return matches(entry, words); });
    std::stable_sort(found.begin(), found.end(), [&](const SearchEntry &a, const SearchEntry &b) {
        return rank(a, query) < rank(b, query);
    });
    return found;
}

} // namespace controlcenter
