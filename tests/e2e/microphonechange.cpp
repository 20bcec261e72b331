// What the sandbox's audio daemon makes of a real sound server that changes, goes and comes.

#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualmicrophone.h"

#include <zframeworkdbus/audio.h>

#include <QCoreApplication>
#include <QtTest>

#include <memory>

using testsupport::ServiceProcess;
using testsupport::VirtualMicrophone;

namespace {

const QString defaultSource = QStringLiteral("defaultSource");

/** Runs pactl, which comes with the sound server; true when it does what @p arguments say. */
bool pactl(const QStringList &arguments, QByteArray *output = nullptr)
{
    QProcess process;
    process.start(QStringLiteral("pactl"), arguments);
    const bool done = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                      process.exitCode() == 0;
    if (output)
        *output = process.readAllStandardOutput();
    return done;
}

bool setDefaultSource(const char *name)
{
    return pactl({QStringLiteral("set-default-source"), QLatin1String(name)});
}

/** The path that the daemon gives to the source called @p name. */
QString pathOf(const char *name)
{
    QByteArray sources;
    pactl({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sources")}, &sources);
    const QList<QByteArray> lines = sources.split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> columns = line.split('\t');
        if (columns.value(1) == name)
            return QStringLiteral("/com/tavren/daemon/Audio/Source") +
                   QString::fromLatin1(columns.first());
    }
    return {};
}

} // namespace

/** The sandbox's audio daemon on a real sound server. */
class MicrophoneChangeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anotherDefaultSource();
    void sameDefaultSourceAgain();
    void otherEventsOfTheServer();
    void defaultSourceGoes();
    void serverGoesAndComes();
    void daemonBeforeServer();
    void defaultSourceSetThroughControl();

private:
    bool startServer();
    bool addSource(const char *name);
    QStringList paths() const;
    QString lastPath() const { return paths().value(m_changes->count() - 1); }

    std::unique_ptr<VirtualMicrophone> m_microphone;
    std::unique_ptr<ServiceProcess> m_daemon;
    std::unique_ptr<__Audio> m_audio;
    std::unique_ptr<QSignalSpy> m_changes;
};

void MicrophoneChangeTest::init()
{
    m_microphone = std::make_unique<VirtualMicrophone>();
    m_daemon = std::make_unique<ServiceProcess>(QStringLiteral("audio"));
    m_audio = std::make_unique<__Audio>(QStringLiteral("com.tavren.daemon.Audio"),
                                        QStringLiteral("/com/tavren/daemon/Audio"),
                                        QDBusConnection::sessionBus());
    m_changes = std::make_unique<QSignalSpy>(m_audio.get(), &__Audio::DefaultSourceChanged);
    QVERIFY(startServer());
    QVERIFY(m_daemon->start());
    QTRY_COMPARE(m_daemon->value(defaultSource).toString(), QStringLiteral("microphone"));
}

void MicrophoneChangeTest::cleanup()
{
    m_changes.reset();
    m_audio.reset();
    m_daemon.reset();
    m_microphone.reset();
}

bool MicrophoneChangeTest::startServer()
{
    return m_microphone->start(QStringLiteral("silence"));
}

bool MicrophoneChangeTest::addSource(const char *name)
{
    return pactl({QStringLiteral("load-module"), QStringLiteral("module-remap-source"),
                  QStringLiteral("source_name=") + QLatin1String(name),
                  QStringLiteral("master=room.monitor")});
}

QStringList MicrophoneChangeTest::paths() const
{
    QStringList result;
    for (const QList<QVariant> &change : *m_changes)
        result << change.first().value<QDBusObjectPath>().path();
    return result;
}

void MicrophoneChangeTest::anotherDefaultSource()
{
    // Nothing was sent before: that there is a default source at the start is no change.
    QVERIFY(addSource("headset"));
    QVERIFY(setDefaultSource("headset"));
    QTRY_COMPARE(paths(), QStringList(pathOf("headset")));
    QCOMPARE(m_daemon->value(defaultSource).toString(), QStringLiteral("headset"));

    QVERIFY(setDefaultSource("microphone"));
    QTRY_COMPARE(paths(), (QStringList{pathOf("headset"), pathOf("microphone")}));
    QVERIFY(pathOf("headset") != pathOf("microphone"));
}

void MicrophoneChangeTest::sameDefaultSourceAgain()
{
    QVERIFY(setDefaultSource("microphone"));
    QVERIFY(addSource("headset"));
    QVERIFY(setDefaultSource("headset"));
    QTRY_COMPARE(paths(), QStringList(pathOf("headset")));
}

void MicrophoneChangeTest::otherEventsOfTheServer()
{
    QVERIFY(pactl({QStringLiteral("set-source-volume"), QStringLiteral("microphone"),
                   QStringLiteral("50%")}));
    QVERIFY(pactl({QStringLiteral("set-default-sink"), QStringLiteral("room")}));
    QVERIFY(addSource("headset"));
    QVERIFY(setDefaultSource("headset"));
    QTRY_COMPARE(paths(), QStringList(pathOf("headset")));
}

void MicrophoneChangeTest::defaultSourceGoes()
{
    QVERIFY(addSource("headset"));
    QVERIFY(setDefaultSource("headset"));
    QTRY_COMPARE(m_changes->count(), 1);

    // Without its default source the server takes another one.
    QVERIFY(pactl({QStringLiteral("unload-module"), QStringLiteral("module-remap-source")}));
    QTRY_COMPARE(paths().value(1), pathOf("room.monitor"));
}

void MicrophoneChangeTest::serverGoesAndComes()
{
    QVERIFY(m_microphone->stop());
    // A server that ends takes its sources away one by one.
    QTRY_COMPARE(lastPath(), QStringLiteral("/"));
    QCOMPARE(m_daemon->value(defaultSource).toString(), QString());

    QVERIFY(startServer());
    QTRY_COMPARE(lastPath(), pathOf("microphone"));
}

void MicrophoneChangeTest::daemonBeforeServer()
{
    QVERIFY(m_microphone->stop());
    QVERIFY(m_daemon->stop());
    QVERIFY(m_daemon->start());
    m_changes->clear();

    QVERIFY(startServer());
    QTRY_COMPARE(lastPath(), pathOf("microphone"));
}

void MicrophoneChangeTest::defaultSourceSetThroughControl()
{
    QVERIFY(addSource("headset"));
    m_daemon->setValue(defaultSource, QStringLiteral("headset"));
    QTRY_COMPARE(paths(), QStringList(pathOf("headset")));
    QByteArray name;
    QVERIFY(pactl({QStringLiteral("get-default-source")}, &name));
    QCOMPARE(name.trimmed(), QByteArray("headset"));
}

TEST_CLASS(QCoreApplication, MicrophoneChangeTest)
#include "microphonechange.moc"
