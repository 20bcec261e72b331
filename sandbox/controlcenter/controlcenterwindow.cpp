#include "sandbox/controlcenter/controlcenterwindow.h"

#include "sandbox/controlcenter/accessibleroles.h"
#include "sandbox/controlcenter/breadcrumb.h"
#include "sandbox/controlcenter/columns.h"
#include "sandbox/controlcenter/frame.h"
#include "sandbox/controlcenter/looks/sheetwindow.h"
#include "sandbox/controlcenter/moduleview.h"
#include "sandbox/controlcenter/navigationcolumn.h"
#include "sandbox/controlcenter/ownpages.h"
#include "sandbox/controlcenter/pagearea.h"
#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/searchpopup.h"
#include "sandbox/controlcenter/themebutton.h"
#include "sandbox/controlcenter/windowstyle.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include <ztk/zfontsizemanager.h>

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

constexpr QSize leastSize(500, 400);
constexpr int headerHeight = 60; // px

const QLatin1String themeEntry("theme"); // internal name, for the search only

} // namespace

ControlCenterWindow::ControlCenterWindow(zccV20::ModuleInterface *module)
    : m_module(module)
    , m_searchField(new SearchField(this))
    , m_navigation(new NavigationColumn(this))
    , m_back(new BackButton(this))
    , m_breadcrumb(new Breadcrumb(this))
    , m_themeButton(new ThemeButton(this))
    , m_stack(new QStackedWidget(this))
    , m_moduleView(new ModuleView)
    , m_ownPages(new OwnPages(&m_registry, m_stack, this))
    , m_frame(new Frame(&m_registry, m_moduleView, this))
{
    installAccessibleRoles();
    setWindowTitle(tr("Control Center"));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("zcc_window")));
    setMinimumSize(leastSize);
    resize(usualSize()
               .boundedTo(QGuiApplication::primaryScreen()->availableSize())
               .expandedTo(leastSize));

    m_stack->addWidget(m_moduleView);
    auto *sideBar = new SideBar(m_searchField, m_navigation, this);
    QWidget *header = buildHeader();
    m_columns = new Columns(sideBar, m_navigation, buildContent(header), m_moduleView, this);
    m_world = new DrawerSide(m_columns, [this] { return buildWorld(); });
    connect(m_ownPages, &OwnPages::worldRequested, m_world, &DrawerSide::openDrawer);
    // Later: when the page has its rows.
    connect(m_ownPages, &OwnPages::completed, this, &ControlCenterWindow::showColumns,
            Qt::QueuedConnection);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_world);

    m_frame->prepare(m_module);
    for (const OwnPages::Entry &entry : m_ownPages->entries()) {
        m_navigation->addEntry(entry.name, entry.text, entry.icon);
        m_ownSearchEntries.append(
            {tr("Control Center"), entry.text, QString(), entry.name, entry.icon});
    }
    m_ownPages->shortcuts(); // it asks a service, and is drawn at once when it is opened
    m_navigation->addEntry(m_module->name(), m_module->displayName(), m_module->icon(),
                           m_module->follow());
    m_ownSearchEntries.append({tr("Control Center"), tr("Light or dark theme"), QString(),
                               themeEntry, QIcon::fromTheme(QStringLiteral("zcc_theme"))});

    auto *search = new Search(searchEntries(), m_searchField, new SearchPopup(this), this);
    connect(search, &Search::chosen, this, &ControlCenterWindow::openSearchEntry);
    connect(m_navigation, &NavigationColumn::entryOpened, this, &ControlCenterWindow::openEntry);
    connect(m_frame, &Frame::pageShown, this,
            [this](const QString &title) { showPlace(m_module->displayName(), title); });
    addShortcuts();
    for (const QString &name : pageNames())
        m_breadcrumb->reserveWidthFor(m_module->displayName(), pageTitle(name));
    m_columns->setLeastContentWidth(header->minimumSizeHint().width());
    connect(m_columns, &Columns::arranged, this, &ControlCenterWindow::showColumns);
    connect(m_columns, &Columns::wentOn, this, &ControlCenterWindow::focusContent);
    connect(m_back, &QAbstractButton::clicked, m_columns, &Columns::goBack);
    showColumns();
    setFocus(); // nothing is chosen yet; the first Tab leads to the search field
}

ControlCenterWindow::~ControlCenterWindow()
{
    m_frame->leave();
}

QSize ControlCenterWindow::usualSize()
{
    const ZFontSizeManager *sizes = ZFontSizeManager::instance();
    return {sizes->scaled(1100), sizes->scaled(720)};
}

void ControlCenterWindow::openModule()
{
    m_navigation->setCurrentEntry(m_module->name());
    m_columns->open(Columns::List);
}

void ControlCenterWindow::openPage(const QString &name)
{
    m_navigation->setCurrentEntry(m_module->name());
    m_columns->open(Columns::Page);
    m_frame->openPage(m_module, name);
}

void ControlCenterWindow::openShortcuts()
{
    openPlace(QStringLiteral("Shortcuts"));
}

void ControlCenterWindow::openServices()
{
    openPlace(QStringLiteral("Services"));
}

QStringList ControlCenterWindow::places() const
{
    QStringList places = pageNames();
    for (const OwnPages::Entry &own : m_ownPages->entries())
        places.append(own.place);
    return places;
}

QString ControlCenterWindow::currentPlace() const
{
    for (const OwnPages::Entry &own : m_ownPages->entries())
        if (m_navigation->currentEntry() == own.name)
            return own.place;
    for (const QString &name : pageNames())
        if (pageTitle(name) == currentTitle())
            return name;
    return pageNames().value(0);
}

void ControlCenterWindow::openPlace(const QString &place)
{
    for (const OwnPages::Entry &own : m_ownPages->entries()) {
        if (place != own.place)
            continue;
        m_navigation->setCurrentEntry(own.name);
        m_columns->open(Columns::Page);
        return;
    }
    openPage(place);
}

ShortcutsPage *ControlCenterWindow::shortcutsPage() const
{
    return m_ownPages->shortcuts();
}

bool ControlCenterWindow::isComplete() const
{
    return m_ownPages->isComplete();
}

QStringList ControlCenterWindow::pageNames() const
{
    return m_registry.pages();
}

QString ControlCenterWindow::pageTitle(const QString &name) const
{
    return m_registry.translatedPage(name);
}

QVector<SearchEntry> ControlCenterWindow::searchEntries() const
{
    QVector<SearchEntry> entries = m_registry.searchEntries();
    for (SearchEntry &entry : entries)
        entry.icon = entry.item.isEmpty() ? m_module->icon()
                                          : QIcon::fromTheme(QStringLiteral("zcc_setting"));
    return entries + m_ownSearchEntries;
}

QString ControlCenterWindow::currentTitle() const
{
    return m_breadcrumb->page();
}

QWidget *ControlCenterWindow::currentContent() const
{
    return m_stack;
}

QWidget *ControlCenterWindow::currentPage() const
{
    return m_moduleView->page();
}

QWidget *ControlCenterWindow::moduleList() const
{
    return m_moduleView->list();
}

SearchField *ControlCenterWindow::searchField() const
{
    return m_searchField;
}

ThemeChoice *ControlCenterWindow::theme() const
{
    return m_themeButton->choice();
}

void ControlCenterWindow::closeEvent(QCloseEvent *event)
{
    m_frame->leave();
    QWidget::closeEvent(event);
}

void ControlCenterWindow::keyPressEvent(QKeyEvent *event)
{
    // Typing outside a control starts a search.
    const QString text = event->text();
    if (hasFocus() && !text.isEmpty() && text.at(0).isLetterOrNumber()) {
        focusSearch();
        QCoreApplication::sendEvent(m_searchField, event);
        return;
    }
    if (event->key() == Qt::Key_Escape && m_columns->hasWayBack()) {
        m_columns->goBack();
        return;
    }
    QWidget::keyPressEvent(event);
}

QWidget *ControlCenterWindow::buildHeader()
{
    auto *header = new QWidget(this);
    header->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    header->setMinimumHeight(headerHeight);
    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(pageMargin, 0, pageMargin, 0);
    layout->addWidget(m_back);
    layout->addWidget(m_breadcrumb, 1);
    layout->addWidget(m_themeButton);
    return header;
}

QWidget *ControlCenterWindow::buildContent(QWidget *header)
{
    auto *content = new QWidget(this);
    auto *pages = new QHBoxLayout;
    pages->addSpacing(pageMargin);
    pages->addWidget(m_stack, 1);
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addLayout(pages, 1);
    return content;
}

WorldDrawer *ControlCenterWindow::buildWorld()
{
    auto *drawer = new WorldDrawer(m_ownPages->watches(), theme());
    connect(drawer, &WorldDrawer::appearanceWanted, this, &ControlCenterWindow::appearanceWanted);
    return drawer;
}

void ControlCenterWindow::addShortcuts()
{
    for (const QKeySequence &keys : {QKeySequence(QKeySequence::Find), QKeySequence(Qt::Key_F6)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                &ControlCenterWindow::focusSearch);
    connect(new QShortcut(Qt::Key_F9, this), &QShortcut::activated, this, [this] {
        if (!m_sheet)
            m_sheet = new SheetWindow(this);
        m_sheet->draw(currentPlace(), currentTitle());
    });
    // Named by key: what Qt calls closing and quitting differs from desktop to desktop.
    for (const int key : {Qt::Key_W, Qt::Key_Q})
        connect(new QShortcut(Qt::CTRL + key, this), &QShortcut::activated, this, &QWidget::close);
}

void ControlCenterWindow::focusSearch()
{
    if (!m_columns->shows(Columns::Entries))
        m_columns->open(Columns::Entries);
    m_searchField->setFocus(Qt::ShortcutFocusReason);
    m_searchField->selectAll();
}

void ControlCenterWindow::openEntry(const QString &name)
{
    if (name == m_module->name()) {
        m_stack->setCurrentWidget(m_moduleView);
        showPlace(m_module->displayName());
        m_frame->open(m_module);
        return;
    }
    m_frame->leave();
    m_stack->setCurrentWidget(m_ownPages->page(name));
    showPlace(m_navigation->entryText(name));
    showColumns();
}

void ControlCenterWindow::showPlace(const QString &entry, const QString &page)
{
    m_breadcrumb->setPath(entry, page);
    setWindowTitle(m_breadcrumb->page() + QStringLiteral(" – ") + tr("Control Center"));
}

void ControlCenterWindow::openSearchEntry(const SearchEntry &entry)
{
    if (entry.ownEntry == themeEntry) {
        m_columns->open(Columns::Page);
        m_themeButton->setFocus(Qt::ShortcutFocusReason);
        // Later: it returns when the menu is closed.
        QMetaObject::invokeMethod(m_themeButton, &ThemeButton::showMenu, Qt::QueuedConnection);
        return;
    }
    if (!entry.ownEntry.isEmpty()) {
        m_navigation->setCurrentEntry(entry.ownEntry);
        m_columns->open(Columns::Page);
        if (m_columns->shows(Columns::Entries))
            m_navigation->setFocus(Qt::ShortcutFocusReason);
        else
            focusContent();
        return;
    }
    openPage(m_registry.pageName(entry.page));
    QWidget *page = currentPage();
    QWidget *control = page ? findControl(page, entry.item) : nullptr;
    if (control)
        m_moduleView->ensureVisible(control);
    else if (moduleList()) // a page was chosen, or a setting that cannot be operated now
        control = controlsOf(moduleList()).value(0);
    if (control)
        control->setFocus(Qt::ShortcutFocusReason);
}

// Its first control, which is the module's list where that is seen.
void ControlCenterWindow::focusContent()
{
    if (QWidget *first = controlsOf(m_stack->currentWidget()).value(0))
        first->setFocus();
}

void ControlCenterWindow::showColumns()
{
    m_back->setVisible(m_columns->hasWayBack());
    const PageArea *own = m_ownPages->page(m_navigation->currentEntry());
    m_breadcrumb->setParts(m_columns->shows(Columns::List),
                           !own && m_columns->shows(Columns::Page));
    // Never wider than the screen, where some texts may have to be scrolled sideways.
    const int page = pageMargin + (own ? own->leastWidth() : m_moduleView->leastPageWidth());
    const int least =
        qBound(leastSize.width(), page, QGuiApplication::primaryScreen()->availableSize().width());
    if (width() < least || minimumWidth() > least)
        setMinimumWidth(least);
}

} // namespace controlcenter
