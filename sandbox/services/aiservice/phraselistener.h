#pragma once

#include "sandbox/services/aiservice/phrasedecoder.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

namespace sandbox {

/** One step of a recognition, as the client is told of it. */
struct Hypothesis
{
    enum Kind {
        Replace, ///< The words stand in place of those of the step before.
        Append,  ///< The words of the step before are final; these come behind them.
    };

    Kind kind = Replace;
    QStringList words;
    int number = 1;    ///< counts the steps of a recognition from 1
    bool last = false; ///< nothing follows

    /** The result text of the recognition contract, for the session called @p sessionId. */
    QString toJson(const QString &sessionId) const;
};

} // namespace sandbox

Q_DECLARE_METATYPE(sandbox::Hypothesis)

namespace sandbox {

/**
 * Follows one speaker: words while they are spoken, and a better reading of each utterance when the
 * speaker pauses.
 *
 * The words of an utterance replace each other until the first word of the next one makes them
 * final. A client of the contract shows, but does not keep, the words that come with such an
 * append, so they are stated again at once.
 */
class PhraseListener
{
public:
    /** How long nobody may speak before the recognition ends by itself, in milliseconds. */
    struct Patience
    {
        int beforeSpeech = 10000;
        int afterSpeech = 10000;
    };

    explicit PhraseListener(const Patience &patience);

    /** False when the models cannot be loaded. Nothing else may be called then. */
    bool isValid() const { return m_decoder.isValid(); }

    /** What is new after @p samples (16000 Hz, mono); the last one may end the recognition. */
    QVector<Hypothesis> hear(const QVector<qint16> &samples);

    /** What remains to be said when no more audio follows; its last element ends the recognition.
     *  Empty if it has ended before. */
    QVector<Hypothesis> finish();

private:
    void hearBlock(const QVector<qint16> &block);
    void endUtterance();
    void report(const QStringList &words);
    void add(Hypothesis::Kind kind, const QStringList &words, bool last = false);
    void end();
    bool isOutOfPatience() const;

    PhraseDecoder m_decoder;
    Patience m_patience;
    QVector<Hypothesis> m_news;  ///< not handed out yet
    QVector<qint16> m_waiting;   ///< less than a block
    QVector<qint16> m_utterance; ///< all of the current utterance, with what comes just before it
    QStringList m_reported;      ///< the words that the next hypothesis replaces or follows
    bool m_reportedIsFinal = false; ///< they belong to an utterance that has ended
    bool m_speaking = false;
    bool m_heardSpeech = false;
    int m_silentSamples = 0; ///< since anybody spoke
    int m_steps = 0;
    bool m_ended = false;
};

} // namespace sandbox
