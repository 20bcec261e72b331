#include "sandbox/controlcenter/shortcutspage/keygrabber.h"

#include "sandbox/controlcenter/shortcutspage/accelerator.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

namespace controlcenter {

KeyGrabber::KeyGrabber(QObject *parent)
    : QObject(parent)
{
}

KeyGrabber::~KeyGrabber()
{
    stop();
}

void KeyGrabber::start(QWidget *home)
{
    m_home = home;
    if (m_active)
        return;
    m_active = true;
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyGrabber::isActive() const
{
    return m_active;
}

void KeyGrabber::stop()
{
    m_active = false;
    m_home.clear();
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeEventFilter(this);
}

bool KeyGrabber::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept(); // what would be a shortcut of this window comes as a key
        return true;
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (!key->isAutoRepeat())
            takeKey(key->key(), key->modifiers());
        return true;
    }
    case QEvent::KeyRelease:
        return true;
    case QEvent::MouseButtonPress:
        if (!isHome(static_cast<QMouseEvent *>(event)->globalPos()))
            cancel();
        return false;
    case QEvent::MouseButtonRelease: // of a click on home: others have ended the wait when pressed
        cancelLater();
        return false;
    case QEvent::Hide:
        if (watched == m_home)
            cancelLater();
        return false;
    case QEvent::WindowDeactivate:
        if (m_home && watched == m_home->window())
            cancelLater();
        return false;
    default:
        return false;
    }
}

bool KeyGrabber::isHome(const QPoint &globalPosition) const
{
    return m_home && m_home->rect().contains(m_home->mapFromGlobal(globalPosition));
}

void KeyGrabber::cancel()
{
    if (!m_active)
        return;
    stop();
    Q_EMIT cancelled();
}

/** For events that widgets have yet to deal with, or that come while they are being destroyed. */
void KeyGrabber::cancelLater()
{
    QTimer::singleShot(0, this, &KeyGrabber::cancel);
}

void KeyGrabber::takeKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_Escape && modifiers == Qt::NoModifier) {
        cancel();
        return;
    }
    const QString taken = accelerator(key, modifiers);
    if (taken.isEmpty())
        return; // a modifier, or a key that would be missing when typing: wait on
    stop();
    Q_EMIT grabbed(taken);
}

} // namespace controlcenter
