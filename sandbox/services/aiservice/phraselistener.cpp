#include "sandbox/services/aiservice/phraselistener.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace sandbox {

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

QString Hypothesis::toJson(const QString &sessionId) const
{
    QJsonArray wordSlots;
    for (const QString &word : words) {
        const QJsonObject candidate{{QStringLiteral("w"), word}};
        wordSlots.append(QJsonObject{{QStringLiteral("cw"), QJsonArray{candidate}}});
    }
    const QJsonObject text{
        {QStringLiteral("pgs"), kind == Replace ? QStringLiteral("rpl") : QStringLiteral("apd")},
        {QStringLiteral("sn"), number},
        {QStringLiteral("ls"), last},
        {QStringLiteral("ws"), wordSlots},
    };
    return compact({{QStringLiteral("session_id"), sessionId},
                    {QStringLiteral("text"), compact(text)},
                    {QStringLiteral("finish"), last}});
}

namespace {

constexpr int samplesPerMillisecond = 16;
/** Audio is decoded in blocks of 100 ms: small enough to follow a speaker, large enough to be
 * cheap. */
constexpr int blockSamples = 100 * samplesPerMillisecond;
/** What an utterance keeps of the time before it, since the decoder notices speech a little late.
 */
constexpr int leadSamples = 500 * samplesPerMillisecond;
/** An utterance that does not end, in noise for instance, is read after this long. */
constexpr int longestUtterance = 20000 * samplesPerMillisecond;

} // namespace

PhraseListener::PhraseListener(const Patience &patience)
    : m_patience(patience)
{
    if (isValid())
        m_decoder.begin();
}

QVector<Hypothesis> PhraseListener::hear(const QVector<qint16> &samples)
{
    if (m_ended)
        return {};
    m_waiting += samples;
    int heard = 0;
    for (; !m_ended && heard + blockSamples <= m_waiting.size(); heard += blockSamples)
        hearBlock(m_waiting.mid(heard, blockSamples));
    m_waiting.remove(0, heard);
    return std::exchange(m_news, {});
}

QVector<Hypothesis> PhraseListener::finish()
{
    if (!m_ended)
        hearBlock(std::exchange(m_waiting, {}));
    if (!m_ended)
        end();
    return std::exchange(m_news, {});
}

void PhraseListener::hearBlock(const QVector<qint16> &block)
{
    m_decoder.feed(block);
    m_utterance += block;
    report(m_decoder.words());

    const bool spoke = std::exchange(m_speaking, m_decoder.isSpeaking());
    m_heardSpeech = m_heardSpeech || m_speaking;
    m_silentSamples = m_speaking ? 0 : m_silentSamples + block.size();
    if ((spoke && !m_speaking) || m_utterance.size() >= longestUtterance) {
        endUtterance();
        m_decoder.begin();
    } else if (!m_speaking) {
        m_utterance.remove(0, qMax(0, m_utterance.size() - leadSamples));
    }
    if (isOutOfPatience())
        end();
}

void PhraseListener::endUtterance()
{
    const QStringList streamed = m_decoder.words();
    m_decoder.end();
    // The second reading is the better one, but in noise it is sometimes the one that hears less.
    const QStringList whole = m_decoder.wordsOf(std::exchange(m_utterance, {}));
    report(whole.size() >= streamed.size() ? whole : streamed);
    m_reportedIsFinal = !m_reported.isEmpty();
    m_speaking = false;
}

void PhraseListener::report(const QStringList &words)
{
    if (m_reportedIsFinal) {
        if (words.isEmpty())
            return; // nothing new yet: the last utterance stays
        add(Hypothesis::Append, words);
        m_reportedIsFinal = false;
    } else if (words == m_reported) {
        return;
    }
    add(Hypothesis::Replace, words);
    m_reported = words;
}

void PhraseListener::add(Hypothesis::Kind kind, const QStringList &words, bool last)
{
    m_news.append({kind, words, ++m_steps, last});
}

void PhraseListener::end()
{
    if (m_speaking)
        endUtterance();
    else
        m_decoder.end();
    add(Hypothesis::Replace, m_reported, true);
    m_ended = true;
}

bool PhraseListener::isOutOfPatience() const
{
    const int limit = m_heardSpeech ? m_patience.afterSpeech : m_patience.beforeSpeech;
    return m_silentSamples >= limit * samplesPerMillisecond;
}

} // namespace sandbox
