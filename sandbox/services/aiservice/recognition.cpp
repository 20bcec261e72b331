#include "sandbox/services/aiservice/recognition.h"

#include "sandbox/services/aiservice/recognitionworker.h"

#include <QThread>

namespace sandbox {

Recognition::Recognition(const QString &modelFolder, const PhraseListener::Patience &patience,
                         QObject *threadParent, QObject *parent)
    : QObject(parent)
    , m_thread(new QThread(threadParent))
    , m_worker(new RecognitionWorker(modelFolder, patience))
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
