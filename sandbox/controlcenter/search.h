#pragma once

#include "sandbox/controlcenter/moduleregistry.h"

#include <QObject>

namespace controlcenter {

class SearchField;
class SearchPopup;

/**
 * The entries of @p entries that contain every word of @p text, in any of their names and in any
 * letter case. Settings whose own name begins with the text come first, then settings that contain
 * it, then what is found only by its page or module. Empty for a blank text.
 */
QVector<SearchEntry> findEntries(const QVector<SearchEntry> &entries, const QString &text);

/**
 * Connects the search field with its results: filters while the user types, and opens what is
 * chosen.
 */
class Search : public QObject
{
    Q_OBJECT

public:
    /** All three outlive the search. The popup opens below @p field. */
    Search(const ModuleRegistry *registry, SearchField *field, SearchPopup *popup,
           QObject *parent = nullptr);

Q_SIGNALS:
    void chosen(const SearchEntry &entry);

private:
    void showResults(const QString &text);
    void choose(SearchEntry entry);
    void announce();

    const ModuleRegistry *m_registry;
    SearchField *m_field;
    SearchPopup *m_popup;
};

} // namespace controlcenter
