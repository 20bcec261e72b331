#include "sandbox/controlcenter/servicespage/servicewatches.h"

#include "sandbox/controlcenter/servicespage/servicewatch.h"

#include <QTimer>

#include <algorithm>

namespace controlcenter {
namespace {

// Nobody waits longer for rows to be drawn.
constexpr int longestWaitMs = 300;

} // namespace

ServiceWatches::ServiceWatches(QObject *parent)
    : QObject(parent)
{
    for (const sandbox::ServiceIdentity &service : sandbox::serviceList()) {
        auto *watch = new ServiceWatch(service, this);
        m_all.append(watch);
        connect(watch, &ServiceWatch::changed, this, [this] {
            if (std::none_of(m_all.cbegin(), m_all.cend(), [](const ServiceWatch *each) {
                    return each->state() == ServiceWatch::Unknown;
                }))
                setKnown();
        });
        watch->refresh();
    }
    QTimer::singleShot(longestWaitMs, this, &ServiceWatches::setKnown);
}

ServiceWatch *ServiceWatches::named(const QString &service) const
{
    return *std::find_if(m_all.cbegin(), m_all.cend(),
                         [&](const ServiceWatch *watch) { return watch->name() == service; });
}

void ServiceWatches::setKnown()
{
    if (m_known)
        return;
    m_known = true;
    Q_EMIT known();
}

} // namespace controlcenter
