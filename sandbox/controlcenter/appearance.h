#pragma once

#include <QLocale>

namespace controlcenter {

struct Options;

/** Sets locale and scale in the environment. Before the application object and any QLocale. */
void prepareEnvironment(const Options &options);

/** What the window's texts in @p language are set in, where no desktop names a font. */
QString fontFamily(QLocale::Language language);

/** Gives the application its direction, style, icons, font and theme. After its construction. */
void dressApplication(const Options &options);

} // namespace controlcenter
