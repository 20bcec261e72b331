#include "sandbox/controlcenter/tour/tourdriver.h"

#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/search.h"

#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <utility>

using Ztk::Gui::ZGuiApplicationHelper;

namespace controlcenter {

TourDriver::TourDriver(ControlCenterWindow *window)
    : m_window(window)
{
}

ControlCenterWindow *TourDriver::window() const
{
    return m_window;
}

void TourDriver::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    settle();
}

void TourDriver::type(const QString &text)
{
    for (const QChar character : text) {
        // Text of any script arrives as an input method commits it, not as a key of a keyboard.
        QInputMethodEvent event;
        event.setCommitString(character);
        if (QWidget *focus = QApplication::focusWidget())
            QApplication::sendEvent(focus, &event);
    }
    settle();
}

bool TourDriver::waitFor(const std::function<bool()> &condition, int milliseconds)
{
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(milliseconds);
    // Asked once more, a condition that holds for a moment, as of a picture that moves, might not.
    bool holds = condition();
    while (!holds && limit.isActive()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        settle();
        holds = condition();
    }
    return holds;
}

void TourDriver::settle()
{
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

QImage TourDriver::grab()
{
    settle();
    const qreal scale = m_window->devicePixelRatioF() * m_pictureScale;
    QImage picture((QSizeF(m_window->size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    m_window->render(&picture);
    return picture;
}

void TourDriver::showPicture(const QImage &picture)
{
    m_shown = picture;
}

QImage TourDriver::takeShownPicture()
{
    return std::exchange(m_shown, QImage());
}

void TourDriver::setPictureScale(int factor)
{
    m_pictureScale = factor;
}

QString TourDriver::openPage(const QString &name)
{
    const QString title = m_window->pageTitle(name);
    m_window->openPage(name);
    settle();
    if (m_window->currentTitle() != title)
        return QStringLiteral("the heading says \"%1\", not \"%2\"")
            .arg(m_window->currentTitle(), title);
    if (!m_window->currentPage())
        return QStringLiteral("no page is shown");
    return QString();
}

void TourDriver::setTheme(ThemeChoice::Choice theme)
{
    ZGuiApplicationHelper::instance()->setThemeType(ThemeChoice::typeOf(theme));
    settle();
}

void TourDriver::setDark(bool dark)
{
    setTheme(dark ? ThemeChoice::Dark : ThemeChoice::Light);
}

QWidget *TourDriver::control(const QString &name) const
{
    QWidget *page = m_window->currentPage();
    return page ? findControl(page, name) : nullptr;
}

QWidget *TourDriver::control(QAccessible::Role role, int index) const
{
    QWidget *page = m_window->currentPage();
    if (!page)
        return nullptr;
    for (QWidget *control : controlsOf(page)) {
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
        if (accessible && accessible->role() == role && index-- == 0)
            return control;
    }
    return nullptr;
}

bool TourDriver::tabTo(QWidget *target)
{
    m_window->searchField()->setFocus(Qt::ShortcutFocusReason);
    focusStops([this] { press(Qt::Key_Tab); }, target);
    return target->hasFocus();
}

} // namespace controlcenter
