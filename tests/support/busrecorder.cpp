#include "tests/support/busrecorder.h"

#include "tests/support/serviceprocess.h"

#include <QDBusMessage>
#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>

namespace testsupport {

namespace {

constexpr int recorderLimitMs = 20000; // a loaded machine under sanitizers
const QString busDaemon = QStringLiteral("org.freedesktop.DBus");
const QString roundTripMember = QStringLiteral("GetId");
const QString markerPath = QStringLiteral("/tests/recorder");
const QString markerInterface = QStringLiteral("com.corvane.tests.Recorder");

} // namespace

QByteArray BusMessage::bytes(int index) const
{
    const QJsonObject encoded = arguments.at(index).toObject();
    return QByteArray::fromBase64(encoded.value(QLatin1String("base64")).toString().toLatin1());
}

QString BusMessage::summary() const
{
    QString text =
        QStringLiteral("%1 %2 %3.%4(%5)").arg(destination, path, interface, member, signature);
    if (type == Call && !replyExpected)
        text += QStringLiteral(" no-reply");
    return text;
}

BusMessage BusMessage::fromJson(const QJsonObject &record)
{
    const QString type = record.value(QLatin1String("type")).toString();
    BusMessage message;
    message.type = type == QLatin1String("method_call")     ? Call
                   : type == QLatin1String("method_return") ? Return
                   : type == QLatin1String("error")         ? Error
                                                            : Signal;
    message.replyExpected = record.value(QLatin1String("replyExpected")).toBool();
    message.autoStart = record.value(QLatin1String("autoStart")).toBool();
    message.serial = quint32(record.value(QLatin1String("serial")).toDouble());
    message.replySerial = quint32(record.value(QLatin1String("replySerial")).toDouble());
    message.sender = record.value(QLatin1String("sender")).toString();
    message.destination = record.value(QLatin1String("destination")).toString();
    message.path = record.value(QLatin1String("path")).toString();
    message.interface = record.value(QLatin1String("interface")).toString();
    message.member = record.value(QLatin1String("member")).toString();
    message.errorName = record.value(QLatin1String("errorName")).toString();
    message.signature = record.value(QLatin1String("signature")).toString();
    message.arguments = record.value(QLatin1String("arguments")).toArray();
    return message;
}

BusRecorder::BusRecorder(QDBusConnection::BusType bus)
    : m_bus(bus)
    , m_process(std::make_unique<ChildProcess>())
{
    static int serial = 0;
    m_connectionName = QStringLiteral("bus-recorder-%1").arg(++serial);
}

BusRecorder::~BusRecorder()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
    m_process->kill();
    m_process->waitForFinished();
}

bool BusRecorder::start()
{
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(QStringLiteral(BUS_RECORDER),
                     {m_bus == QDBusConnection::SystemBus ? QStringLiteral("system")
                                                          : QStringLiteral("session")});
    if (m_process->waitForLine(recorderLimitMs) != "ready") {
        qWarning() << "the bus recorder did not start:" << m_process->errorString();
        return false;
    }
    return QDBusConnection::connectToBus(m_bus, m_connectionName).isConnected();
}

bool BusRecorder::sync()
{
    // A round trip comes back behind all that the same connection sent before; only then may the
    // marker go out over another connection.
    const QDBusMessage roundTrip = QDBusMessage::createMethodCall(
        busDaemon, QStringLiteral("/org/freedesktop/DBus"), busDaemon, roundTripMember);
    codeUnderTest().call(roundTrip);

    QDBusMessage marker =
        QDBusMessage::createSignal(markerPath, markerInterface, QStringLiteral("Marker"));
    marker << m_connectionName << ++m_markers;
    QDBusConnection(m_connectionName).send(marker);
    const QJsonArray expected{m_connectionName, m_markers};
    for (;;) {
        const QByteArray line = m_process->waitForLine(recorderLimitMs);
        if (line.isNull()) {
            qWarning() << "the bus recorder has stopped:" << m_process->errorString();
            return false;
        }
        const BusMessage message = BusMessage::fromJson(QJsonDocument::fromJson(line).object());
        if (message.interface != markerInterface)
            m_messages.append(message);
        else if (message.arguments == expected)
            return true;
    }
}

QList<BusMessage> BusRecorder::messages() const
{
    return m_messages;
}

QList<BusMessage> BusRecorder::calls() const
{
    return callsFrom(codeUnderTest().baseService());
}

QList<BusMessage> BusRecorder::callsFrom(const QString &sender) const
{
    QList<BusMessage> calls;
    for (const BusMessage &message : m_messages) {
        if (message.type == BusMessage::Call && message.sender == sender &&
            message.destination != busDaemon) {
            calls.append(message);
        }
    }
    return calls;
}

QStringList BusRecorder::daemonCalls() const
{
    QStringList members;
    const QString sender = codeUnderTest().baseService();
    for (const BusMessage &message : m_messages) {
        if (message.sender == sender && message.destination == busDaemon &&
            message.member != roundTripMember) {
            members.append(message.member);
        }
    }
    return members;
}

QStringList BusRecorder::callSummaries() const
{
    QStringList summaries;
    const QList<BusMessage> sent = calls();
    for (const BusMessage &call : sent)
        summaries.append(call.summary());
    return summaries;
}

bool BusRecorder::clear()
{
    const bool complete = sync();
    m_messages.clear();
    return complete;
}

QDBusConnection BusRecorder::codeUnderTest() const
{
    return m_bus == QDBusConnection::SystemBus ? QDBusConnection::systemBus()
                                               : QDBusConnection::sessionBus();
}

} // namespace testsupport
