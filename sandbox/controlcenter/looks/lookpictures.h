#pragma once

#include "sandbox/controlcenter/layoutcheck.h"
#include "sandbox/controlcenter/themechoice.h"

#include <QImage>
#include <QStringList>

namespace zccV20 {
class ModuleInterface;
}

namespace controlcenter {

/** One of the ways in which the window can look in one language. */
struct Look
{
    ThemeChoice::Choice theme;
    bool mirrored;   ///< right to left
    int textPercent; ///< of the usual size
};

/** Every theme, left to right and right to left, with usual and with large texts. */
QVector<Look> allLooks();

/** "dark-rtl-150", for instance. */
QString nameOf(const Look &look);

/** Name of the file with the picture of @p page, or another place of the window, in @p look. */
QString lookFile(const QString &page, const Look &look);

/** What is marked in a picture, as text in its file. */
QStringList problemsOf(const QImage &picture);

/** @p picture with a red frame around the place of each problem, and their texts in its file. */
QImage marked(const QImage &picture, const QVector<LookProblem> &problems);

/**
 * Writes the pictures of @p places, pages of @p module or of the window's own, into @p folder, in
 * every look and marked. The application's theme is another one after that. False, with a log
 * line, when a picture cannot be written.
 */
bool drawLooks(zccV20::ModuleInterface *module, const QStringList &places, const QString &folder);

} // namespace controlcenter
