#include "proxy/assistantstateproxy.h"

#include "bus/buscalls.h"
#include "proxy/servicenames.h"

#include <QDebug>
#include <QElapsedTimer>

namespace {

bool readBool(const ServiceNames::Endpoint &endpoint, const QString &method)
{
    return BusCalls::valueOr<bool>(BusCalls::callProcessingEvents(endpoint, method), false);
}

QString readString(const ServiceNames::Endpoint &endpoint, const QString &method,
                   const QString &fallback)
{
    return BusCalls::valueOr<QString>(BusCalls::callProcessingEvents(endpoint, method), fallback);
}

void logError(const QDBusMessage &result)
{
    if (result.type() == QDBusMessage::ErrorMessage)
        qCritical() << "Error Message: " << result.errorMessage() << "\n";
}

qint32 write(const ServiceNames::Endpoint &endpoint, const QString &method, const QVariant &value)
{
    logError(BusCalls::sendNoReply(endpoint, method, {value}));
    return 0;
}

} // namespace

void AssistantStateProxy::setVoiceWakeupState(bool on)
{
    // The service's code says nothing that the page could use.
    BusCalls::callProcessingEvents(ServiceNames::voiceWakeuper(),
                                   on ? QStringLiteral("enableIvw") : QStringLiteral("disableIvw"));
}

qint32 AssistantStateProxy::setOneShotMode(int mode)
{
    BusCalls::sendNoReply(ServiceNames::voiceWakeuper(), mode ? QStringLiteral("enableOneshot")
                                                              : QStringLiteral("disableOneshot"));
    return 0;
}

qint32 AssistantStateProxy::setAssistantSpeaker(int speaker)
{
    // This service names the male voice without the prefix that text to speech uses.
    return write(ServiceNames::mainWindow(), QStringLiteral("setVOXASpeaker"),
                 speaker == 0 ? QStringLiteral("x_tovali") : QStringLiteral("morven"));
}

bool AssistantStateProxy::queryVoiceIatState()
{
    return readBool(ServiceNames::speechToText(), QStringLiteral("getIatEnable"));
}

qint32 AssistantStateProxy::setVoiceIatState(bool on)
{
    QElapsedTimer timer;
    timer.start();
    const QDBusMessage result =
        BusCalls::sendNoReply(ServiceNames::speechToText(), QStringLiteral("setIatEnable"), {on});
    qDebug() << "setVoiceIatState" << double(timer.elapsed()) / 1000.0 << "s";
    logError(result);
    return 0;
}

QString AssistantStateProxy::getVoiceIatLanguage()
{
    return readString(ServiceNames::speechToText(), QStringLiteral("getIatLanguage"),
                      QStringLiteral("zh_cn"));
}

qint32 AssistantStateProxy::setVoiceIatLanguage(const QString &language)
{
    BusCalls::sendNoReply(ServiceNames::speechToText(), QStringLiteral("setIatLanguage"),
                          {language});
    return 0;
}

bool AssistantStateProxy::queryVoiceTTSState()
{
    return readBool(ServiceNames::textToSpeech(), QStringLiteral("getTTSEnable"));
}

qint32 AssistantStateProxy::setVoiceTTSState(bool on)
{
    return write(ServiceNames::textToSpeech(), QStringLiteral("setTTSEnable"), on);
}

bool AssistantStateProxy::queryVoiceTTSWindowState()
{
    return readBool(ServiceNames::textToSpeech(), QStringLiteral("getEnableWindow"));
}

qint32 AssistantStateProxy::setVoiceTTSWindowState(bool on)
{
    return write(ServiceNames::textToSpeech(), QStringLiteral("setEnableWindow"), on);
}

int AssistantStateProxy::getVoiceTTSSpeaker()
{
    const QString speaker =
        readString(ServiceNames::textToSpeech(), QStringLiteral("getSpeaker"), QString());
    qDebug() << "getVoiceTTSSpeaker" << speaker;
    if (speaker == QLatin1String("tovali") || speaker == QLatin1String("x_tovali"))
        return 0;
    if (speaker == QLatin1String("x_morven"))
        return 1;
    return 2;
}

qint32 AssistantStateProxy::setVoiceTTSSpeaker(int speaker)
{
    QString id = QStringLiteral("x_tovali");
    if (speaker == 1)
        id = QStringLiteral("x_morven");
    else if (speaker == 2)
        id = QStringLiteral("x2_pella");
    return write(ServiceNames::textToSpeech(), QStringLiteral("setSpeaker"), id);
}

bool AssistantStateProxy::queryAssistantTransState()
{
    return readBool(ServiceNames::translation(), QStringLiteral("getTransEnable"));
}

qint32 AssistantStateProxy::setAssistantTransState(bool on)
{
    return write(ServiceNames::translation(), QStringLiteral("setTransEnable"), on);
}

QString AssistantStateProxy::getAssistantTransLang()
{
    return readString(ServiceNames::translation(), QStringLiteral("getTransLanguage"),
                      QStringLiteral("en|cn"));
}

qint32 AssistantStateProxy::setAssistantTransLang(QString direction)
{
    return write(ServiceNames::translation(), QStringLiteral("setTransLanguage"), direction);
}

bool AssistantStateProxy::checkNetworkState()
{
    // NM_STATE_CONNECTED_GLOBAL of the NetworkManager D-Bus API.
    constexpr uint connectedGlobal = 70;

    const QDBusReply<uint> state = BusCalls::callBlocking(
        QDBusConnection::systemBus(), ServiceNames::networkManager(), QStringLiteral("state"));
    if (!state.isValid()) {
        qCritical() << "dbus call network manager state failed";
        return false;
    }
    return state.value() == connectedGlobal;
}
