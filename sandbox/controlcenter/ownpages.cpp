#include "sandbox/controlcenter/ownpages.h"

#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/pagearea.h"
#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"
#include "sandbox/services/keybinding/keybindings.h"

#include <QStackedWidget>

namespace controlcenter {
namespace {

const QLatin1String shortcutsEntry("keyboard"); // the desktop's name, which modules follow
const QLatin1String servicesEntry("services");

} // namespace

OwnPages::OwnPages(const ModuleRegistry *registry, QStackedWidget *stack, QObject *parent)
    : QObject(parent)
    , m_registry(registry)
    , m_stack(stack)
    , m_entries({{shortcutsEntry, QStringLiteral("Shortcuts"), tr("Shortcuts"),
                  QIcon::fromTheme(QStringLiteral("zcc_nav_shortcuts"))},
                 {servicesEntry, QStringLiteral("Services"), tr("Services"),
                  QIcon::fromTheme(QStringLiteral("zcc_nav_services"))}})
{
}

PageArea *OwnPages::page(const QString &name)
{
    if (m_pages.contains(name) || (name != shortcutsEntry && name != servicesEntry))
        return m_pages.value(name);
    PageArea *area = nullptr;
    if (name == servicesEntry) {
        area = buildServices();
    } else {
        area = new PageArea;
        area->setPage(buildShortcuts());
    }
    m_stack->addWidget(area);
    m_pages.insert(name, area);
    return area;
}

ShortcutsPage *OwnPages::shortcuts()
{
    return qobject_cast<ShortcutsPage *>(page(shortcutsEntry)->widget());
}

ServiceWatches *OwnPages::watches()
{
    if (!m_watches) {
        m_watches = new ServiceWatches(this);
        connect(m_watches, &ServiceWatches::known, this, &OwnPages::completed);
    }
    return m_watches;
}

bool OwnPages::isComplete()
{
    return shortcuts()->isComplete() && (!m_watches || m_watches->isKnown());
}

// Titled as the module's pages of the same features are.
QWidget *OwnPages::buildShortcuts()
{
    QVector<ShortcutsPage::Shortcut> shortcuts;
    for (const PageShortcut &shortcut : pageShortcuts)
        for (const sandbox::SystemShortcut &system : sandbox::systemShortcuts)
            if (shortcut.id == QLatin1String(system.id))
                shortcuts.append({shortcut.id, m_registry->translatedPage(shortcut.page),
                                  QLatin1String(system.accelerator)});
    return new ShortcutsPage(shortcuts);
}

PageArea *OwnPages::buildServices()
{
    auto *services = new ServicesPage(watches());
    connect(services, &ServicesPage::worldRequested, this, &OwnPages::worldRequested);
    return services;
}

} // namespace controlcenter
