#include "ztk/zfocustracker.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QWidget>

namespace Ztk {
namespace Widget {

namespace {
QPointer<ZFocusTracker> currentTracker;
} // namespace

ZFocusTracker::ZFocusTracker(QObject *parent)
    : QObject(parent)
{
    parent->installEventFilter(this);
}

void ZFocusTracker::install()
{
    if (!currentTracker && qobject_cast<QApplication *>(QCoreApplication::instance()))
        currentTracker = new ZFocusTracker(QCoreApplication::instance());
}

bool ZFocusTracker::showsFocus(const QWidget *widget)
{
    return widget && widget->hasFocus() && ringsVisible();
}

bool ZFocusTracker::ringsVisible()
{
    install();
    return currentTracker && currentTracker->m_visible;
}

bool ZFocusTracker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn && watched->isWidgetType()) {
        switch (static_cast<QFocusEvent *>(event)->reason()) {
        case Qt::MouseFocusReason:
            m_visible = false;
            break;
        case Qt::ActiveWindowFocusReason:
        case Qt::PopupFocusReason:
            break; // a window or a popup that comes or goes says nothing about the hand that did it
        case Qt::OtherFocusReason:
            m_visible = m_lastWasKey; // given by the program because of what was done last
            break;
        default:
            m_visible = true;
        }
    } else if (event->type() == QEvent::MouseButtonPress) {
        m_lastWasKey = false;
    } else if (event->type() == QEvent::KeyPress) {
        m_lastWasKey = true;
        if (m_visible)
            return QObject::eventFilter(watched, event);
        m_visible = true;
        if (QWidget *focused = QApplication::focusWidget()) {
            focused->update();
            if (const auto *area = qobject_cast<QAbstractScrollArea *>(focused))
                area->viewport()->update();
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Widget
} // namespace Ztk
