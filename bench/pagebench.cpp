#include "bench/suite.h"
#include "contracts/contract.h"
#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>

namespace {

constexpr int rounds = 30;

struct BareCall
{
    Contract::Method method;
    QVariantList arguments;
};

void callAll(const QVector<BareCall> &calls)
{
    for (const BareCall &call : calls) {
        const Contract::Object &object = call.method.object;
        QDBusMessage message = QDBusMessage::createMethodCall(object.service, object.path,
                                                              object.interface, call.method.name);
        message.setArguments(call.arguments);
        QDBusConnection::sessionBus().call(message);
    }
}

BareCall shortcut(const char *id)
{
    return {Contract::Keybinding::GetShortcut(), {QLatin1String(id), 0}};
}

template <typename Page>
Ratio opening(const QString &name, const QVector<BareCall> &calls)
{
    return compare(
        name, QStringLiteral("opening the page"), QStringLiteral("its calls on the bus alone"),
        rounds, QStringLiteral("ms"),
        [] {
            return timedMs([] {
                Page page(nullptr);
                page.ensurePolished();
            });
        },
        [&calls] { return timedMs([&calls] { callAll(calls); }); });
}

/** Heap growth by a thousand visits of the speech-to-text page, against what one living page holds.
 */
Ratio memoryPerVisit()
{
    constexpr int visits = 1000;
    const auto visit = [] {
        VoiceIatSettingWidget page(nullptr);
        page.ensurePolished();
    };
    return compare(
        QStringLiteral("memory"), QStringLiteral("heap growth by 1000 visits of a page"),
        QStringLiteral("the heap that one open page holds"), 3, QStringLiteral("bytes"),
        [visit] {
            visit();
            QCoreApplication::processEvents();
            const double before = heapBytes();
            for (int i = 0; i < visits; ++i)
                visit();
            QCoreApplication::processEvents();
            return heapBytes() - before;
        },
        [] {
            const double before = heapBytes();
            VoiceIatSettingWidget page(nullptr);
            page.ensurePolished();
            return heapBytes() - before;
        });
}

} // namespace

QVector<Ratio> benchPages()
{
    const QVector<BareCall> assistantCalls = {{Contract::DockIcon::getDockHideStatus(), {}}};
    const QVector<BareCall> iatCalls = {shortcut("speech-to-text"),
                                        {Contract::SpeechToText::getIatEnable(), {}},
                                        {Contract::SpeechToText::getIatLanguage(), {}}};
    const QVector<BareCall> ttsCalls = {shortcut("text-to-speech"),
                                        {Contract::TextToSpeech::getTTSEnable(), {}},
                                        {Contract::TextToSpeech::getEnableWindow(), {}},
                                        {Contract::TextToSpeech::getSpeaker(), {}}};
    const QVector<BareCall> transCalls = {shortcut("translation"),
                                          {Contract::Translation::getTransEnable(), {}},
                                          {Contract::Translation::getTransLanguage(), {}}};

    return {
        opening<AssistantSettingWidget>(QStringLiteral("assistant page"), assistantCalls),
        opening<VoiceIatSettingWidget>(QStringLiteral("speech to text page"), iatCalls),
        opening<VoiceTTSSettingWidget>(QStringLiteral("text to speech page"), ttsCalls),
        opening<TextTranslateSettingWidget>(QStringLiteral("translation page"), transCalls),
        memoryPerVisit(),
    };
}
