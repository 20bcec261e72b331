#include "sandbox/services/aiservice/sessionmanager.h"

#include "contracts/contract.h"
#include "sandbox/services/aiservice/qualitysession.h"
#include "sandbox/services/aiservice/recognitionsession.h"
#include "sandbox/services/aiservice/wavfile.h"
#include "sandbox/services/common/publishedobject.h"
#include "sandbox/services/common/service.h"
#include "sandbox/services/common/statestore.h"
#include "sessionmanageradaptor.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QThread>

namespace sandbox {

Session::Session(QObject *parent)
    : QObject(parent)
{
}

Session::~Session() = default;

void Session::recordTo(const QString &file)
{
    m_recording = std::make_unique<WavWriter>(file);
}

void Session::close()
{
    deleteLater();
}

void Session::record(const QByteArray &audio)
{
    if (m_recording)
        m_recording->append(audio);
}

namespace {

const QString refusalKey = QStringLiteral("createSession.errorcode");
const QString limitKey = QStringLiteral("sessionLimit");
const QString recordKey = QStringLiteral("recordDirectory");
const QString sessionsKey = QStringLiteral("sessions");

constexpr int defaultLimit = 16;

/** What can be asked for by name; see m_makers for what is there. */
const QStringList knownAbilities = {QStringLiteral("tts"), QStringLiteral("iat"),
                                    QStringLiteral("trans"), QStringLiteral("record"),
                                    QStringLiteral("aqc")};

/** An object path cannot be empty; this one stands for none. */
const QDBusObjectPath noSession(QStringLiteral("/"));

} // namespace

SessionManager::SessionManager(Service *service, const QString &recordDirectory, QObject *parent)
    : QObject(parent)
    , m_service(service)
    , m_clients(QString(), QDBusConnection::sessionBus(),
                QDBusServiceWatcher::WatchForUnregistration)
{
    new SessionManagerAdaptor(this);
    m_makers.insert(QStringLiteral("aqc"), [this] { return new QualitySession(this); });
    m_makers.insert(QStringLiteral("iat"), [this] { return new RecognitionSession(this, this); });
    connect(&m_clients, &QDBusServiceWatcher::serviceUnregistered, this,
            &SessionManager::clientLeft);

    StateStore *state = service->state();
    state->declare(refusalKey, int(SessionOk), StateStore::ThisRun);
    state->declare(limitKey, defaultLimit, StateStore::ThisRun);
    state->declare(recordKey, recordDirectory, StateStore::ThisRun);
    state->declareElsewhere(
        sessionsKey, [this] { return QVariant(paths()); }, [](const QVariant &) {});
}

SessionManager::~SessionManager()
{
    const auto sessions = findChildren<Session *>();
    qDeleteAll(sessions);
    // Their recognitions have asked these to end.
    const auto threads = findChildren<QThread *>();
    for (QThread *thread : threads)
        thread->wait();
}

QDBusObjectPath SessionManager::createSession(const QString &appId, const QString &ability,
                                              int &errorcode)
{
    const Key key{caller(), appId, ability};
    close(key);
    errorcode = refusal(ability);
    if (errorcode != SessionOk)
        return noSession;

    const int number = ++m_lastNumber;
    const QString path =
        QStringLiteral("/com/corvane/aiservice/%1/%2").arg(ability, QString::number(number));
    Session *session = m_makers.value(ability)();
    const QString folder = m_service->state()->get<QString>(recordKey);
    if (!folder.isEmpty())
        session->recordTo(QStringLiteral("%1/%2-%3.wav").arg(folder, ability).arg(number));
    m_service->publish(path, session, key.client);
    m_sessions.insert(key, {path, session});

    if (!m_clients.watchedServices().contains(key.client)) {
        m_clients.addWatchedService(key.client);
        // A client that has gone between its call and the watch would never be noticed.
        if (!m_clients.connection().interface()->isServiceRegistered(key.client))
            clientLeft(key.client);
    }
    return QDBusObjectPath(path);
}

int SessionManager::freeSession(const QString &appId, const QString &ability)
{
    const Key key{caller(), appId, ability};
    if (!m_sessions.contains(key))
        return SessionNotOpen;
    close(key);
    return SessionOk;
}

int SessionManager::refusal(const QString &ability) const
{
    StateStore *state = m_service->state();
    const int scripted = state->get<int>(refusalKey);
    if (scripted != SessionOk)
        return scripted;
    if (!knownAbilities.contains(ability))
        return SessionAbilityUnknown;
    if (!m_makers.contains(ability))
        return SessionAbilityNotOffered;
    return m_sessions.size() >= state->get<int>(limitKey) ? SessionLimitReached : SessionOk;
}

void SessionManager::close(const Key &key)
{
    if (Session *session = m_sessions.take(key).session)
        session->close();
}

void SessionManager::clientLeft(const QString &client)
{
    m_clients.removeWatchedService(client);
    const auto keys = m_sessions.keys();
    for (const Key &key : keys)
        if (key.client == client)
            close(key);
}

QStringList SessionManager::paths() const
{
    QStringList result;
    for (const Entry &entry : m_sessions)
        result << entry.path;
    return result;
}

} // namespace sandbox

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QCommandLineOption record(
        QStringLiteral("record"),
        QStringLiteral("Write what every session hears to a WAV file in DIR."),
        QStringLiteral("DIR"));
    sandbox::Service service(sandbox::serviceNamed(QStringLiteral("aiservice")), {record});
    sandbox::SessionManager sessions(&service, service.arguments().value(record));
    service.publish(Contract::SessionManager::object().path, &sessions);
    return service.run();
}
