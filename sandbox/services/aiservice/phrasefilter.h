#pragma once

#include <QStringList>

namespace sandbox {

/** Tells the phrase from what a decoder makes of other sounds. */
namespace phrasefilter {

/** Fewer words of the phrase in a row than this are taken for chance: other sentences give runs of
 *  three now and then. */
constexpr int shortestRun = 4;

/**
 * The words of the phrase in the decoder's output @p decoded: fillers are dropped, and what remains
 * counts only where at least shortestRun words in a row stand in the phrase's order. A word of the
 * phrase may be missing in between. Empty when nothing counts.
 */
QStringList phraseWords(const QStringList &decoded);

} // namespace phrasefilter

} // namespace sandbox
