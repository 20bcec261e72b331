#include "tests/support/busrecorder.h"
#include "tests/support/testprogram.h"

#include <zframeworkdbus/audio.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>

using testsupport::BusMessage;
using testsupport::BusRecorder;

/** The audio daemon's proxy: passes its signal on, and asks the daemon nothing. */
class PlatformAudioTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void asksNothing();
    void passesTheSignalOn();
    void ignoresOtherObjectsAndInterfaces();
    void survivesWithoutABus();

private:
    static QString service() { return QStringLiteral("com.tavren.daemon.Audio"); }
    static QString path() { return QStringLiteral("/com/tavren/daemon/Audio"); }
    static void announce(const QString &objectPath, const QString &interface);
    static QDBusConnection daemon()
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("daemon"));
    }
};

void PlatformAudioTest::announce(const QString &objectPath, const QString &interface)
{
    QDBusMessage signal =
        QDBusMessage::createSignal(objectPath, interface, QStringLiteral("DefaultSourceChanged"));
    signal << QVariant::fromValue(QDBusObjectPath(QStringLiteral("/source/7")));
    QVERIFY(daemon().send(signal));
}

void PlatformAudioTest::initTestCase()
{
    QVERIFY(QDBusConnection::sessionBus().isConnected());
    QVERIFY(daemon().registerService(service()));
    QCOMPARE(QString::fromLatin1(__Audio::staticInterfaceName()), service());
}

void PlatformAudioTest::asksNothing()
{
    BusRecorder recorder;
    QVERIFY(recorder.start());
    {
        __Audio audio(service(), path(), QDBusConnection::sessionBus());
        QVERIFY(audio.isValid());
        QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
        QVERIFY(changed.isValid());
        QVERIFY(recorder.sync());
    }
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(), QStringList());
}

void PlatformAudioTest::passesTheSignalOn()
{
    __Audio audio(service(), path(), QDBusConnection::sessionBus());
    QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
    announce(path(), service());
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<QDBusObjectPath>().path(), QStringLiteral("/source/7"));
}

void PlatformAudioTest::ignoresOtherObjectsAndInterfaces()
{
    __Audio audio(service(), path(), QDBusConnection::sessionBus());
    QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
    announce(QStringLiteral("/somewhere/else"), service());
    announce(path(), QStringLiteral("com.tavren.daemon.Other"));
    announce(path(), service()); // comes last, so the others have come when it has
    QTRY_VERIFY(changed.count() > 0);
    QCOMPARE(changed.count(), 1);
}

void PlatformAudioTest::survivesWithoutABus()
{
    __Audio audio(service(), path(), QDBusConnection(QStringLiteral("no such connection")));
    QVERIFY(!audio.isValid());
    QSignalSpy changed(&audio, &__Audio::DefaultSourceChanged);
    QCOMPARE(changed.count(), 0);
}

TEST_CLASS(QCoreApplication, PlatformAudioTest)

#include "platformaudio.moc"
