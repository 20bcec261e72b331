#pragma once

#include <QLocale>

namespace controlcenter {

struct Options;

/** Sets locale and scale in the environment. Before the application object and any QLocale. */
void prepareEnvironment(const Options &options);

/** The font of the window's texts in @p language, where no desktop names one. */
QString fontFamily(QLocale::Language language);

/** Lays the window out in @p direction from now on, whatever its language has. */
void forceDirection(Qt::LayoutDirection direction);

/** Sets direction, style, icons, font and theme. After the application object's construction. */
void applyAppearance(const Options &options);

} // namespace controlcenter
