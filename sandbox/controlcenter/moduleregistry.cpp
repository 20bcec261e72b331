#include "sandbox/controlcenter/moduleregistry.h"

#include <algorithm>

namespace controlcenter {

void ModuleRegistry::addPage(const QString &name, const QString &translated)
{
    m_pages.append({name, translated});
}

void ModuleRegistry::addSearchEntry(const SearchEntry &entry, bool present)
{
    if (present)
        m_entries.append(entry);
}

QString ModuleRegistry::pageName(const QString &translated) const
{
    const auto page = std::find_if(m_pages.cbegin(), m_pages.cend(), [&](const Page &candidate) {
        return candidate.translated == translated;
    });
    return page == m_pages.cend() ? translated : page->name;
}

QString ModuleRegistry::translatedPage(const QString &name) const
{
    const auto page = std::find_if(m_pages.cbegin(), m_pages.cend(),
                                   [&](const Page &candidate) { return candidate.name == name; });
    return page == m_pages.cend() ? name : page->translated;
}

QStringList ModuleRegistry::pages() const
{
    QStringList names;
    for (const Page &page : m_pages)
        names.append(page.name);
    return names;
}

QVector<SearchEntry> ModuleRegistry::searchEntries() const
{
    return m_entries;
}

} // namespace controlcenter
