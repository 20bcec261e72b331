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

void KeyGrabber::start(QWidget *requester)
{
    m_requester = requester;
    if (m_active)
        return;
    m_active = true;
    QCoreApplication::instance()->installEventFilter(this);
}

void KeyGrabber::stop()
{
    m_active = false;
    m_requester.clear();
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
            handleKey(key->key(), key->modifiers());
        return true;
    }
    case QEvent::KeyRelease:
        return true;
    case QEvent::MouseButtonPress:
        if (!isOnRequester(static_cast<QMouseEvent *>(event)->globalPos()))
            cancel();
        return false;
    case QEvent::MouseButtonRelease: // of a click on the requester: others have ended the wait when
                                     // pressed
        cancelLater();
        return false;
    case QEvent::Hide:
        if (watched == m_requester)
            cancelLater();
        return false;
    case QEvent::WindowDeactivate:
        if (m_requester && watched == m_requester->window())
            cancelLater();
        return false;
    default:
        return false;
    }
}

bool KeyGrabber::isOnRequester(const QPoint &globalPosition) const
{
    return m_requester && m_requester->rect().contains(m_requester->mapFromGlobal(globalPosition));
}

void KeyGrabber::cancel()
{
    if (!m_active)
        return;
    stop();
    Q_EMIT cancelled();
}

// For events that widgets have yet to handle, or that come while they are being destroyed.
void KeyGrabber::cancelLater()
{
    QTimer::singleShot(0, this, &KeyGrabber::cancel);
}

void KeyGrabber::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_Escape && modifiers == Qt::NoModifier) {
        cancel();
        return;
    }
    const QString combination = accelerator(key, modifiers);
    if (combination.isEmpty())
        return; // a modifier, or a key that would be missing when typing: wait on
    stop();
    Q_EMIT grabbed(combination);
}

} // namespace controlcenter
