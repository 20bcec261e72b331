#pragma once

namespace controlcenter {

struct Options;

/** Sets locale and scale in the environment. Before the application object and any QLocale. */
void prepareEnvironment(const Options &options);

/** Gives the application its direction, style, icons, font and theme. After its construction. */
void dressApplication(const Options &options);

} // namespace controlcenter
