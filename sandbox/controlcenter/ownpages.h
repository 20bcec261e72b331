#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QVector>

class QStackedWidget;

namespace controlcenter {

class ModuleRegistry;
class PageArea;
class ServiceWatches;
class ShortcutsPage;

/**
 * The window's own pages beside those of the module, and the services that one of them shows. Each
 * is built when it is first asked for: who opens the window to look at the module waits for none.
 */
class OwnPages : public QObject
{
    Q_OBJECT

public:
    struct Entry
    {
        QString name;  ///< internal
        QString place; ///< as a page beside those of the module
        QString text;
        QIcon icon;
    };

    /** The pages go to @p stack, and are titled as those of the same features in @p registry. */
    OwnPages(const ModuleRegistry *registry, QStackedWidget *stack, QObject *parent = nullptr);

    /** Their entries in the order of the navigation. */
    const QVector<Entry> &entries() const { return m_entries; }

    /** The page of the entry called @p name; null when it is none of the window's own. */
    PageArea *page(const QString &name);

    ShortcutsPage *shortcuts();
    ServiceWatches *watches();

    /** Whether nothing that was asked for is still to be filled in. */
    bool isComplete();

Q_SIGNALS:
    /** The drawer that steers the services is asked for. */
    void worldRequested();

    /** A page has got what it waited for. */
    void completed();

private:
    QWidget *buildShortcuts();
    PageArea *buildServices();

    const ModuleRegistry *m_registry;
    QStackedWidget *m_stack;
    QVector<Entry> m_entries;
    QHash<QString, PageArea *> m_pages; ///< by entry; those that are built
    ServiceWatches *m_watches = nullptr;
};

} // namespace controlcenter
