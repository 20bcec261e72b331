#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace sandbox {

/**
 * The language side of the sandbox's recogniser: pronunciations and a bigram model of the phrase
 * that the voice test asks for, written in the formats that PocketSphinx reads.
 *
 * The acoustic model is an English one, the only one that Debian packages, so every Mandarin
 * syllable is listed with each English phone sequence that the decoder may hear in it. Beside the
 * words of the phrase stand one-phone filler words, which soak up whatever else is said: they are
 * what keeps other sentences and noise from being read as the phrase.
 */
namespace phrasemodel {

/** The words of the phrase, in the order in which they are spoken. */
QStringList words();

/** Whether the decoder's @p word is a filler, or an alternative pronunciation mark, not a word. */
bool isFiller(const QString &word);

/** The pronunciation dictionary: one line per pronunciation, UTF-8. */
QByteArray dictionary();

/** The bigram model in ARPA format, UTF-8. */
QByteArray bigrams();

} // namespace phrasemodel

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
