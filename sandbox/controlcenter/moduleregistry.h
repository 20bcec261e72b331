#pragma once

#include <QIcon>
#include <QLatin1String>
#include <QString>
#include <QStringList>
#include <QVector>

namespace controlcenter {

/** The module's pages, by the untranslated names under which it registers them. */
namespace modulepages {

const QLatin1String assistant("Desktop AI Assistant");
const QLatin1String speechToText("Speech to Text");
const QLatin1String textToSpeech("Text to Speech");
const QLatin1String translation("Translation");

} // namespace modulepages

/** The keybinding daemon's identifiers of the shortcuts of the same features. */
namespace shortcutids {

const QLatin1String speechToText("speech-to-text");
const QLatin1String textToSpeech("text-to-speech");
const QLatin1String translation("translation");

} // namespace shortcutids

/** A shortcut, and the page of the feature that it starts. */
struct PageShortcut
{
    QLatin1String id;
    QLatin1String page;
};

const PageShortcut pageShortcuts[] = {
    {shortcutids::speechToText, modulepages::speechToText},
    {shortcutids::textToSpeech, modulepages::textToSpeech},
    {shortcutids::translation, modulepages::translation},
};

/** One thing that the search can find: a page, or one setting of a page. */
struct SearchEntry
{
    QString module;        ///< translated name of the module, or of the window
    QString page;          ///< translated name of the page
    QString item;          ///< translated name of the setting; empty for the page itself
    QString ownEntry = {}; ///< internal name of the window's own entry; empty: a module's
    QIcon icon = {};       ///< tells a page and a setting of the same name apart
};

/**
 * The names that a module registers at start-up: translations of its page names, and what the
 * search finds. Plain data; the order of registration is kept.
 */
class ModuleRegistry
{
public:
    void addPage(const QString &name, const QString &translated);

    /** Entries that are registered as absent are not kept: nothing could open them. */
    void addSearchEntry(const SearchEntry &entry, bool present);

    /** The untranslated name of the page shown as @p translated; @p translated itself if unknown.
     */
    QString pageName(const QString &translated) const;

    /** The translated name of page @p name; @p name itself if unknown. */
    QString translatedPage(const QString &name) const;

    /** Untranslated page names, in the order of registration. */
    QStringList pages() const;

    QVector<SearchEntry> searchEntries() const;

private:
    struct Page
    {
        QString name;
        QString translated;
    };

    QVector<Page> m_pages;
    QVector<SearchEntry> m_entries;
};

} // namespace controlcenter
