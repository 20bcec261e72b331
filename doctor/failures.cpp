#include "doctor/failures.h"

namespace doctor {

namespace {

Effect effectOfSignal(Values values, World world)
{
    switch (world) {
    case World::Error:
    case World::Late:
    case World::TooLate:
        return Effect::NotPossible;
    case World::EmptyValue:
        return values == Values::Text ? Effect::Senseless : Effect::AsUsual;
    case World::TenMegabytes:
        return values == Values::Text ? Effect::Senseless : Effect::None;
    default:
        return Effect::None;
    }
}

// Of a call whose answer has come.
Effect effectOfAnswer(Values values, World world)
{
    switch (world) {
    case World::Error:
        return Effect::None;
    case World::WrongType:
        return values == Values::Ignored ? Effect::AsUsual : Effect::None;
    case World::TooFewValues:
        return values == Values::Ignored || values == Values::PathAndNumber ? Effect::AsUsual
                                                                            : Effect::None;
    case World::EmptyValue:
        return values == Values::Ignored ? Effect::AsUsual : Effect::Senseless;
    case World::TenMegabytes:
        return values == Values::Text ? Effect::Senseless : Effect::AsUsual;
    default:
        return Effect::AsUsual;
    }
}

Effect effectOf(const MemberUse &member, World world)
{
    const bool isSignal = member.mode == Mode::Heard;
    const bool waits = !hangText(member.mode).isEmpty();
    if (world == World::Replaced) {
        if (!isSignal && !waits)
            return Effect::NotPossible;
        // A new one does not know the sessions of the old one.
        return member.seenWithoutSession.isEmpty() ? Effect::AsUsual : Effect::None;
    }
    if (isSignal)
        return effectOfSignal(member.values, world);
    switch (world) {
    case World::Absent:
    case World::StartFails:
    case World::Ends:
    case World::BusEnds:
        return Effect::None;
    case World::TooLate:
        return waits && member.values != Values::Ignored ? Effect::None : Effect::AsUsual;
    case World::Hung:
        return waits && member.values != Values::Ignored ? Effect::None : Effect::Postponed;
    default:
        return effectOfAnswer(member.values, world);
    }
}

Wait waitOf(Mode mode, World world)
{
    if (!hangText(mode).isEmpty()) {
        if (world == World::Late)
            return Wait::ForAnswer;
        if (world == World::TooLate || world == World::Hung)
            return Wait::ForTimeOut;
    }
    return Wait::None;
}

// Whether it still owns its name, and sends signals.
bool serviceStays(World world)
{
    switch (world) {
    case World::Absent:
    case World::StartFails:
    case World::Hung:
    case World::Ends:
    case World::Replaced:
    case World::BusEnds:
        return false;
    default:
        return true;
    }
}

QString logOf(const MemberUse &member, World world, Effect effect)
{
    if (effect == Effect::Senseless)
        return member.values == Values::Text ? member.log : QString();
    if (member.mode == Mode::SendWithoutReply && world != World::BusEnds)
        return QString(); // only the sending can fail
    const bool failed = effect == Effect::None && member.mode != Mode::Heard;
    return failed && (serviceStays(world) || !member.logsLater) ? member.log : QString();
}

QString effectText(const MemberUse &member, World world, Effect effect)
{
    const bool sessionGoes = !serviceStays(world) && !member.seenWithoutSession.isEmpty();
    switch (effect) {
    case Effect::None:
        return sessionGoes ? member.seenWithoutSession : member.seen;
    case Effect::Senseless:
        return member.seenSenseless;
    case Effect::Postponed:
        return QStringLiteral("It has no effect before the service goes on.");
    case Effect::NotPossible:
    case Effect::AsUsual:
        break;
    }
    return QString();
}

QString waitText(Mode mode, Wait wait)
{
    switch (wait) {
    case Wait::ForAnswer:
        return lateText(mode);
    case Wait::ForTimeOut:
        return hangText(mode);
    case Wait::None:
        break;
    }
    return QString();
}

} // namespace

const QVector<World> &worlds()
{
    static const QVector<World> all{
        World::Absent,       World::StartFails,    World::Error,      World::WrongType,
        World::TooFewValues, World::TooManyValues, World::EmptyValue, World::TenMegabytes,
        World::Late,         World::TooLate,       World::Hung,       World::Ends,
        World::Replaced,     World::BusEnds,
    };
    return all;
}

Failure failureOf(const MemberUse &member, World world)
{
    const Effect effect = effectOf(member, world);
    const Wait wait = waitOf(member.mode, world);
    QStringList seen{waitText(member.mode, wait), effectText(member, world, effect)};
    seen.removeAll(QString());
    return {effect, wait, wait != Wait::None && member.mode == Mode::WaitProcessingNothing,
            logOf(member, world, effect),
            seen.isEmpty() ? nothingText() : seen.join(QLatin1Char(' '))};
}

const QVector<SoundFailure> &soundFailures()
{
    const QString silent = QStringLiteral("A voice test ends with \"No sound recorded\".");
    const QString stands =
        QStringLiteral("The window stands still until it goes on: Qt waits, without a time-out.");
    static const QVector<SoundFailure> all{
        {QStringLiteral("is not there, or has no microphone"), false,
         QStringLiteral("warning|audio recorder device may not be valid"),
         silent + QStringLiteral(" Where there is none at the first look, Qt never looks again.")},
        {QStringLiteral("ends during a voice test"), false, QString(),
         silent + QStringLiteral(" When it comes back, Qt takes some seconds to find it.")},
        {QStringLiteral("hangs half a second after \"Desktop AI Assistant\" was opened for the "
                        "first time, when the devices are looked at"),
         true, QString(), stands},
        {QStringLiteral("hangs when a voice test begins"), true, QString(), stands},
        {QStringLiteral("hangs when a voice test ends, or its page goes"), false, QString(),
         nothingText()},
        {QStringLiteral("hangs during a voice test, or while none runs"), false, QString(),
         QStringLiteral("A voice test hears nothing meanwhile.")},
    };
    return all;
}

} // namespace doctor
