#include "doctor/contractuse.h"
#include "doctor/interfacedescription.h"
#include "doctor/markdown.h"

#include <algorithm>

namespace doctor {

namespace {

const MemberUse *useOf(const ObjectUse &object, const Member &member)
{
    const auto found =
        std::find_if(object.members.cbegin(), object.members.cend(), [&](const MemberUse &use) {
            return use.name == member.name && (use.mode == Mode::Heard) == member.isSignal;
        });
    return found == object.members.cend() ? nullptr : &*found;
}

QString section(const ObjectUse &object)
{
    const Contract::Object &where = object.object;
    const QString bus = where.bus == QDBusConnection::SystemBus ? QStringLiteral("system bus")
                                                                : QStringLiteral("session bus");
    QString text = QStringLiteral("\n## %1\n\n").arg(where.interface);
    text += where.path.isEmpty()
                ? QStringLiteral("Service %1 on the %2; an object for each session, whose path "
                                 "`createSession` returns.\n")
                      .arg(markdown::code(where.service), bus)
                : QStringLiteral("Object %1 of the service %2 on the %3.\n")
                      .arg(markdown::code(where.path), markdown::code(where.service), bus);
    text += QStringLiteral("Without it: %1\n\n").arg(object.seen);

    QString descriptions;
    text += markdown::head({QStringLiteral("member"), QStringLiteral("mode"),
                            QStringLiteral("when"), QStringLiteral("fallback"),
                            QStringLiteral("what people see when it fails")});
    const QVector<Member> members = contractOf(where.interface).members;
    for (const Member &member : members) {
        if (const MemberUse *use = useOf(object, member)) {
            const QString fallback =
                QString(use->fallback).replace(QLatin1Char('|'), QLatin1String("\\|"));
            text += markdown::row({markdown::code(member.declaration), modeText(use->mode),
                                   use->when, fallback, use->seen});
        }
        if (!member.description.isEmpty())
            descriptions += QStringLiteral("- `%1`: %2\n").arg(member.name, member.description);
    }
    return descriptions.isEmpty() ? text : text + QLatin1Char('\n') + descriptions;
}

} // namespace

QString contractDocument()
{
    QString text = QStringLiteral(
        "# Contract\n\n"
        "What the module calls and hears on the buses, and what people see when that fails. "
        "Written "
        "by\n"
        "`assistant-control-doctor --contract` from `contracts/` and `doctor/contractuse.cpp`; "
        "change those,\n"
        "and then:\n\n"
        "    cmake --build build/dev --target update-contract\n\n"
        "Modes are explained under \"Waiting\" in [architecture](architecture.md). A signature "
        "stands before each\n"
        "name: `s` is a text, `b` true or false, `i` and `u` numbers, `ay` bytes, `o` an object's "
        "path, "
        "`a{sv}` a map.\n"
        "The fallback counts when a service is absent, answers with an error or another type, or "
        "does not answer\n"
        "within the bus's 25 seconds.\n");
    for (const ObjectUse &object : contractUses())
        text += section(object);
    return text;
}

} // namespace doctor
