#include "sandbox/controlcenter/shortcutspage/accelerator.h"

#include <QHash>

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

} // namespace controlcenter
