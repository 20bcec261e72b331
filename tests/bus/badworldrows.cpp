#include "tests/bus/badworldrows.h"

#include <QAccessible>
#include <QDBusObjectPath>
#include <QtTest>

#include <algorithm>

using doctor::Effect;
using doctor::World;

namespace badworlds {

namespace {

struct WorldName
{
    World world;
    const char *name;
};

const WorldName worldNames[] = {
    {World::Absent, "absent"},
    {World::StartFails, "start fails"},
    {World::Error, "error"},
    {World::WrongType, "wrong type"},
    {World::TooFewValues, "too few values"},
    {World::TooManyValues, "too many values"},
    {World::EmptyValue, "empty value"},
    {World::TenMegabytes, "10 MB"},
    {World::Late, "1 s late"},
    {World::TooLate, "too late"},
    {World::Hung, "hung"},
    {World::Ends, "ends"},
    {World::Replaced, "replaced"},
    {World::BusEnds, "bus ends"},
};

const char *nameOf(World world)
{
    return std::find_if(std::begin(worldNames), std::end(worldNames),
                        [world](const WorldName &entry) { return entry.world == world; })
        ->name;
}

Subject subjectOf(const Contract::Object &of, const QString &member)
{
    for (const doctor::ObjectUse &object : doctor::contractUses())
        for (const doctor::MemberUse &use : object.members)
            if (object.object.interface == of.interface && use.name == member)
                return {object, use, {}, {}, {}, {}, {}};
    qFatal("%s is not in the contract", qPrintable(member));
}

QVariantList emptyValues(const QVariantList &values)
{
    QVariantList empty;
    for (const QVariant &value : values)
        empty.append(value.userType() == qMetaTypeId<QDBusObjectPath>()
                         ? QVariant::fromValue(QDBusObjectPath(QStringLiteral("/")))
                         : QVariant(value.userType(), nullptr));
    return empty;
}

/** What would be a fine value, but for its type. */
QVariant inAnotherType(const QVariant &value)
{
    switch (int(value.type())) {
    case QVariant::UInt:
        return value.toInt();
    case QVariant::String:
        return QStringList{value.toString()};
    case QVariant::UserType:
        return value.value<QDBusObjectPath>().path();
    default:
        return value.toString();
    }
}

void read(QAccessibleInterface *part, QStringList *lines)
{
    if (!part || part->state().invisible)
        return;
    const auto labels = part->relations(QAccessible::Label);
    const QString name =
        (labels.isEmpty() ? part : labels.constFirst().first)->text(QAccessible::Name);
    const QAccessible::State state = part->state();
    const QString disabled = state.disabled ? QStringLiteral(", disabled") : QString();
    switch (part->role()) {
    case QAccessible::CheckBox:
        lines->append(name + (state.checked ? QLatin1String(": on") : QLatin1String(": off")) +
                      disabled);
        return;
    case QAccessible::ComboBox:
        lines->append(name + QLatin1String(": ") + part->text(QAccessible::Value) + disabled);
        return; // its list is closed
    case QAccessible::StaticText:
    case QAccessible::Link:
    case QAccessible::Button:
        lines->append(name);
        break;
    default:
        break;
    }
    for (int i = 0; i < part->childCount(); ++i)
        read(part->child(i), lines);
}

} // namespace

Subject subjectOf(const Contract::Method &method)
{
    return subjectOf(method.object, method.name);
}

Subject shown(const Contract::Method &method, const char *service, const QVariant &answer,
              const QString &usual, const QString &failed, const QString &senseless)
{
    Subject subject = subjectOf(method);
    subject.service = QLatin1String(service);
    subject.answer = {answer};
    subject.usual = usual;
    subject.failed = failed;
    subject.senseless = senseless;
    return subject;
}

Subject sent(const Contract::Method &method, const char *service, const QString &line,
             const QVariantList &answer)
{
    Subject subject = subjectOf(method);
    subject.service = QLatin1String(service);
    subject.answer = answer;
    subject.usual = subject.failed = subject.senseless = line;
    return subject;
}

Subject heard(const Contract::Signal &signal, const char *service, const QVariantList &value,
              const QString &usual, const QString &failed, const QString &senseless)
{
    Subject subject = subjectOf(signal.object, signal.name);
    subject.service = QLatin1String(service);
    subject.answer = value;
    subject.usual = usual;
    subject.failed = failed;
    subject.senseless = senseless;
    return subject;
}

QStringList readOut(QWidget *page)
{
    QStringList lines;
    read(QAccessible::queryAccessibleInterface(page), &lines);
    lines.removeAll(QString());
    // The panel of the voice test is one thing.
    const int panel = lines.indexOf(QStringLiteral("Voice Test"));
    if (panel >= 0) {
        const QString text = lines.mid(panel).join(QLatin1Char('|'));
        lines = lines.mid(0, panel) << text;
    }
    return lines;
}

QVariantList valuesIn(World world, const doctor::MemberUse &use, const QVariantList &values)
{
    switch (world) {
    case World::WrongType:
        if (values.isEmpty())
            return {true};
        return QVariantList{inAnotherType(values.first())} + values.mid(1);
    case World::TooFewValues:
        return values.mid(0, values.size() - 1);
    case World::TooManyValues:
        return values + QVariantList{QStringLiteral("more")};
    case World::EmptyValue:
        return emptyValues(values);
    case World::TenMegabytes: {
        const QVariant text = QString(10 * 1024 * 1024, QLatin1Char('x'));
        return use.values == doctor::Values::Text ? QVariantList{text}
                                                  : values + QVariantList{text};
    }
    default:
        return values;
    }
}

QVector<World> shortWorlds()
{
    QVector<World> some = doctor::worlds();
    // The ends of a bus have a test of their own: each takes the program's connection with it.
    for (const World world : endlessWorlds() + QVector<World>{World::BusEnds})
        some.removeAll(world);
    return some;
}

QVector<World> endlessWorlds()
{
    return {World::TooLate, World::Hung};
}

void addRows(const std::vector<Action> &actions, const QVector<World> &worlds)
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<int>("subject");
    QTest::addColumn<World>("world");
    for (const Action &action : actions)
        for (int subject = 0; subject < int(action.subjects.size()); ++subject)
            for (const World world : worlds) {
                const doctor::MemberUse &use = action.subjects.at(std::size_t(subject)).use;
                if (doctor::failureOf(use, world).effect != Effect::NotPossible)
                    QTest::addRow("%s, %s, %s", action.name, qPrintable(use.name), nameOf(world))
                        << action << subject << world;
            }
}

} // namespace badworlds
