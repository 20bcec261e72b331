#pragma once

#include <QLocale>
#include <QString>

namespace controlcenter {

struct Options;

/** How the window is laid out. */
enum class Direction {
    OfLanguage,
    LeftToRight,
    RightToLeft,
};

/** How the window looks, but for its theme. */
struct Appearance
{
    QString locale;        ///< such as "zh_CN", one of locales(); of the whole process
    int textPercent = 100; ///< of the size that applyAppearance() has given
    Direction direction = Direction::OfLanguage;
};

/** Sets locale and scale in the environment. Before the application object and any QLocale. */
void prepareEnvironment(const Options &options);

/** The font of the window's texts in @p language, where no desktop names one. */
QString fontFamily(QLocale::Language language);

/** Sets direction, style, icons, font and theme. After the application object's construction. */
void applyAppearance(const Options &options);

/** How new windows look now. */
Appearance currentAppearance();

/** Text size and direction of windows that are built from now on. */
void setTextPercent(int percent);
void setDirection(Direction direction);

} // namespace controlcenter
