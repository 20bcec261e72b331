#include "sandbox/controlcenter/shortcutspage/keygrabber.h"

#include <QCoreApplication>
#include <QHash>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

namespace controlcenter {
namespace {

constexpr int lastFunctionKey = 24;

// X keysym names of keys that are not named by the character on them.
const QHash<int, QString> &keyNames()
{
    static const QHash<int, QString> names = {
        {Qt::Key_Space, QStringLiteral("space")},
        {Qt::Key_Exclam, QStringLiteral("exclam")},
        {Qt::Key_QuoteDbl, QStringLiteral("quotedbl")},
        {Qt::Key_NumberSign, QStringLiteral("numbersign")},
        {Qt::Key_Dollar, QStringLiteral("dollar")},
        {Qt::Key_Percent, QStringLiteral("percent")},
        {Qt::Key_Ampersand, QStringLiteral("ampersand")},
        {Qt::Key_Apostrophe, QStringLiteral("apostrophe")},
        {Qt::Key_ParenLeft, QStringLiteral("parenleft")},
        {Qt::Key_ParenRight, QStringLiteral("parenright")},
        {Qt::Key_Asterisk, QStringLiteral("asterisk")},
        {Qt::Key_Plus, QStringLiteral("plus")},
        {Qt::Key_Comma, QStringLiteral("comma")},
        {Qt::Key_Minus, QStringLiteral("minus")},
        {Qt::Key_Period, QStringLiteral("period")},
        {Qt::Key_Slash, QStringLiteral("slash")},
        {Qt::Key_Colon, QStringLiteral("colon")},
        {Qt::Key_Semicolon, QStringLiteral("semicolon")},
        {Qt::Key_Less, QStringLiteral("less")},
        {Qt::Key_Equal, QStringLiteral("equal")},
        {Qt::Key_Greater, QStringLiteral("greater")},
        {Qt::Key_Question, QStringLiteral("question")},
        {Qt::Key_At, QStringLiteral("at")},
        {Qt::Key_BracketLeft, QStringLiteral("bracketleft")},
        {Qt::Key_Backslash, QStringLiteral("backslash")},
        {Qt::Key_BracketRight, QStringLiteral("bracketright")},
        {Qt::Key_AsciiCircum, QStringLiteral("asciicircum")},
        {Qt::Key_Underscore, QStringLiteral("underscore")},
        {Qt::Key_QuoteLeft, QStringLiteral("grave")},
        {Qt::Key_BraceLeft, QStringLiteral("braceleft")},
        {Qt::Key_Bar, QStringLiteral("bar")},
        {Qt::Key_BraceRight, QStringLiteral("braceright")},
        {Qt::Key_AsciiTilde, QStringLiteral("asciitilde")},
        {Qt::Key_Escape, QStringLiteral("Escape")},
        {Qt::Key_Tab, QStringLiteral("Tab")},
        {Qt::Key_Backtab, QStringLiteral("Tab")},
        {Qt::Key_Backspace, QStringLiteral("BackSpace")},
        {Qt::Key_Return, QStringLiteral("Return")},
        {Qt::Key_Enter, QStringLiteral("KP_Enter")},
        {Qt::Key_Insert, QStringLiteral("Insert")},
        {Qt::Key_Delete, QStringLiteral("Delete")},
        {Qt::Key_Home, QStringLiteral("Home")},
        {Qt::Key_End, QStringLiteral("End")},
        {Qt::Key_Left, QStringLiteral("Left")},
        {Qt::Key_Up, QStringLiteral("Up")},
        {Qt::Key_Right, QStringLiteral("Right")},
        {Qt::Key_Down, QStringLiteral("Down")},
        {Qt::Key_PageUp, QStringLiteral("Prior")},
        {Qt::Key_PageDown, QStringLiteral("Next")},
        {Qt::Key_Pause, QStringLiteral("Pause")},
        {Qt::Key_Print, QStringLiteral("Print")},
        {Qt::Key_Menu, QStringLiteral("Menu")},
    };
    return names;
}

bool isFunctionKey(int key)
{
    return key >= Qt::Key_F1 && key < Qt::Key_F1 + lastFunctionKey;
}

QString keyName(int key)
{
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return QString(QChar(key));
    if (isFunctionKey(key))
        return QStringLiteral("F%1").arg(key - Qt::Key_F1 + 1);
    return keyNames().value(key);
}

} // namespace

QString accelerator(int key, Qt::KeyboardModifiers modifiers)
{
    const QString name = keyName(key);
    const bool alters = modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (name.isEmpty() || (!alters && !isFunctionKey(key)))
        return QString();

    QString written;
    if (modifiers & Qt::ControlModifier)
        written += QStringLiteral("<Control>");
    if (modifiers & Qt::AltModifier)
        written += QStringLiteral("<Alt>");
    if (modifiers & Qt::ShiftModifier)
        written += QStringLiteral("<Shift>");
    if (modifiers & Qt::MetaModifier)
        written += QStringLiteral("<Super>");
    return written + name;
}

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
