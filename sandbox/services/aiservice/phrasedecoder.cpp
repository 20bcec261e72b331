#include "sandbox/services/aiservice/phrasedecoder.h"

#include "sandbox/services/aiservice/phrasemodel.h"

#include <QFile>
#include <QTemporaryDir>

#include <pocketsphinx.h>
#include <sphinxbase/err.h>

#include <array>

namespace sandbox {

namespace {

/** Where live normalisation starts: the mean cepstrum of synthetic speech at normal level. The
 *  acoustic model's own start value is so far off that the first words of an utterance are lost. */
constexpr std::array<mfcc_t, 13> speechMean = {54.F, 5.F,  -5.F,  33.F, -33.F, 4.F, -26.F,
                                               -7.F, 11.F, -16.F, 2.F,  -13.F, 9.F};

/** A pause of this many frames of 10 ms ends an utterance. */
constexpr auto pauseFrames = "50";

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

} // namespace

void PhraseDecoder::Free::operator()(ps_decoder_s *decoder) const
{
    ps_free(decoder);
}

PhraseDecoder::PhraseDecoder()
{
    err_set_logfp(nullptr); // a decoder tells pages about itself on stderr

    // It takes models from files only.
    const QTemporaryDir folder;
    const QString dictionary = folder.filePath(QStringLiteral("phrase.dict"));
    const QString bigrams = folder.filePath(QStringLiteral("phrase.arpa"));
    if (!write(dictionary, phrasemodel::dictionary()) || !write(bigrams, phrasemodel::bigrams()))
        return;
    cmd_ln_t *options = cmd_ln_init(nullptr, ps_args(), TRUE, "-hmm", SANDBOX_ACOUSTIC_MODEL,
                                    "-dict", QFile::encodeName(dictionary).constData(), "-lm",
                                    QFile::encodeName(bigrams).constData(), "-vad_postspeech",
                                    pauseFrames, nullptr);
    if (options)
        m_decoder.reset(ps_init(options));
    cmd_ln_free_r(options); // the decoder holds its own reference
    if (m_decoder)
        cmn_live_set(ps_get_feat(m_decoder.get())->cmn_struct, speechMean.data());
}

PhraseDecoder::~PhraseDecoder() = default;

void PhraseDecoder::begin()
{
    ps_start_utt(m_decoder.get());
}

void PhraseDecoder::feed(const QVector<qint16> &samples)
{
    ps_process_raw(m_decoder.get(), samples.constData(), size_t(samples.size()), FALSE, FALSE);
}

bool PhraseDecoder::isSpeaking() const
{
    return ps_get_in_speech(m_decoder.get()) != 0;
}

QStringList PhraseDecoder::words() const
{
    const char *text = ps_get_hyp(m_decoder.get(), nullptr);
    return phrasefilter::phraseWords(QString::fromUtf8(text).split(QLatin1Char(' ')));
}

void PhraseDecoder::end()
{
    ps_end_utt(m_decoder.get());
}

QStringList PhraseDecoder::wordsOf(const QVector<qint16> &utterance)
{
    ps_start_utt(m_decoder.get());
    ps_process_raw(m_decoder.get(), utterance.constData(), size_t(utterance.size()), FALSE, TRUE);
    ps_end_utt(m_decoder.get());
    const QStringList result = words();

    // The mean measured over this utterance is the speaker's own; the next one starts from it.
    std::array<mfcc_t, 13> mean{};
    cmn_t *normalisation = ps_get_feat(m_decoder.get())->cmn_struct;
    cmn_live_get(normalisation, mean.data());
    cmn_live_set(normalisation, mean.data());
    return result;
}

} // namespace sandbox
