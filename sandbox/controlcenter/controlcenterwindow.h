#pragma once

#include "sandbox/controlcenter/moduleregistry.h"

#include <zcc/moduleinterface.h>

#include <QWidget>

class QStackedWidget;

namespace controlcenter {

class BackButton;
class Breadcrumb;
class Columns;
class DrawerSide;
class Frame;
class ModuleView;
class NavigationColumn;
class OwnPages;
class SearchField;
class SheetWindow;
class ShortcutsPage;
class ThemeButton;
class ThemeChoice;
class WorldDrawer;
struct Appearance;

/**
 * The control center: main navigation and search on the leading side, the open entry beside them.
 *
 * It owns everything it shows, the module's widgets included, but not the module.
 */
class ControlCenterWindow : public QWidget
{
    Q_OBJECT

public:
    /** Prepares @p module, which outlives the window, and shows its entry. Opens nothing yet. */
    explicit ControlCenterWindow(zccV20::ModuleInterface *module);
    ~ControlCenterWindow() override;

    /** The size at which it is best used, as large as its texts want; the screen may be smaller. */
    static QSize usualSize();

    /** Opens the module's entry at its first page. */
    void openModule();

    /** Opens the page @p name (untranslated) of the module. */
    void openPage(const QString &name);

    /** Opens the window's own page of shortcuts. */
    void openShortcuts();

    /** Opens the window's own page of services. */
    void openServices();

    /** Everything that can be open: the module's pages, and "Shortcuts" and "Services". */
    QStringList places() const;
    QString currentPlace() const;
    void openPlace(const QString &place);

    /** The side with the drawer that switches what the module lives in. The window owns it. */
    DrawerSide *world() const { return m_world; }

    /** The window's own page of shortcuts, shown or not; the window owns it. */
    ShortcutsPage *shortcutsPage() const;

    /** Whether nothing of what is open is still to be filled in by services. */
    bool isComplete() const;

    /** Untranslated names of the module's pages, in the order in which it registered them. */
    QStringList pageNames() const;

    /** Translated name of page @p name. */
    QString pageTitle(const QString &name) const;

    /**
     * What the search can find: the module's in the order in which it was registered, then the
     * window's own.
     */
    QVector<SearchEntry> searchEntries() const;

    /** Name of the page that is shown, as the heading says it. */
    QString currentTitle() const;

    /** What is shown for the open entry, all of it; the window owns it. */
    QWidget *currentContent() const;

    /** The module's page that is shown, or null; the window owns it. */
    QWidget *currentPage() const;

    /** The module's list beside the page, or null; the window owns it. */
    QWidget *moduleList() const;

    SearchField *searchField() const;

    /** The window's theme; the window owns it. */
    ThemeChoice *theme() const;

Q_SIGNALS:
    /** The user wants other texts, or others in size or direction, which takes a new window. */
    void appearanceWanted(const controlcenter::Appearance &wanted);

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *buildHeader();
    QWidget *buildContent(QWidget *header);
    WorldDrawer *buildWorld();
    void addShortcuts();
    void openEntry(const QString &name);
    /** Names the open entry, and its page if it has several, in heading and title. */
    void showPlace(const QString &entry, const QString &page = QString());
    void openSearchEntry(const SearchEntry &entry);
    /** Says in the heading what the columns do not show. */
    void showColumns();
    void focusSearch();
    void focusContent();

    zccV20::ModuleInterface *m_module;
    ModuleRegistry m_registry;
    SearchField *m_searchField;
    NavigationColumn *m_navigation;
    BackButton *m_back;
    Breadcrumb *m_breadcrumb;
    ThemeButton *m_themeButton;
    QStackedWidget *m_stack;
    ModuleView *m_moduleView;
    OwnPages *m_ownPages;
    QVector<SearchEntry> m_ownSearchEntries;
    Frame *m_frame;
    Columns *m_columns;
    SheetWindow *m_sheet = nullptr; ///< from its first use on
    DrawerSide *m_world;
};

} // namespace controlcenter
