#pragma once

#include <QMap>
#include <QString>

// clazy:excludeall=non-pod-global-static

/**
 * What a key cap shows for a key that the keybinding daemon names by its X keysym name.
 *
 * Keys that are not listed are shown by their name. The two square brackets stand here under keys
 * that are no keysym names, on purpose: the real "bracketleft" and "bracketright" are shown by
 * name. Every source unit that includes this header holds its own copy, filled when it is loaded;
 * nothing may read it before main(). Only KeyLabel does.
 */
static const QMap<QString, QString> keyDisplayNames = {
    {QStringLiteral("exclam"), QStringLiteral("!")},
    {QStringLiteral("at"), QStringLiteral("@")},
    {QStringLiteral("numbersign"), QStringLiteral("#")},
    {QStringLiteral("dollar"), QStringLiteral("$")},
    {QStringLiteral("percent"), QStringLiteral("%")},
    {QStringLiteral("asciicircum"), QStringLiteral("^")},
    {QStringLiteral("ampersand"), QStringLiteral("&")},
    {QStringLiteral("asterisk"), QStringLiteral("*")},
    {QStringLiteral("parenleft"), QStringLiteral("(")},
    {QStringLiteral("parenright"), QStringLiteral(")")},
    {QStringLiteral("underscore"), QStringLiteral("_")},
    {QStringLiteral("plus"), QStringLiteral("+")},
    {QStringLiteral("braceleft"), QStringLiteral("{")},
    {QStringLiteral("braceright"), QStringLiteral("}")},
    {QStringLiteral("bar"), QStringLiteral("|")},
    {QStringLiteral("colon"), QStringLiteral(":")},
    {QStringLiteral("quotedbl"), QStringLiteral("\"")},
    {QStringLiteral("less"), QStringLiteral("<")},
    {QStringLiteral("greater"), QStringLiteral(">")},
    {QStringLiteral("question"), QStringLiteral("?")},
    {QStringLiteral("minus"), QStringLiteral("-")},
    {QStringLiteral("equal"), QStringLiteral("=")},
    {QStringLiteral("brackertleft"), QStringLiteral("[")},
    {QStringLiteral("breckertright"), QStringLiteral("]")},
    {QStringLiteral("backslash"), QStringLiteral("\\")},
    {QStringLiteral("semicolon"), QStringLiteral(";")},
    {QStringLiteral("apostrophe"), QStringLiteral("'")},
    {QStringLiteral("comma"), QStringLiteral(",")},
    {QStringLiteral("period"), QStringLiteral(".")},
    {QStringLiteral("slash"), QStringLiteral("/")},
    {QStringLiteral("Up"), QStringLiteral("\u2191")},
    {QStringLiteral("Left"), QStringLiteral("\u2190")},
    {QStringLiteral("Down"), QStringLiteral("\u2193")},
    {QStringLiteral("Right"), QStringLiteral("\u2192")},
    {QStringLiteral("asciitilde"), QStringLiteral("~")},
    {QStringLiteral("grave"), QStringLiteral("`")},
    {QStringLiteral("Control"), QStringLiteral("Ctrl")},
    {QStringLiteral("Super_L"), QStringLiteral("Super")},
    {QStringLiteral("Super_R"), QStringLiteral("Super")},
};
