#include "doctor/contractuse.h"

using namespace Contract;

namespace doctor {

namespace {

// A member that nobody has a question for can change something.
const QVector<QVariantList> plainQuestion{QVariantList()};

QVector<QVariantList> shortcutQuestions()
{
    QVector<QVariantList> questions;
    for (const char *feature : {"speech-to-text", "text-to-speech", "translation"})
        questions.append({QString::fromLatin1(feature), 0});
    return questions;
}

// A write that is logged when the bus itself refuses it.
MemberUse loggedWrite(const Method &method, const char *when)
{
    return MemberUse(method, Mode::SendWithoutReply, when).logging("critical|Error Message: ");
}

ObjectUse voiceWakeuper()
{
    const char *const off = "the switch stays as the user set it";
    return {VoiceWakeuper::object(),
            true,
            QStringLiteral(QT_TRANSLATE_NOOP(
                "doctor::Contract",
                "\"Voice Wakeup\" and \"OneShot\" can be switched, without effect.")),
            {
                MemberUse{VoiceWakeuper::enableIvw(), Mode::WaitProcessingEvents,
                          "\"Voice Wakeup\" is switched on", off,
                          "\"Voice Wakeup\" cannot be switched on."}
                    .reading(Values::Ignored),
                MemberUse{VoiceWakeuper::disableIvw(), Mode::WaitProcessingEvents,
                          "\"Voice Wakeup\" is switched off", off,
                          "\"Voice Wakeup\" cannot be switched off."}
                    .reading(Values::Ignored),
                {VoiceWakeuper::enableOneshot(), Mode::SendWithoutReply, "\"OneShot\" is ticked"},
                {VoiceWakeuper::disableOneshot(), Mode::SendWithoutReply,
                 "\"OneShot\" is cleared, also by \"Voice Wakeup\""},
            }};
}

ObjectUse mainWindow()
{
    return {MainWindow::object(),
            false,
            QStringLiteral("Nothing: no control of the pages uses it."),
            {
                loggedWrite(MainWindow::setVOXASpeaker(), "never, by the pages"),
            }};
}

ObjectUse speechToText()
{
    return {
        SpeechToText::object(),
        true,
        QStringLiteral(QT_TRANSLATE_NOOP(
            "doctor::Contract", "On \"Speech to Text\" the switch is off and the language is "
                                "\"中文-普通话\"; what is chosen has no effect.")),
        {
            {SpeechToText::getIatEnable(), Mode::WaitProcessingEvents, "\"Speech to Text\" opens",
             "false", "\"Speech to Text\" is shown as off.", plainQuestion},
            loggedWrite(SpeechToText::setIatEnable(), "\"Speech to Text\" is switched"),
            MemberUse{SpeechToText::getIatLanguage(), Mode::WaitProcessingEvents,
                      "\"Speech to Text\" opens", "zh_cn",
                      "On \"Speech to Text\" the language is \"中文-普通话\".", plainQuestion}
                .reading(Values::Text, "On \"Speech to Text\" the language is \"English\"."),
            {SpeechToText::setIatLanguage(), Mode::SendWithoutReply, "a language is chosen"},
        }};
}

ObjectUse textToSpeech()
{
    return {
        TextToSpeech::object(),
        true,
        QStringLiteral(QT_TRANSLATE_NOOP(
            "doctor::Contract", "On \"Text to Speech\" both switches are off and the voice is "
                                "\"Children\"; what is chosen has no effect.")),
        {
            {TextToSpeech::getTTSEnable(), Mode::WaitProcessingEvents, "\"Text to Speech\" opens",
             "false", "\"Text to Speech\" is shown as off.", plainQuestion},
            loggedWrite(TextToSpeech::setTTSEnable(), "\"Text to Speech\" is switched"),
            {TextToSpeech::getEnableWindow(), Mode::WaitProcessingEvents,
             "\"Text to Speech\" opens", "false", "\"Show Speech Widget\" is shown as off.",
             plainQuestion},
            loggedWrite(TextToSpeech::setEnableWindow(), "\"Show Speech Widget\" is switched"),
            MemberUse{TextToSpeech::getSpeaker(), Mode::WaitProcessingEvents,
                      "\"Text to Speech\" opens", "an empty name, which is the third voice",
                      "On \"Text to Speech\" the voice is \"Children\".", plainQuestion}
                .reading(Values::Text)
                .logging("debug|getVoiceTTSSpeaker"),
            loggedWrite(TextToSpeech::setSpeaker(), "a voice is chosen"),
        }};
}

ObjectUse translation()
{
    return {Translation::object(),
            true,
            QStringLiteral(QT_TRANSLATE_NOOP(
                "doctor::Contract",
                "On \"Translation\" the switch is off and the direction is \"EN-CN\"; "
                "what is chosen has no effect.")),
            {
                {Translation::getTransEnable(), Mode::WaitProcessingEvents, "\"Translation\" opens",
                 "false", "\"Translation\" is shown as off.", plainQuestion},
                loggedWrite(Translation::setTransEnable(), "\"Translation\" is switched"),
                MemberUse{Translation::getTransLanguage(), Mode::WaitProcessingEvents,
                          "\"Translation\" opens", "en|cn",
                          "On \"Translation\" the direction is \"EN-CN\".", plainQuestion}
                    .reading(Values::Text),
                loggedWrite(Translation::setTransLanguage(), "a direction is chosen"),
            }};
}

ObjectUse dockIcon()
{
    return {DockIcon::object(),
            true,
            QStringLiteral(QT_TRANSLATE_NOOP(
                "doctor::Contract",
                "\"Show in the Dock\" is on whatever the dock shows; switching it has "
                "no effect.")),
            {
                {DockIcon::getDockHideStatus(), Mode::WaitProcessingNothing,
                 "\"Desktop AI Assistant\" opens", "false: shown",
                 "\"Show in the Dock\" is on whatever the dock shows.", plainQuestion},
                {DockIcon::setDockHideStatus(), Mode::SendIgnoringReply,
                 "\"Show in the Dock\" is switched"},
                {DockIcon::dockHideChange(), "the switch follows",
                 "\"Show in the Dock\" does not follow a change made elsewhere."},
            }};
}

// What people see of a voice test without its session.
const char *const waveAlone = QT_TRANSLATE_NOOP(
    "doctor::Contract", "A voice test shows its wave until it is cancelled, without words and "
                        "verdict.");

// Another service of that name knows nothing of its sessions.
ObjectUse inSession(ObjectUse object)
{
    for (MemberUse &member : object.members)
        member.seenWithoutSession =
            member.seen == nothingText() ? member.seen : QString::fromLatin1(waveAlone);
    return object;
}

ObjectUse sessionManager()
{
    const char *const seen = waveAlone;
    return {SessionManager::object(),
            true,
            QString::fromLatin1(seen),
            {
                MemberUse{SessionManager::createSession(), Mode::WaitProcessingNothing,
                          "a voice test begins: aqc before the microphone opens, iat after it",
                          "opened, without an object", seen}
                    .reading(Values::PathAndNumber),
                {SessionManager::freeSession(), Mode::SendIgnoringReply,
                 "a voice test ends: iat only", "", "Nothing."},
            }};
}

ObjectUse qualityCheck()
{
    const char *const seen = "A voice test shows its wave until it is cancelled, without verdict.";
    return {
        QualityCheck::object(),
        true,
        QString::fromLatin1(seen),
        {
            {QualityCheck::startAqc(), Mode::SendIgnoringReply, "a voice test begins", "", seen},
            {QualityCheck::putAudio(), Mode::SendIgnoringReply, "for each block of the microphone",
             "", seen},
            {QualityCheck::stopAqc(), Mode::SendIgnoringReply, "a voice test ends", "", seen},
            MemberUse{QualityCheck::onNotify(), "the verdict is shown", seen}.reading(
                Values::Text, "A voice test ends without a verdict; when it has no words, with "
                              "\"Turn up the input volume and try again\"."),
        }};
}

ObjectUse recognition()
{
    const char *const seen = "A voice test shows no words.";
    return {
        Recognition::object(),
        true,
        QStringLiteral("A voice test shows no words, and calls a clear recording too quiet: "
                       "\"Turn up the input volume and try again\"."),
        {
            MemberUse{Recognition::startIat(), Mode::WaitProcessingNothing,
                      "a voice test begins, the microphone is open", "started", seen}
                .reading(Values::Text)
                .logging("critical|Iat handleResult error! ", true),
            {Recognition::putAudio(), Mode::SendIgnoringReply, "for each block of the microphone",
             "", seen},
            {Recognition::stopIat(), Mode::SendIgnoringReply, "a voice test ends", "", "Nothing."},
            MemberUse{Recognition::onResult(), "the words are shown", seen}
                .reading(Values::Text)
                .logging("critical|Iat handleResult error! "),
            MemberUse{Recognition::onError(), "nothing is shown", "Nothing."}.reading(Values::Text),
            MemberUse{Recognition::onEnd(), "nothing is shown", "Nothing."}.reading(
                Values::Ignored),
        }};
}

ObjectUse keybinding()
{
    return {Keybinding::object(),
            true,
            QStringLiteral(QT_TRANSLATE_NOOP(
                "doctor::Contract",
                "The hints of \"Speech to Text\", \"Text to Speech\" and "
                "\"Translation\" have empty parentheses in place of the shortcut.")),
            {
                MemberUse{Keybinding::GetShortcut(), Mode::WaitProcessingEvents,
                          "\"Speech to Text\", \"Text to Speech\" or \"Translation\" opens",
                          "an empty shortcut",
                          "The page's hint has empty parentheses in place of the shortcut.",
                          shortcutQuestions()}
                    .reading(Values::Text)
                    .logging("critical|Key Accels not found in JSON."),
            }};
}

ObjectUse audioDaemon()
{
    const char *const seen =
        QT_TRANSLATE_NOOP("doctor::Contract", "A voice test goes on with the old microphone when "
                                              "another becomes the default one.");
    return {AudioDaemon::object(),
            false,
            QString::fromLatin1(seen),
            {
                {AudioDaemon::DefaultSourceChanged(), "the recording ends", seen},
            }};
}

ObjectUse networkManager()
{
    return {NetworkManager::object(),
            true,
            QStringLiteral(QT_TRANSLATE_NOOP(
                "doctor::Contract", "A voice test ends at once: \"Network unavailable\".")),
            {
                MemberUse{NetworkManager::state(), Mode::WaitProcessingNothing,
                          "a voice test is asked for", "not connected",
                          "A voice test ends at once: \"Network unavailable\".", plainQuestion}
                    .logging("critical|dbus call network manager state failed"),
            }};
}

} // namespace

MemberUse::MemberUse(const Method &method, Mode memberMode, const char *whenCalled,
                     const char *replyFallback, const char *seenWithout,
                     const QVector<QVariantList> &asked)
    : name(method.name)
    , mode(memberMode)
    , when(QString::fromUtf8(whenCalled))
    , fallback(QString::fromUtf8(replyFallback))
    , seen(QString::fromUtf8(seenWithout))
    , values(mode == Mode::WaitProcessingEvents || mode == Mode::WaitProcessingNothing
                 ? Values::Plain
                 : Values::Ignored)
    , seenSenseless(seen)
    , questions(asked)
{
}

// What is sent without waiting is lost without a message.
MemberUse::MemberUse(const Method &method, Mode memberMode, const char *whenCalled)
    : MemberUse(method, memberMode, whenCalled, "", "It has no effect, and nobody says so.")
{
}

MemberUse::MemberUse(const Signal &signal, const char *whenHeard, const char *seenWithout)
    : name(signal.name)
    , mode(Mode::Heard)
    , when(QString::fromUtf8(whenHeard))
    , seen(QString::fromUtf8(seenWithout))
    , values(Values::Plain)
    , seenSenseless(seen)
{
}

MemberUse MemberUse::reading(Values kind, const char *senseless) const
{
    MemberUse use = *this;
    use.values = kind;
    if (*senseless)
        use.seenSenseless = QString::fromUtf8(senseless);
    return use;
}

MemberUse MemberUse::logging(const char *line, bool later) const
{
    MemberUse use = *this;
    use.log = QString::fromUtf8(line);
    use.logsLater = later;
    return use;
}

const QVector<ObjectUse> &contractUses()
{
    static const QVector<ObjectUse> uses{
        voiceWakeuper(),
        mainWindow(),
        speechToText(),
        textToSpeech(),
        translation(),
        dockIcon(),
        inSession(sessionManager()),
        inSession(qualityCheck()),
        inSession(recognition()),
        keybinding(),
        audioDaemon(),
        networkManager(),
    };
    return uses;
}

} // namespace doctor
