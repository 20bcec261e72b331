#include "tests/e2e/walkworld.h"

#include <QDBusObjectPath>
#include <QtTest>

#include <algorithm>

using testsupport::ServiceCall;
using testsupport::ServiceProcess;

namespace {

constexpr quint32 standMs = 300; // at most
constexpr int marginMs = 300;    // after which it goes on for certain
constexpr int settleMs = 20000;  // for those that stand still to go on

const char *const names[] = {"assistant",      "dock",  "keybinding",
                             "networkmanager", "audio", "voicescript"};
enum Service { NetworkManager = 3, Audio, Ai };

} // namespace

bool WalkWorld::start()
{
    m_soundServerRuns = m_microphone.start(QStringLiteral("silence"));
    for (const char *name : names)
        m_services.push_back(std::make_unique<ServiceProcess>(QLatin1String(name)));
    return m_soundServerRuns && std::all_of(m_services.cbegin(), m_services.cend(),
                                            [](const auto &service) { return service->start(); });
}

ServiceProcess *WalkWorld::any(quint32 draw) const
{
    return m_services.at(draw % m_services.size()).get();
}

bool WalkWorld::isSteerable(ServiceProcess *service) const
{
    const auto stands = m_stands.find(service);
    return service->isRunning() && (stands == m_stands.end() || stands->second.hasExpired());
}

void WalkWorld::serviceDies(quint32 draw)
{
    any(draw)->kill();
}

void WalkWorld::serviceComes(quint32 draw)
{
    if (!any(draw)->isRunning())
        any(draw)->start();
}

void WalkWorld::serviceStandsStill(quint32 draw)
{
    ServiceProcess *service = any(draw);
    if (!isSteerable(service))
        return;
    const int ms = int(draw / 8 % standMs);
    m_stands[service].setRemainingTime(ms + marginMs);
    m_pause.stop({service->processId()}, ms);
}

void WalkWorld::serviceAnswersBadly(quint32 draw)
{
    constexpr int lateMs = 60;
    static const char *const behaviours[] = {"error", "reply", "delay"};
    if (isSteerable(any(draw)))
        any(draw)->script(QStringLiteral("*"), QLatin1String(behaviours[draw / 8 % 3]), lateMs);
}

void WalkWorld::serviceAnswersWell(quint32 draw)
{
    if (isSteerable(any(draw)))
        any(draw)->reset();
}

void WalkWorld::soundServerDies()
{
    m_microphone.kill();
    m_soundServerRuns = false;
}

void WalkWorld::soundServerComes()
{
    if (!m_soundServerRuns)
        m_soundServerRuns = m_microphone.start(QStringLiteral("silence"));
}

void WalkWorld::soundServerStandsStill(quint32 draw)
{
    if (!m_soundServerRuns || !m_soundStands.hasExpired())
        return;
    const int ms = int(draw / 8 % standMs);
    m_soundStands.setRemainingTime(ms + marginMs);
    m_pause.stop(m_microphone.serverProcesses(), ms);
}

void WalkWorld::judge()
{
    ServiceProcess *ai = m_services.at(Ai).get();
    if (!isSteerable(ai))
        return;
    const QList<ServiceCall> calls = ai->calls(QStringLiteral("startAqc"));
    if (!calls.isEmpty())
        ai->setValue(QStringLiteral("notify"),
                     QStringList{calls.last().path, QStringLiteral("1000")});
}

void WalkWorld::changeMicrophone()
{
    ServiceProcess *audio = m_services.at(Audio).get();
    if (isSteerable(audio))
        audio->sendSignal(QStringLiteral("/com/tavren/daemon/Audio"),
                          QStringLiteral("com.tavren.daemon.Audio"),
                          QStringLiteral("DefaultSourceChanged"),
                          {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/other")))});
}

bool WalkWorld::recover()
{
    if (!QTest::qWaitFor([this] { return m_soundStands.hasExpired(); }, settleMs))
        return false;
    soundServerComes();
    for (const auto &service : m_services) {
        if (!service->isRunning() && !service->start())
            return false;
        if (!QTest::qWaitFor([&] { return isSteerable(service.get()); }, settleMs))
            return false;
        service->reset();
    }
    m_services.at(NetworkManager)->setValue(QStringLiteral("state"), 70U);
    return m_soundServerRuns;
}
