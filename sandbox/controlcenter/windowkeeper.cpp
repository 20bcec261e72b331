#include "sandbox/controlcenter/windowkeeper.h"

#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/themechoice.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

namespace controlcenter {
namespace {

constexpr int anotherWindow = -2; // exit code of the event loop

} // namespace

WindowKeeper::WindowKeeper(zccV20::ModuleInterface *module, const Options &options)
    : m_module(module)
    , m_options(options)
{
    build();
}

WindowKeeper::~WindowKeeper() = default;

void WindowKeeper::show()
{
    m_window->show();
    // From inside the event loop: before it, a request to quit would be lost while a page waits
    // for its service.
    QTimer::singleShot(0, m_window.get(), [this] { openFirst(); });
}

// The loop is left for a new window: whatever waits inside it for a service has to end first.
int WindowKeeper::exec()
{
    int code = QApplication::exec();
    while (code == anotherWindow && m_successor.isEmpty()) {
        m_window.reset(); // or the module would be left after the new one has opened it
        setTextPercent(m_options.textPercent);
        setDirection(m_options.direction);
        build();
        show();
        code = QApplication::exec();
    }
    return code;
}

void WindowKeeper::build()
{
    m_window = std::make_unique<ControlCenterWindow>(m_module);
    m_window->theme()->use(ThemeChoice::named(m_options.theme));
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize usual = ControlCenterWindow::usualSize();
    if (m_options.geometry.isValid())
        m_window->setGeometry(m_options.geometry);
    else if (m_options.tour.isEmpty() && usual.boundedTo(screen) != usual)
        m_window->setWindowState(Qt::WindowMaximized); // with its frame on the screen, too
    connect(m_window.get(), &ControlCenterWindow::appearanceWanted, this, &WindowKeeper::change);
}

void WindowKeeper::openFirst()
{
    const QPointer<ControlCenterWindow> window = m_window.get(); // a page may wait for long
    if (!m_options.places.isEmpty())
        window->openPlace(m_options.places.constFirst());
    else if (!m_options.page.isEmpty())
        window->openPage(m_options.page);
    else
        window->openModule();
    if (!window || m_options.world.isEmpty())
        return;
    window->world()->openDrawer();
    window->world()->drawer()->focusRow(m_options.world);
}

void WindowKeeper::change(const Appearance &wanted)
{
    m_options.theme = ThemeChoice::names().at(m_window->theme()->choice());
    m_options.places = QStringList(m_window->currentPlace());
    m_options.geometry = m_window->geometry();
    m_options.world = m_window->world()->drawer()->focusedRow();
    m_options.textPercent = wanted.textPercent;
    m_options.direction = wanted.direction;
    if (wanted.locale != currentAppearance().locale) {
        m_options.locale = wanted.locale;
        m_successor = argumentsFor(m_options);
    }
    QCoreApplication::exit(anotherWindow);
}

} // namespace controlcenter
