#pragma once

#include <QString>

/**
 * Texts that come from services, as they are shown. A service may send any amount, and laying out a
 * megabyte would hold up the control center for seconds. What is stored, logged and merged is never
 * cut.
 */
namespace showntext {

// Characters (UTF-16 units), the sign of the cut included.
constexpr int longestWords = 2000;
constexpr int longestShortcut = 256;
constexpr int longestTitle = 512;

/**
 * @p text; where it has more than @p limit characters, only its beginning and "…". Never cut inside
 * a character and the marks that combine with it, however many they are.
 */
QString cut(const QString &text, int limit);

/**
 * @p text as a part of a line: line breaks become blanks, and directions of writing that it leaves
 * open (U+202A to U+202E, U+2066 to U+2068) are closed at its end.
 */
QString partOfLine(const QString &text);

} // namespace showntext
