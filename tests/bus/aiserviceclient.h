#pragma once

#include "tests/support/spokenrecording.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace testsupport {

inline QByteArray bytes(const QVector<qint16> &samples)
{
    return QByteArray(reinterpret_cast<const char *>(samples.constData()),
                      samples.size() * int(sizeof(qint16)));
}

/** The phrase and a pause after it, 8 s. */
inline QByteArray spokenPhrase()
{
    static const QByteArray audio =
        bytes(spokenrecording::make(QStringLiteral("speech"), {}, QString(), 8.0));
    return audio;
}

inline QJsonObject parsed(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

/** A program on the bus that uses the AI service, over a connection of its own. */
class AiServiceClient : public QObject
{
    Q_OBJECT

public:
    explicit AiServiceClient(const QString &name)
        : m_name(name)
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name))
    {
    }
    ~AiServiceClient() override { QDBusConnection::disconnectFromBus(m_name); }

    QDBusMessage call(const QString &path, const QString &interface, const QString &member,
                      const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            m_service, path, m_service + QLatin1Char('.') + interface, member);
        message.setArguments(arguments);
        return m_bus.call(message);
    }

    QDBusMessage create(const QString &ability, const QString &application = applicationName())
    {
        return call(QStringLiteral("/"), QStringLiteral("session"), QStringLiteral("createSession"),
                    {application, ability});
    }

    /** The path of a new session; empty when it is refused. */
    QString open(const QString &ability, const QString &application = applicationName())
    {
        const QDBusMessage reply = create(ability, application);
        return reply.arguments().value(1) == 0
                   ? reply.arguments().first().value<QDBusObjectPath>().path()
                   : QString();
    }

    int free(const QString &ability)
    {
        return call(QStringLiteral("/"), QStringLiteral("session"), QStringLiteral("freeSession"),
                    {applicationName(), ability})
            .arguments()
            .value(0)
            .toInt();
    }

    /** Listens to every signal from @p path, whatever its interface; see signalsOf(). */
    bool listen(const QString &path)
    {
        bool connected = true;
        for (const char *name : {"onNotify", "onResult", "onError", "onEnd"}) {
            connected = m_bus.connect(QString(), path, QString(), QLatin1String(name), this,
                                      SLOT(take(QDBusMessage))) &&
                        connected;
        }
        return connected;
    }

    /** The first arguments of the signals @p name that have arrived. */
    QStringList signalsOf(const QString &name) const
    {
        QStringList texts;
        for (const QDBusMessage &message : m_signals)
            if (message.member() == name)
                texts << message.arguments().value(0).toString();
        return texts;
    }

    void putAudio(const QString &path, const QString &interface, const QByteArray &audio,
                  bool finish = false)
    {
        constexpr int blockBytes = 1600;
        for (int begin = 0; begin < audio.size(); begin += blockBytes) {
            const bool last = begin + blockBytes >= audio.size();
            QDBusMessage message = QDBusMessage::createMethodCall(
                m_service, path, m_service + QLatin1Char('.') + interface,
                QStringLiteral("putAudio"));
            message << audio.mid(begin, blockBytes) << (finish && last);
            m_bus.send(message);
        }
    }

    /** Returns when everything that the bus had for this client has arrived. */
    void catchUp()
    {
        m_bus.call(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        QCoreApplication::processEvents();
    }

    static QString applicationName() { return QStringLiteral("zde-control-center"); }

public Q_SLOTS:
    void take(const QDBusMessage &message) { m_signals << message; }

private:
    const QString m_service = QStringLiteral("com.corvane.aiservice");
    QString m_name;
    QDBusConnection m_bus;
    QList<QDBusMessage> m_signals;
};

/** Starts a recognition of the session at @p path; what the service answers. */
inline QString startRecognition(AiServiceClient *client, const QString &path,
                                const QVariantMap &parameters = {})
{
    return client
        ->call(path, QStringLiteral("iat"), QStringLiteral("startIat"), {QVariant(parameters)})
        .arguments()
        .value(0)
        .toString();
}

} // namespace testsupport
