// The doctor on a machine with a microphone: it opens none unless it is told to.

#include "tests/support/doctorrun.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualmicrophone.h"

#include <QCoreApplication>

using testsupport::examine;
using testsupport::RecordingStreams;
using testsupport::Run;
using testsupport::runDoctor;
using testsupport::VirtualMicrophone;

class DoctorMicrophoneTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void opensItOnlyToListen();
    void hears_data();
    void hears();
    void muted();
    void speakersSound();

private:
    bool soundServer(const QStringList &command);

    VirtualMicrophone m_microphone;
    RecordingStreams m_streams;
};

void DoctorMicrophoneTest::initTestCase()
{
    QVERIFY(m_microphone.start("speech"));
    QVERIFY(m_streams.start());
}

bool DoctorMicrophoneTest::soundServer(const QStringList &command)
{
    return QProcess::execute("pactl", command) == 0;
}

void DoctorMicrophoneTest::opensItOnlyToListen()
{
    QCOMPARE(examine().of("microphone", "microphone"),
             QStringLiteral("ok: is the default one, not muted, and has the format"));
    QCOMPARE(m_streams.streams().size(), 0);

    const Run result = runDoctor({"--json", "--listen"});
    QVERIFY2(result.of("listen", "microphone").startsWith("ok: was heard for 2."),
             qPrintable(result.of("listen")));
    QCOMPARE(m_streams.streams().size(), 1);
    QCOMPARE(m_streams.open(), 0);
    QCOMPARE(result.error, QByteArray("Speak for two seconds.\n"));
}

void DoctorMicrophoneTest::hears_data()
{
    // No noise: the room falls silent for the moment in which somebody begins to record.
    QTest::addColumn<QString>("verdict");
    QTest::newRow("loud") << "Turn down the input volume and try again";
    QTest::newRow("quiet") << "Turn up the input volume and try again";
    QTest::newRow("silence") << "No sound recorded";
}

void DoctorMicrophoneTest::hears()
{
    QFETCH(QString, verdict);
    QVERIFY(m_microphone.changeKind(QTest::currentDataTag()));
    const Run result = runDoctor({"--listen"});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.output.contains("ends with \"" + verdict.toUtf8() + '"'),
             result.output.constData());
}

void DoctorMicrophoneTest::muted()
{
    QVERIFY(soundServer({"set-source-mute", "microphone", "1"}));
    QCOMPARE(examine().of("microphone", "microphone"),
             QStringLiteral("failure: is the default one, and is muted"));
    QVERIFY(soundServer({"set-source-mute", "microphone", "0"}));
}

void DoctorMicrophoneTest::speakersSound()
{
    QVERIFY(soundServer({"set-default-source", "room.monitor"}));
    QCOMPARE(examine().of("microphone", "room.monitor"),
             QStringLiteral("failure: is the default one, and is what a speaker plays"));
    QVERIFY(soundServer({"set-default-source", "microphone"}));
}

TEST_CLASS(QCoreApplication, DoctorMicrophoneTest)
#include "doctormicrophone.moc"
