#include "voice/aiservicesession.h"

#include "comcorvaneaiservicesessioninterface.h"
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
          AIService::busName(), QStringLiteral("/"), QDBusConnection::sessionBus(), this))
{
    for (const char *ability : {"tts", "iat", "trans", "record", "aqc"})
        m_objectPaths.insert(QLatin1String(ability), QString());
}

int AIServiceSession::createSession(QString ability)
{
    const auto entry = m_objectPaths.find(ability);
    if (entry == m_objectPaths.end())
        return unknownAbility;

    int errorcode = 0; // stays so when no proper answer comes
    const QDBusReply<QDBusObjectPath> reply =
        m_sessionManager->createSession(applicationId(), ability, errorcode);
    *entry = reply.value().path();
    return errorcode;
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
