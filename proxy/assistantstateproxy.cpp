#include "proxy/assistantstateproxy.h"

#include "bus/buscalls.h"

#include <QDebug>
#include <QElapsedTimer>
#include <QSettings>

using namespace Contract;

namespace {

bool readBool(const Contract::Method &method)
{
    return buscalls::valueOr<bool>(buscalls::callProcessingEvents(method), false);
}

QString readString(const Contract::Method &method, const QString &fallback)
{
    return buscalls::valueOr<QString>(buscalls::callProcessingEvents(method), fallback);
}

void logError(const QDBusMessage &result)
{
    if (result.type() == QDBusMessage::ErrorMessage)
        qCritical() << "Error Message: " << result.errorMessage() << "\n";
}

qint32 write(const Contract::Method &method, const QVariant &value)
{
    logError(buscalls::sendNoReply(method, {value}));
    return 0;
}

} // namespace

AssistantStateProxy::StoredWakeup AssistantStateProxy::storedWakeup()
{
    // The service's own store; it alone writes there.
    const QSettings store(QStringLiteral("corvane"), QStringLiteral("TavrenVoiceWakeuper"));
    return {store.value(QStringLiteral("base/enable"), false).toBool(),
            store.value(QStringLiteral("base/enableOneshot"), false).toBool()};
}

void AssistantStateProxy::setVoiceWakeupState(bool on)
{
    // The service's code says nothing that the page could use.
    buscalls::callProcessingEvents(on ? VoiceWakeuper::enableIvw() : VoiceWakeuper::disableIvw());
}

qint32 AssistantStateProxy::setOneShotMode(int mode)
{
    buscalls::sendNoReply(mode ? VoiceWakeuper::enableOneshot() : VoiceWakeuper::disableOneshot());
    return 0;
}

qint32 AssistantStateProxy::setAssistantSpeaker(int speaker)
{
    // This service names the male voice without the prefix that text to speech uses.
    return write(MainWindow::setVOXASpeaker(),
                 speaker == 0 ? QStringLiteral("x_tovali") : QStringLiteral("morven"));
}

bool AssistantStateProxy::queryVoiceIatState()
{
    return readBool(SpeechToText::getIatEnable());
}

qint32 AssistantStateProxy::setVoiceIatState(bool on)
{
    QElapsedTimer timer;
    timer.start();
    const QDBusMessage result = buscalls::sendNoReply(SpeechToText::setIatEnable(), {on});
    qDebug() << "setVoiceIatState" << double(timer.elapsed()) / 1000.0 << "s";
    logError(result);
    return 0;
}

QString AssistantStateProxy::getVoiceIatLanguage()
{
    return readString(SpeechToText::getIatLanguage(), QStringLiteral("zh_cn"));
}

qint32 AssistantStateProxy::setVoiceIatLanguage(const QString &language)
{
    buscalls::sendNoReply(SpeechToText::setIatLanguage(), {language});
    return 0;
}

bool AssistantStateProxy::queryVoiceTTSState()
{
    return readBool(TextToSpeech::getTTSEnable());
}

qint32 AssistantStateProxy::setVoiceTTSState(bool on)
{
    return write(TextToSpeech::setTTSEnable(), on);
}

bool AssistantStateProxy::queryVoiceTTSWindowState()
{
    return readBool(TextToSpeech::getEnableWindow());
}

qint32 AssistantStateProxy::setVoiceTTSWindowState(bool on)
{
    return write(TextToSpeech::setEnableWindow(), on);
}

int AssistantStateProxy::getVoiceTTSSpeaker()
{
    const QString speaker = readString(TextToSpeech::getSpeaker(), QString());
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
    return write(TextToSpeech::setSpeaker(), id);
}

bool AssistantStateProxy::queryAssistantTransState()
{
    return readBool(Translation::getTransEnable());
}

qint32 AssistantStateProxy::setAssistantTransState(bool on)
{
    return write(Translation::setTransEnable(), on);
}

QString AssistantStateProxy::getAssistantTransLang()
{
    return readString(Translation::getTransLanguage(), QStringLiteral("en|cn"));
}

qint32 AssistantStateProxy::setAssistantTransLang(QString direction)
{
    return write(Translation::setTransLanguage(), direction);
}

bool AssistantStateProxy::checkNetworkState()
{
    // NM_STATE_CONNECTED_GLOBAL of the NetworkManager D-Bus API.
    constexpr uint connectedGlobal = 70;

    const QDBusReply<uint> state = buscalls::callBlocking(NetworkManager::state());
    if (!state.isValid()) {
        qCritical() << "dbus call network manager state failed";
        return false;
    }
    return state.value() == connectedGlobal;
}
