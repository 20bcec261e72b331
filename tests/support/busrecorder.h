#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QJsonArray>
#include <QList>
#include <QStringList>

#include <memory>

class QJsonObject;

namespace testsupport {

/** One message as a bus carried it. */
struct BusMessage
{
    enum Type { Call, Return, Error, Signal };

    Type type = Call;
    bool replyExpected = false; ///< Of a call: the flag on the wire.
    bool autoStart = false;     ///< Of a call: the bus may start the service.
    quint32 serial = 0;         ///< Unique for each sender.
    quint32 replySerial = 0;    ///< Of a return or error: the call that it answers.
    QString sender;             ///< Unique name.
    QString destination;        ///< As the sender wrote it: a well-known or a unique name, or none.
    QString path;
    QString interface;
    QString member;
    QString errorName;
    QString signature;
    QJsonArray
        arguments; ///< Plain JSON; a byte array is {"base64": TEXT}; 64-bit numbers are texts.

    /** The byte array that is argument @p index. */
    QByteArray bytes(int index) const;

    /**
     * The message on one line, for comparisons that read well:
     * "com.corvane.aiassistant /aiassistant/iat com.corvane.aiassistant.iat.setIatEnable(b)
     * no-reply"
     */
    QString summary() const;

    /** From what the program bus-recorder writes. */
    static BusMessage fromJson(const QJsonObject &record);
};

class ChildProcess;

/**
 * Records everything that a bus carries, as the bus daemon sees it, in order.
 *
 *     BusRecorder recorder;
 *     QVERIFY(recorder.start());
 *     VoiceIatSettingWidget page(nullptr);
 *     QVERIFY(recorder.sync());
 *     QCOMPARE(recorder.callSummaries(), (QStringList{...}));
 *
 * A monitor in a process of its own (the program bus-recorder) does the listening, so that also
 * calls that nobody receives and flags that a service cannot see are recorded.
 */
class BusRecorder
{
public:
    explicit BusRecorder(QDBusConnection::BusType bus = QDBusConnection::SessionBus);
    ~BusRecorder();

    BusRecorder(const BusRecorder &) = delete;
    BusRecorder &operator=(const BusRecorder &) = delete;

    /** Starts recording. False, with a log line, when the monitor cannot run. */
    bool start();

    /**
     * Waits until everything that this process has sent so far over its process-wide connection to
     * the bus, and everything that the bus carried before that, is recorded. Processes no events.
     */
    bool sync();

    /** All that was recorded up to the last sync(), since the last clear(). */
    QList<BusMessage> messages() const;

    /**
     * The calls among them that the code under test sent: those of the process-wide connection to
     * anybody but the bus daemon itself.
     */
    QList<BusMessage> calls() const;

    /** The calls that the connection with the unique name @p sender sent likewise. */
    QList<BusMessage> callsFrom(const QString &sender) const;

    /**
     * The methods of the bus daemon itself that the code under test called, in order; but for the
     * one with which sync() asks.
     */
    QStringList daemonCalls() const;

    /** BusMessage::summary() of calls(). */
    QStringList callSummaries() const;

    /** Forgets everything up to now: syncs first. */
    bool clear();

private:
    QDBusConnection codeUnderTest() const;

    QDBusConnection::BusType m_bus;
    QString m_connectionName; // of a connection for markers
    std::unique_ptr<ChildProcess> m_process;
    QList<BusMessage> m_messages;
    int m_markers = 0;
};

} // namespace testsupport
