#include "sandbox/services/aiservice/recognition.h"

#include "sandbox/services/aiservice/wavfile.h"

#include <QThread>

#include <memory>

namespace sandbox {

// The side of a Recognition that lives on its thread and does the listening.
class RecognitionWorker : public QObject
{
    Q_OBJECT

public:
    explicit RecognitionWorker(const PhraseListener::Patience &patience);
    ~RecognitionWorker() override;

    // Loads the models; called once, before the others.
    void start();
    // Returns at once when the thread is asked to end.
    void hear(const QByteArray &audio);
    void finish();

Q_SIGNALS:
    void heard(const sandbox::Hypothesis &hypothesis);
    void failed();

private:
    void tell(const QVector<Hypothesis> &news);

    const PhraseListener::Patience m_patience;
    PcmReader m_reader;
    std::unique_ptr<PhraseListener> m_listener; // null until start(), and when there are no models
};

RecognitionWorker::RecognitionWorker(const PhraseListener::Patience &patience)
    : m_patience(patience)
{
}

RecognitionWorker::~RecognitionWorker() = default;

void RecognitionWorker::start()
{
    m_listener = std::make_unique<PhraseListener>(m_patience);
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

Recognition::Recognition(const PhraseListener::Patience &patience, QObject *threadParent,
                         QObject *parent)
    : QObject(parent)
    , m_thread(new QThread(threadParent))
    , m_worker(new RecognitionWorker(patience))
{
    qRegisterMetaType<Hypothesis>();
    m_worker->moveToThread(m_thread);
    connect(m_thread, &QThread::started, m_worker, &RecognitionWorker::start);
    connect(m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
    connect(m_worker, &RecognitionWorker::heard, this, &Recognition::heard);
    connect(m_worker, &RecognitionWorker::failed, this, &Recognition::failed);
    m_thread->start();
}

Recognition::~Recognition()
{
    m_thread->requestInterruption();
    m_thread->quit();
}

void Recognition::hear(const QByteArray &audio)
{
    QMetaObject::invokeMethod(
        m_worker, [worker = m_worker, audio] { worker->hear(audio); }, Qt::QueuedConnection);
}

void Recognition::finish()
{
    QMetaObject::invokeMethod(
        m_worker, [worker = m_worker] { worker->finish(); }, Qt::QueuedConnection);
}

} // namespace sandbox

#include "recognition.moc"
