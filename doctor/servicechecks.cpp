#include "doctor/checks.h"
#include "doctor/contractuse.h"
#include "doctor/interfacecheck.h"
#include "doctor/questions.h"

#include <QDBusError>

#include <algorithm>

namespace doctor {

namespace {

const QString serviceCheck = QStringLiteral("service");

struct AskedService
{
    QString name;
    int owner; // the number of the question
    QVector<InterfaceCheck> interfaces;
};

// One sentence for each object of the service, none twice.
QString seenWithout(const AskedService &service)
{
    QStringList sentences;
    for (const InterfaceCheck &interface : service.interfaces)
        if (interface.use().noticed || service.interfaces.size() == 1)
            sentences.append(interface.use().seen);
    return sentences.join(QLatin1Char(' '));
}

Status statusWithout(const AskedService &service)
{
    return std::any_of(service.interfaces.cbegin(), service.interfaces.cend(),
                       [](const InterfaceCheck &interface) { return interface.use().noticed; })
               ? Status::Failure
               : Status::Warning;
}

Finding absentService(const AskedService &service, bool activatable)
{
    if (activatable) {
        return {Status::Warning,
                serviceCheck,
                service.name,
                QStringLiteral("does not run; the bus can start it"),
                QStringLiteral("The first page that asks it comes a little later."),
                QStringLiteral("Open the module once, then run this again to have it checked.")};
    }
    return {statusWithout(service),
            serviceCheck,
            service.name,
            QStringLiteral("does not run, and the bus cannot start it"),
            seenWithout(service),
            QStringLiteral("Install its package, or start it and see why it ended.")};
}

Finding hungService(const AskedService &service)
{
    QStringList sentences;
    for (const InterfaceCheck &interface : service.interfaces)
        for (const MemberUse &member : interface.use().members)
            sentences.append(hangText(member.mode));
    sentences.removeAll(QString());
    sentences.removeDuplicates();
    sentences.append(seenWithout(service));
    return {statusWithout(service),
            serviceCheck,
            service.name,
            QStringLiteral("runs, and does not answer within %1 s").arg(checkLimitMs / 1000),
            sentences.join(QLatin1Char(' ')),
            QStringLiteral("Restart it.")};
}

QList<Finding> judge(const AskedService &service, const Questions &questions, bool activatable)
{
    if (!questions.answered(service.owner))
        return {absentService(service, activatable)};

    qint64 slowest = -1;
    for (const InterfaceCheck &interface : service.interfaces)
        slowest = std::max(slowest, interface.slowestAnswer(questions));
    if (slowest < 0)
        return {hungService(service)};

    QList<Finding> findings{{Status::Ok, serviceCheck, service.name,
                             QStringLiteral("runs, and answers within %1 ms").arg(slowest + 1),
                             QString(), QString()}};
    for (const InterfaceCheck &interface : service.interfaces)
        findings += interface.judge(questions);
    return findings;
}

QList<Finding> withoutBus(const QVector<AskedService> &services, const QDBusConnection &bus,
                          const QString &name)
{
    QList<Finding> findings{{Status::Failure, QStringLiteral("bus"), name,
                             QStringLiteral("cannot be reached: %1").arg(bus.lastError().message()),
                             QStringLiteral("All that follows about its services."),
                             QStringLiteral("Run this in the desktop session of the person.")}};
    for (const AskedService &service : services) {
        findings.append({statusWithout(service), serviceCheck, service.name,
                         QStringLiteral("cannot be asked without the bus"), seenWithout(service),
                         QStringLiteral("See the bus above.")});
    }
    return findings;
}

// The services on the bus, each with its objects that are always there.
QVector<AskedService> servicesOn(QDBusConnection::BusType type)
{
    QVector<AskedService> services;
    for (const ObjectUse &use : contractUses()) {
        if (use.object.bus != type || use.object.path.isEmpty())
            continue;
        if (services.isEmpty() || services.constLast().name != use.object.service)
            services.append({use.object.service, -1, {}});
        services.last().interfaces.append(InterfaceCheck(use, use.object.path));
    }
    return services;
}

} // namespace

QList<Finding> checkServices(QDBusConnection::BusType type)
{
    const bool system = type == QDBusConnection::SystemBus;
    const QDBusConnection bus =
        system ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
    QVector<AskedService> services = servicesOn(type);
    if (!bus.isConnected()) {
        return withoutBus(services, bus,
                          system ? QStringLiteral("system") : QStringLiteral("session"));
    }

    Questions questions(bus);
    const int activatable = questions.askDaemon(QStringLiteral("ListActivatableNames"));
    for (AskedService &service : services) {
        service.owner = questions.askDaemon(QStringLiteral("GetNameOwner"), {service.name});
        for (InterfaceCheck &interface : service.interfaces)
            interface.ask(questions);
    }
    questions.wait();

    const QStringList startable = questions.answer(activatable).arguments().value(0).toStringList();
    QList<Finding> findings;
    for (const AskedService &service : qAsConst(services))
        findings += judge(service, questions, startable.contains(service.name));
    return findings;
}

} // namespace doctor
