// Sessions at the AI service: what goes over the bus, and what is made of every kind of answer.

#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/sessionbus.h"
#include "tests/support/testprogram.h"
#include "voice/aiservicesession.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QTimer>

using testsupport::ImpatientBus;
using testsupport::ServiceCall;
using testsupport::ServiceProcess;

namespace {

const QString aqc = QStringLiteral("aqc");
const QString iat = QStringLiteral("iat");

AIServiceSession *sessions()
{
    return AIServiceSession::instance();
}

QVariant path(const char *text)
{
    return QVariant::fromValue(QDBusObjectPath(QLatin1String(text)));
}

} // namespace

class VoiceSessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneInstance();
    void pathsBeforeAnySession();
    void unknownAbility();
    void createOnTheWire();
    void freeOnTheWire();
    void everyKnownAbility();
    void serviceIsAbsent();
    void lostServiceForgetsThePath();
    void errorCodeWithAPath();
    void answers();
    void errorReply();
    void serviceDiesInTheMiddle();
    void slowAnswer();
    void serviceHangs();
    void freeDoesNotWait();
    void noSessionBus();
};

void VoiceSessionTest::oneInstance()
{
    QVERIFY(sessions());
    QCOMPARE(AIServiceSession::instance(), sessions());
    QVERIFY(!sessions()->parent());
}

void VoiceSessionTest::pathsBeforeAnySession()
{
    for (const char *ability : {"tts", "iat", "trans", "record", "aqc", "xyz", ""})
        QCOMPARE(sessions()->queryObjectPath(QLatin1String(ability)), QString());
}

void VoiceSessionTest::unknownAbility()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    for (const char *ability : {"xyz", "", "AQC", "aqc "}) {
        QCOMPARE(sessions()->createSession(QLatin1String(ability)), -4);
        sessions()->destroySession(QLatin1String(ability));
        QCOMPARE(sessions()->queryObjectPath(QLatin1String(ability)), QString());
    }
    // One call that is sent, to see what came before it.
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(service.calls().size(), 1);
}

void VoiceSessionTest::createOnTheWire()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    testsupport::LogCapture log;
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/1"));
    QCOMPARE(log.take(), QStringList());

    const QList<ServiceCall> calls = service.calls(); // nothing else: no introspection
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().path, QStringLiteral("/"));
    QCOMPARE(calls.first().interface, QStringLiteral("com.corvane.aiservice.session"));
    QCOMPARE(calls.first().member, QStringLiteral("createSession"));
    QCOMPARE(calls.first().signature, QStringLiteral("ss"));
    QCOMPARE(calls.first().arguments, QJsonArray({QStringLiteral("zde-control-center"), aqc}));
    QVERIFY(calls.first().replyExpected);
}

void VoiceSessionTest::freeOnTheWire()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    QCOMPARE(sessions()->createSession(iat), 0);
    service.reset();
    sessions()->destroySession(iat);
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
    const QList<ServiceCall> calls = service.calls();
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().path, QStringLiteral("/"));
    QCOMPARE(calls.first().interface, QStringLiteral("com.corvane.aiservice.session"));
    QCOMPARE(calls.first().signature, QStringLiteral("ss"));
    QCOMPARE(calls.first().arguments, QJsonArray({QStringLiteral("zde-control-center"), iat}));
    // The path stays known.
    QCOMPARE(sessions()->queryObjectPath(iat), QStringLiteral("/session/iat/1"));
}

void VoiceSessionTest::everyKnownAbility()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    const QStringList abilities = {QStringLiteral("tts"), iat, QStringLiteral("trans"),
                                   QStringLiteral("record"), aqc};
    for (const QString &ability : abilities)
        QCOMPARE(sessions()->createSession(ability), 0);
    for (const QString &ability : abilities)
        QCOMPARE(sessions()->queryObjectPath(ability),
                 QStringLiteral("/session/%1/1").arg(ability));
    QCOMPARE(sessions()->createSession(iat), 0);
    QCOMPARE(sessions()->queryObjectPath(iat), QStringLiteral("/session/iat/2"));
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/1"));
}

void VoiceSessionTest::serviceIsAbsent()
{
    testsupport::LogCapture log;
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QString());
    sessions()->destroySession(aqc);
    QCOMPARE(log.take(), QStringList());
}

void VoiceSessionTest::lostServiceForgetsThePath()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    QCOMPARE(sessions()->createSession(aqc), 0);
    QVERIFY(!sessions()->queryObjectPath(aqc).isEmpty());
    service.leaveBus();
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QString());
    service.joinBus();
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/2"));
}

void VoiceSessionTest::errorCodeWithAPath()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.setValue(QStringLiteral("code.aqc"), 5);
    QCOMPARE(sessions()->createSession(aqc), 5);
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/1"));
    service.setValue(QStringLiteral("code.aqc"), -7);
    QCOMPARE(sessions()->createSession(aqc), -7);
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/2"));
}

void VoiceSessionTest::answers()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    const struct
    {
        const char *name;
        QVariantList values;
        int code;
        QString path;
    } rows[] = {
        {"as agreed", {path("/a"), 9}, 9, QStringLiteral("/a")},
        {"no code", {path("/b")}, 0, QStringLiteral("/b")},
        {"three values", {path("/c"), 9, 9}, 0, QStringLiteral("/c")},
        {"nothing", {}, 0, QString()},
        {"path is a text", {QStringLiteral("/d"), 9}, 9, QString()},
        {"code is a text", {path("/e"), QStringLiteral("bad")}, 0, QStringLiteral("/e")},
        {"code is a boolean", {path("/f"), true}, 1, QStringLiteral("/f")},
        {"other way round", {9, path("/g")}, 0, QString()},
    };
    for (const auto &row : rows) {
        service.script(QStringLiteral("createSession"), QStringLiteral("reply-list"), row.values);
        const int code = sessions()->createSession(aqc);
        QVERIFY2(code == row.code, qPrintable(QStringLiteral("%1: %2").arg(row.name).arg(code)));
        const QString stored = sessions()->queryObjectPath(aqc);
        QVERIFY2(stored == row.path, qPrintable(QStringLiteral("%1: %2").arg(row.name, stored)));
    }
}

void VoiceSessionTest::errorReply()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    QCOMPARE(sessions()->createSession(aqc), 0);
    service.script(QStringLiteral("createSession"), QStringLiteral("error"),
                   QStringLiteral("no room"));
    testsupport::LogCapture log;
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QString());
    service.script(QStringLiteral("freeSession"), QStringLiteral("error"),
                   QStringLiteral("no such session"));
    sessions()->destroySession(aqc);
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
    QCOMPARE(log.take(), QStringList());
}

void VoiceSessionTest::serviceDiesInTheMiddle()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.script(QStringLiteral("createSession"), QStringLiteral("vanish"));
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QString());
    QVERIFY(service.waitForEnd());
    QVERIFY(service.start());
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/1"));
}

void VoiceSessionTest::slowAnswer()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    service.script(QStringLiteral("createSession"), QStringLiteral("delay"), 300);
    int eventsMeanwhile = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&eventsMeanwhile] { ++eventsMeanwhile; });
    timer.start(10);
    QElapsedTimer time;
    time.start();
    QCOMPARE(sessions()->createSession(aqc), 0);
    QVERIFY2(time.elapsed() >= 290, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(eventsMeanwhile, 0); // it blocks outright
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/1"));
}

void VoiceSessionTest::serviceHangs()
{
    ImpatientBus bus;
    QVERIFY(bus.start());
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    QCOMPARE(sessions()->createSession(aqc), 0);
    service.suspend();
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QString());
    service.resume();
    QCOMPARE(sessions()->createSession(aqc), 0);
    // The hung call was answered in the end, and the answer dropped.
    QCOMPARE(sessions()->queryObjectPath(aqc), QStringLiteral("/session/aqc/3"));
}

void VoiceSessionTest::freeDoesNotWait()
{
    ServiceProcess service(QStringLiteral("voicescript"));
    QVERIFY(service.start());
    QCOMPARE(sessions()->createSession(aqc), 0);
    service.script(QStringLiteral("freeSession"), QStringLiteral("hold"));
    sessions()->destroySession(aqc);
    // Back already, with the answer still held.
    QVERIFY(service.waitForCalls(QStringLiteral("freeSession")));
    QCOMPARE(service.release(QStringLiteral("freeSession")), 1);
}

void VoiceSessionTest::noSessionBus()
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus");
    QCOMPARE(sessions()->createSession(aqc), 0);
    QCOMPARE(sessions()->queryObjectPath(aqc), QString());
    sessions()->destroySession(aqc);
}

ISOLATED_TEST_CLASS(QCoreApplication, VoiceSessionTest, )
#include "voicesession.moc"
