#pragma once

#include "sandbox/controlcenter/appearance.h"

#include <QRect>
#include <QString>
#include <QStringList>

namespace controlcenter {

/** What the command line asks for. */
struct Options
{
    QString plugin;       ///< path of the module's file
    QString page;         ///< untranslated page to open first; empty: the module's first
    QString locale;       ///< such as "zh_CN"; empty: the environment's
    QString tour;         ///< folder for the tour's pictures; empty: no tour
    QString log;          ///< file for the messages of Qt and the module; empty: standard error
    QStringList sections; ///< of the tour; empty: all of them
    QString looks;        ///< folder for pictures of places in every look; empty: none
    QStringList places;   ///< of the window, for looks; or the one to open first
    double fontSize = 0;  ///< points; 0: the desktop's
    double scale = 1;     ///< picture pixels per window pixel
    QString theme;        ///< one of ThemeChoice::names(); empty: the one chosen last
    int textPercent = 100;
    Direction direction = Direction::OfLanguage;
    QString world;  ///< the row of the drawer that has the focus; empty: the drawer is closed
    QRect geometry; ///< of the window; not valid: the usual one
    QString error;  ///< why the command line cannot be followed; empty when it can
    bool help = false;
};

/** The locales whose texts the module has. */
const QStringList &locales();

/** What people call the language of @p locale in that language. */
QString languageName(const QString &locale);

/** Reads @p arguments, the program's name first. Needs no application object. */
Options parseOptions(const QStringList &arguments);

/** The arguments that ask for @p options, without a tour. */
QStringList argumentsFor(const Options &options);

/** Says that there is no @p what called @p name, and what there is instead. */
QString noSuch(const QString &what, const QString &name, const QStringList &existing);

/** The text of --help. Needs an application object. */
QString helpText();

} // namespace controlcenter
