#include "voice/aqcwrapper.h"

#include "bus/serviceproxy.h"
#include "comcorvaneaiserviceaqcinterface.h"
#include "voice/aiservice.h"
#include "voice/aiservicesession.h"
#include "voice/audiorecorder.h"

#include <QCoreApplication>
#include <QDebug>
#include <QTimer>

#include <dlfcn.h>

namespace {

constexpr int testMs = 10000;

QString qualityAbility()
{
    return QStringLiteral("aqc");
}

// Qt's bus and sound threads go on using what a test has given them, messages with names in this
// library among it. Once one was started, a host that unloads the module leaves it in memory.
void pinLibrary()
{
    Dl_info library;
    if (dladdr(&testMs, &library))
        dlopen(library.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

} // namespace

AqcWrapper::AqcWrapper(QObject *parent)
    : QObject(parent)
    , m_recorder(AudioRecorder::getInstance())
    , m_testTimer(new QTimer)
    , m_iat(std::make_shared<IatWapper>())
{
    // A coarse timer may be half a second off.
    m_testTimer->setTimerType(Qt::PreciseTimer);
    connect(m_testTimer, &QTimer::timeout, this, [this] { stop(); });
}

AqcWrapper::~AqcWrapper()
{
    if (m_testTimer->isActive()) {
        m_testTimer->stop();
        stop();
    }
    // Where no event loop runs any more, the timer goes with the application object.
    m_testTimer->setParent(QCoreApplication::instance());
    m_testTimer->deleteLater();
    if (m_aqc)
        m_aqc->deleteLater();
    if (m_recorder)
        m_recorder->deleteLater();
}

int AqcWrapper::start()
{
    pinLibrary();
    if (m_aqc) {
        disconnect(m_aqc, &ComCorvaneAiserviceAqcInterface::onNotify, this,
                   &AqcWrapper::signalAqcResult);
        m_aqc->deleteLater();
        m_aqc = nullptr;
    }

    AIServiceSession *sessions = AIServiceSession::instance();
    const int code = sessions->createSession(qualityAbility());
    if (code != 0) {
        qDebug() << "aiservice createsession error!";
        return code;
    }

    m_aqc = new ServiceProxy<ComCorvaneAiserviceAqcInterface>(
        aiservice::busName(), sessions->queryObjectPath(qualityAbility()),
        QDBusConnection::sessionBus(), this);
    m_aqc->startAqc();
    aiservice::connectSignal(m_aqc, &ComCorvaneAiserviceAqcInterface::onNotify, this,
                             &AqcWrapper::signalAqcResult);

    recorder()->start();
    connect(recorder(), &AudioRecorder::levelUpdated, this, &AqcWrapper::signalUpdateAudioLevel);
    connect(recorder(), &AudioRecorder::audioRecorded, this, &AqcWrapper::recAudioData);

    m_iat->startIat();
    connect(recorder(), &AudioRecorder::audioRecorded, m_iat.get(), &IatWapper::appendAudio);
    connect(m_iat.get(), &IatWapper::onIatResult, this, &AqcWrapper::signaleIatResult);

    m_testTimer->setSingleShot(true);
    m_testTimer->start(testMs);
    return 0;
}

void AqcWrapper::stop()
{
    qInfo() << "stop";
    if (m_aqc)
        m_aqc->stopAqc();
    recorder()->stop();
    m_iat->stopIat();

    // The third line repeats the first: part of the order of calls that is kept, and harmless.
    disconnect(recorder(), &AudioRecorder::audioRecorded, m_iat.get(), &IatWapper::appendAudio);
    disconnect(m_iat.get(), &IatWapper::onIatResult, this, &AqcWrapper::signaleIatResult);
    disconnect(recorder(), &AudioRecorder::audioRecorded, m_iat.get(), &IatWapper::appendAudio);
    disconnect(recorder(), &AudioRecorder::levelUpdated, this, &AqcWrapper::signalUpdateAudioLevel);
    disconnect(recorder(), &AudioRecorder::audioRecorded, this, &AqcWrapper::recAudioData);
}

void AqcWrapper::recAudioData(QByteArray data)
{
    if (m_aqc)
        m_aqc->putAudio(data, false);
}

// The process's recorder, also after another wrapper's end has taken the one that we had.
AudioRecorder *AqcWrapper::recorder()
{
    if (!m_recorder)
        m_recorder = AudioRecorder::getInstance();
    return m_recorder;
}
