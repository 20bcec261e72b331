#include "tests/support/busmessage.h"

#include <QJsonObject>

namespace testsupport {

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

} // namespace testsupport
