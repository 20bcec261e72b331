#include "voice/aiservicesession.h"

#include "bus/buscalls.h"
#include "comcorvaneaiservicesessioninterface.h"
#include "contracts/contract.h"
#include "voice/aiservice.h"
#include "voice/processwide.h"

namespace {

constexpr int unknownAbility = -4;

// The name under which the service knows the hosting control center.
QString applicationId()
{
    return QStringLiteral("zde-control-center");
}

} // namespace

AIServiceSession *AIServiceSession::instance()
{
    return ProcessWide<AIServiceSession>::instance();
}

AIServiceSession::AIServiceSession()
    : m_sessionManager(new ComCorvaneAiserviceSessionInterface(
          aiservice::busName(), Contract::SessionManager::object().path,
          QDBusConnection::sessionBus(), this))
{
    for (const char *ability : {"tts", "iat", "trans", "record", "aqc"})
        m_objectPaths.insert(QLatin1String(ability), QString());
}

int AIServiceSession::createSession(QString ability)
{
    const auto entry = m_objectPaths.find(ability);
    if (entry == m_objectPaths.end())
        return unknownAbility;

    // Not by the proxy's own createSession(): the one waits for ever on a bus that ends, the other
    // drops a path that comes without a proper error code.
    const QDBusMessage answer = buscalls::waitFor(
        m_sessionManager->connection(),
        m_sessionManager->asyncCall(Contract::SessionManager::createSession().name, applicationId(),
                                    ability));
    *entry = QDBusReply<QDBusObjectPath>(answer).value().path();
    const QVariantList values = answer.arguments();
    const bool proper = answer.type() == QDBusMessage::ReplyMessage && values.size() == 2;
    return proper ? qdbus_cast<int>(values.at(1)) : 0;
}

void AIServiceSession::destroySession(QString ability)
{
    if (m_objectPaths.contains(ability))
        m_sessionManager->freeSession(applicationId(), ability);
}

QString AIServiceSession::queryObjectPath(QString ability) const
{
    return m_objectPaths.value(ability);
}
