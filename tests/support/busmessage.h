#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QString>

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

} // namespace testsupport
