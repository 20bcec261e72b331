#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

struct ps_decoder_s;

namespace sandbox {

/**
 * One speech decoder for the test phrase: PocketSphinx with the phrase's language model.
 *
 * Used by one thread at a time; two decoders are independent of each other. Audio is mono 16-bit
 * PCM at 16000 Hz. Everything blocks for as long as decoding takes, about a tenth of the audio's
 * length.
 */
class PhraseDecoder
{
public:
    /** Loads the models; see isValid(). */
    PhraseDecoder();
    ~PhraseDecoder();

    PhraseDecoder(const PhraseDecoder &) = delete;
    PhraseDecoder &operator=(const PhraseDecoder &) = delete;

    /** False when the acoustic model cannot be read, or no temporary file written. Nothing else may
     *  be called then. */
    bool isValid() const { return m_decoder != nullptr; }

    /** Begins an utterance that is decoded while it is spoken. */
    void begin();
    /** The utterance goes on with @p samples. */
    void feed(const QVector<qint16> &samples);
    /** Whether the speaker is speaking, up to the last block fed. A pause counts after about half a
     *  second. */
    bool isSpeaking() const;
    /** The words of the phrase heard so far in this utterance. */
    QStringList words() const;
    /** Ends the utterance. */
    void end();

    /** The words of the phrase in a whole utterance: a second opinion that is better than words(),
     *  since the speaker's channel is measured before decoding. Not between begin() and end(). */
    QStringList wordsOf(const QVector<qint16> &utterance);

private:
    struct Free
    {
        void operator()(ps_decoder_s *decoder) const;
    };

    std::unique_ptr<ps_decoder_s, Free> m_decoder;
};

} // namespace sandbox
