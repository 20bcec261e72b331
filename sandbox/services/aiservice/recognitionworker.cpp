#include "sandbox/services/aiservice/recognitionworker.h"

#include <QThread>

namespace sandbox {

RecognitionWorker::RecognitionWorker(const QString &modelFolder,
                                     const PhraseListener::Patience &patience)
    : m_modelFolder(modelFolder)
    , m_patience(patience)
{
}

RecognitionWorker::~RecognitionWorker() = default;

void RecognitionWorker::start()
{
    m_listener = std::make_unique<PhraseListener>(m_modelFolder, m_patience);
    if (!m_listener->isValid()) {
        m_listener.reset();
        Q_EMIT failed();
    }
}

void RecognitionWorker::hear(const QByteArray &audio)
{
    if (m_listener && !QThread::currentThread()->isInterruptionRequested())
        tell(m_listener->hear(m_reader.read(audio)));
}

void RecognitionWorker::finish()
{
    if (m_listener && !QThread::currentThread()->isInterruptionRequested())
        tell(m_listener->finish());
}

void RecognitionWorker::tell(const QVector<Hypothesis> &news)
{
    for (const Hypothesis &hypothesis : news)
        Q_EMIT heard(hypothesis);
}

} // namespace sandbox
