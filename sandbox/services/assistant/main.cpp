#include "mainwindowadaptor.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"
#include "speechtotextadaptor.h"
#include "texttospeechadaptor.h"
#include "translationadaptor.h"
#include "voicewakeuperadaptor.h"

#include <QCoreApplication>
#include <QSettings>

namespace {

const QString wakeupEnabled = QStringLiteral("wakeup.enabled");
const QString wakeupOneshot = QStringLiteral("wakeup.oneshot");
const QString assistantSpeaker = QStringLiteral("assistant.speaker");
const QString iatEnabled = QStringLiteral("iat.enabled");
const QString iatLanguage = QStringLiteral("iat.language"); // "zh_cn" or "en_us"
const QString ttsEnabled = QStringLiteral("tts.enabled");
const QString ttsWindow = QStringLiteral("tts.window");
const QString ttsSpeaker = QStringLiteral("tts.speaker"); // "x_tovali", "x_morven" or "x2_pella"
const QString transEnabled = QStringLiteral("trans.enabled");
const QString transLanguage = QStringLiteral("trans.language"); // "cn|en" or "en|cn"

QList<sandbox::StoredMethod> methods()
{
    using namespace Contract;
    return {
        {VoiceWakeuper::enableIvw(), wakeupEnabled, true},
        {VoiceWakeuper::disableIvw(), wakeupEnabled, false},
        {VoiceWakeuper::enableOneshot(), wakeupOneshot, true},
        {VoiceWakeuper::disableOneshot(), wakeupOneshot, false},
        {MainWindow::setVOXASpeaker(), assistantSpeaker},
        {SpeechToText::getIatEnable(), iatEnabled},
        {SpeechToText::setIatEnable(), iatEnabled},
        {SpeechToText::getIatLanguage(), iatLanguage},
        {SpeechToText::setIatLanguage(), iatLanguage},
        {TextToSpeech::getTTSEnable(), ttsEnabled},
        {TextToSpeech::setTTSEnable(), ttsEnabled},
        {TextToSpeech::getEnableWindow(), ttsWindow},
        {TextToSpeech::setEnableWindow(), ttsWindow},
        {TextToSpeech::getSpeaker(), ttsSpeaker},
        {TextToSpeech::setSpeaker(), ttsSpeaker},
        {Translation::getTransEnable(), transEnabled},
        {Translation::setTransEnable(), transEnabled},
        {Translation::getTransLanguage(), transLanguage},
        {Translation::setTransLanguage(), transLanguage},
    };
}

// Waking by voice keeps its state in the settings store of the wake-up service, which settings
// pages read and nobody else writes. The file is written before a call is answered, and read anew
// each time: a person may have edited it meanwhile.
void declareInSettings(sandbox::StateStore *state, const QString &key, QSettings *settings,
                       const QString &settingsKey)
{
    state->declareElsewhere(
        key,
        [settings, settingsKey] {
            settings->sync();
            return settings->value(settingsKey, false).toBool();
        },
        [settings, settingsKey](const QVariant &value) {
            settings->setValue(settingsKey, value);
            settings->sync();
        });
}

} // namespace

/** The assistant's settings: five objects, and a table that says what their methods are about. */
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("assistant")));
    sandbox::StateStore *state = service.state();

    QSettings wakeup(QStringLiteral("corvane"), QStringLiteral("TavrenVoiceWakeuper"));
    declareInSettings(state, wakeupEnabled, &wakeup, QStringLiteral("base/enable"));
    declareInSettings(state, wakeupOneshot, &wakeup, QStringLiteral("base/enableOneshot"));
    state->declare(assistantSpeaker, QStringLiteral("x_tovali"));
    state->declare(iatEnabled, true);
    state->declare(iatLanguage, QStringLiteral("zh_cn"));
    state->declare(ttsEnabled, true);
    state->declare(ttsWindow, true);
    state->declare(ttsSpeaker, QStringLiteral("x_tovali"));
    state->declare(transEnabled, true);
    state->declare(transLanguage, QStringLiteral("en|cn"));

    const sandbox::StoredMethods stored(state, methods());
    service.publish<VoiceWakeuperAdaptor>(Contract::VoiceWakeuper::object(), &stored);
    service.publish<MainWindowAdaptor>(Contract::MainWindow::object(), &stored);
    service.publish<SpeechToTextAdaptor>(Contract::SpeechToText::object(), &stored);
    service.publish<TextToSpeechAdaptor>(Contract::TextToSpeech::object(), &stored);
    service.publish<TranslationAdaptor>(Contract::Translation::object(), &stored);
    return service.run();
}
