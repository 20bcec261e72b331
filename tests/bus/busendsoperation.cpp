// One operation of the module while a bus ends: for the test busends, which starts this program
// once for each operation, bus and moment.
//
//   busends-operation list               the operations, one a line
//   busends-operation calls OPERATION fresh|used
//                                        the methods that it calls on the session bus,
//                                        blank-separated, and on the next line those on the system
//                                        bus
//   busends-operation OPERATION fresh|used session|system|both MOMENT
//                                        MOMENT: before, unnoticed, after, or instead of which
//                                        message of the operation
//
// With "fresh" the event loop has not run since the connections were made: QtDBus then holds
// everything back that is not a reply, the news of its own end included.
//
// Ends with 0 when the operation has returned what it should, here and once more on the bus that
// has gone, and all is cleaned up.

#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "proxy/assistantstateproxy.h"
#include "tests/bus/cuttablebus.h"
#include "tests/support/scriptedaudio.h"
#include "tests/support/sessionbus.h"
#include "tests/support/widgets.h"
#include "voice/aiservicesession.h"
#include "voice/aqcwrapper.h"
#include "voice/voiceanimationwidget.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zcommandlinkbutton.h>

#include <QApplication>
#include <QComboBox>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QLabel>
#include <QtTest>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using testsupport::CuttableBus;
using testsupport::ScriptedAudio;

using Proxy = AssistantStateProxy;

namespace {

/** Something that the module does, and what it yields when every bus answers and when none does. */
struct Operation
{
    const char *name;
    QDBusConnection::BusType bus; ///< that the answers come from
    QStringList answered;
    QStringList fallback;
    std::function<QStringList()> run;
    std::function<void()> prepare = [] {
    };
};

std::unique_ptr<QWidget> page;
std::unique_ptr<AqcWrapper> voiceTest;

void cleanUp()
{
    page.reset();
    voiceTest.reset();
    testsupport::flushDeferredDeletes();
    QCoreApplication::processEvents();
}

template <typename Page>
QStringList open()
{
    page = std::make_unique<Page>(nullptr);
    QStringList state;
    for (const auto *row : page->findChildren<zcc::widgets::SwitchWidget *>())
        if (row->title() != QLatin1String("Voice Wakeup")) // from a file
            state.append(row->checked() ? QStringLiteral("on") : QStringLiteral("off"));
    for (const auto *box : page->findChildren<QComboBox *>())
        if (box->count() > 1)
            state.append(QString::number(box->currentIndex()));
    return state;
}

/** A page's shortcut and state in the order in which they are asked for. */
template <typename Page>
QStringList openWithShortcut()
{
    const QStringList state = open<Page>();
    const bool empty = testsupport::labelContaining(page.get(), QStringLiteral("()"));
    return QStringList{empty ? QStringLiteral("none") : QStringLiteral("shortcut")} + state;
}

QStringList startVoiceTest()
{
    const int code = voiceTest->start();
    QStringList result{QString::number(code)};
    for (const char *ability : {"aqc", "iat"}) {
        const bool none =
            AIServiceSession::instance()->queryObjectPath(QLatin1String(ability)).isEmpty();
        result.append(none ? QStringLiteral("none") : QStringLiteral("session"));
    }
    return result;
}

void pressVoiceTestLink()
{
    page->findChild<Ztk::Widget::ZCommandLinkButton *>()->click();
    testsupport::flushDeferredDeletes();
}

/** One answer for each blank-separated word. */
QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/** A write: nothing comes back, whatever happens. */
Operation write(const char *name, qint32 (*function)())
{
    return {name,
            QDBusConnection::SessionBus,
            {QStringLiteral("0")},
            {QStringLiteral("0")},
            [function] {
                return QStringList(QString::number(function()));
            }};
}

Operation read(const char *name, const QString &answered, const QString &fallback,
               const std::function<QVariant()> &function)
{
    return {name, QDBusConnection::SessionBus, {answered}, {fallback}, [function] {
                return QStringList(function().toString());
            }};
}

std::vector<Operation> operations()
{
    constexpr auto session = QDBusConnection::SessionBus;
    constexpr auto system = QDBusConnection::SystemBus;
    const QStringList nothing{QString()};
    const QString yes = QStringLiteral("true");
    const QString no = QStringLiteral("false");
    return {
        {"assistant page", session, words("off"), words("on"), open<AssistantSettingWidget>},
        {"dictation page", session, words("shortcut on 1"), words("none off 0"),
         openWithShortcut<VoiceIatSettingWidget>},
        {"reading page", session, words("shortcut on on 1"), words("none off off 2"),
         openWithShortcut<VoiceTTSSettingWidget>},
        {"translation page", session, words("shortcut on 0"), words("none off 1"),
         openWithShortcut<TextTranslateSettingWidget>},

        read("dictation", yes, no, [] { return Proxy::queryVoiceIatState(); }),
        read("dictation language", QStringLiteral("en_us"), QStringLiteral("zh_cn"),
             [] { return Proxy::getVoiceIatLanguage(); }),
        read("reading", yes, no, [] { return Proxy::queryVoiceTTSState(); }),
        read("speech widget", yes, no, [] { return Proxy::queryVoiceTTSWindowState(); }),
        read("reader", QStringLiteral("1"), QStringLiteral("2"),
             [] { return Proxy::getVoiceTTSSpeaker(); }),
        read("translation", yes, no, [] { return Proxy::queryAssistantTransState(); }),
        read("direction", QStringLiteral("cn|en"), QStringLiteral("en|cn"),
             [] { return Proxy::getAssistantTransLang(); }),
        read("shortcut", QStringLiteral("Ctrl+Alt+T"), QString(),
             [] { return Proxy::getShortCut(QStringLiteral("translation"), 0); }),
        {"network",
         system,
         {yes},
         {no},
         [] {
             return QStringList(QVariant(Proxy::checkNetworkState()).toString());
         }},
        {"wake-up", session, nothing, nothing,
         [nothing] {
             Proxy::setVoiceWakeupState(true);
             return nothing;
         }},

        // The values that the services have already: all operations share them.
        write("dictation write", [] { return Proxy::setVoiceIatState(true); }),
        write("dictation language write",
              [] { return Proxy::setVoiceIatLanguage(QStringLiteral("en_us")); }),
        write("reading write", [] { return Proxy::setVoiceTTSState(true); }),
        write("speech widget write", [] { return Proxy::setVoiceTTSWindowState(true); }),
        write("reader write", [] { return Proxy::setVoiceTTSSpeaker(1); }),
        write("translation write", [] { return Proxy::setAssistantTransState(true); }),
        write("direction write",
              [] { return Proxy::setAssistantTransLang(QStringLiteral("cn|en")); }),
        write("assistant's voice write", [] { return Proxy::setAssistantSpeaker(1); }),
        write("one-shot write", [] { return Proxy::setOneShotMode(1); }),
        {"dock write", session, nothing, nothing,
         [nothing] {
             QMetaObject::invokeMethod(page.get(), "slotPluginShowSet", Q_ARG(bool, false));
             return nothing;
         },
         open<AssistantSettingWidget>},

        {"session", session, words("0 session"), words("0 none"),
         [] {
             AIServiceSession *sessions = AIServiceSession::instance();
             const int code = sessions->createSession(QStringLiteral("tts"));
             const bool none = sessions->queryObjectPath(QStringLiteral("tts")).isEmpty();
             sessions->destroySession(QStringLiteral("tts"));
             return QStringList{QString::number(code),
                                none ? QStringLiteral("none") : QStringLiteral("session")};
         }},
        {"voice test", session, words("0 session session"), words("0 none none"), startVoiceTest,
         [] {
             voiceTest = std::make_unique<AqcWrapper>();
         }},
        {"end of a voice test", session, nothing, nothing,
         [nothing] {
             voiceTest->stop();
             return nothing;
         },
         [] {
             voiceTest = std::make_unique<AqcWrapper>();
             voiceTest->start();
             ScriptedAudio::instance().hear(QByteArray(1600, '\1'));
         }},
        {"voice test by its link", system, words("wave"), words("unavailable"),
         [] {
             pressVoiceTestLink();
             return words(page->findChild<VoiceAnimationWidget *>() ? "wave" : "unavailable");
         },
         open<AssistantSettingWidget>},
        {"page with a running voice test goes", session, nothing, nothing,
         [nothing] {
             page.reset();
             return nothing;
         },
         [] {
             open<AssistantSettingWidget>();
             pressVoiceTestLink();
         }},
    };
}

bool hasEnded(const QDBusConnection &bus)
{
    const QDeadlineTimer deadline(5000);
    while (bus.isConnected()) {
        if (deadline.hasExpired())
            return false;
        std::this_thread::yield();
    }
    return true;
}

/** Whether the first few of @p result are as in @p answered and the rest as in @p fallback. */
bool isMixOf(const QStringList &result, const QStringList &answered, const QStringList &fallback)
{
    for (int i = 0; i <= answered.size(); ++i)
        if (result == answered.mid(0, i) + fallback.mid(i))
            return true;
    return false;
}

int fail(const char *what, const QStringList &result)
{
    std::fprintf(stderr, "%s: %s\n", what, qPrintable(result.join(QStringLiteral(", "))));
    return 1;
}

int run(const Operation &operation, bool used, const QString &ending, const QString &moment)
{
    CuttableBus system("DBUS_SYSTEM_BUS_ADDRESS");
    CuttableBus session("DBUS_SESSION_BUS_ADDRESS");
    const auto connectBoth = [] {
        QDBusConnection::sessionBus();
        QDBusConnection::systemBus();
    };
    const auto ping = [] {
        QDBusConnection::sessionBus().call(testsupport::pingCall());
    };
    if (used) {
        connectBoth();
        QCoreApplication::processEvents();
    }
    operation.prepare();
    // What goes out without waiting is under way when a later call is answered.
    if (used)
        ping();
    const int sessionBefore = session.messages().size();
    const int systemBefore = system.messages().size();

    if (moment.isEmpty()) {
        operation.run();
        ping();
        QList<QByteArray> calls = session.messages().mid(sessionBefore);
        calls.removeLast(); // our own
        std::puts(calls.join(' ').constData());
        std::puts(system.messages().mid(systemBefore).join(' ').constData());
        cleanUp();
        return 0;
    }

    const bool sessionEnds = ending != QLatin1String("system");
    const bool systemEnds = ending != QLatin1String("session");
    // The number of a message that the operation sends, its method, and which call of that it is.
    const QStringList message = moment.split(QLatin1Char('.'));
    const auto cut = [&] {
        if (sessionEnds)
            session.cut();
        if (systemEnds)
            system.cut();
    };
    if (message.size() == 3)
        (sessionEnds ? session : system)
            .cutInsteadOf(message.at(1).toLatin1(), message.at(2).toInt(),
                          sessionEnds && systemEnds ? &system : nullptr);
    if (moment == QLatin1String("before") || moment == QLatin1String("unnoticed")) {
        connectBoth();
        cut();
    }
    if (moment == QLatin1String("before") &&
        !((!sessionEnds || hasEnded(QDBusConnection::sessionBus())) &&
          (!systemEnds || hasEnded(QDBusConnection::systemBus()))))
        return fail("the bus does not end", {});

    const QStringList result = operation.run();

    const bool onSession = operation.bus == QDBusConnection::SessionBus;
    const bool concerned = onSession ? sessionEnds : systemEnds;
    const bool goneAtFirst = moment == QLatin1String("before") ||
                             moment == QLatin1String("unnoticed") ||
                             (message.at(0) == QLatin1String("1") && onSession == sessionEnds);
    if (!isMixOf(result, operation.answered, operation.fallback))
        return fail("neither the answers nor their fallbacks", result);
    if (concerned && goneAtFirst && result != operation.fallback)
        return fail("answers from nowhere", result);
    if ((!concerned || moment == QLatin1String("after")) && result != operation.answered)
        return fail("lost answers", result);

    // What is there goes on living with the buses that are left, and all works once more.
    cut();
    QCoreApplication::processEvents();
    cleanUp();
    operation.prepare();
    const QStringList again = operation.run();
    if (again != (concerned ? operation.fallback : operation.answered))
        return fail("once more", again);
    cleanUp();
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const std::vector<Operation> all = operations();
    if (arguments.value(1) == QLatin1String("list")) {
        for (const Operation &operation : all)
            std::puts(operation.name);
        return 0;
    }
    ScriptedAudio::install();
    ScriptedAudio::instance().setDevices({{"mic", true}});
    const bool calls = arguments.value(1) == QLatin1String("calls");
    const int first = calls ? 2 : 1;
    for (const Operation &operation : all)
        if (arguments.value(first) == QLatin1String(operation.name))
            return run(operation, arguments.value(first + 1) == QLatin1String("used"),
                       arguments.value(first + 2), arguments.value(first + 3));
    return fail("no such operation", arguments);
}
