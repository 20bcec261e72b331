#pragma once

#include "doctor/contractuse.h"

namespace doctor {

/** A way in which a service, an answer or signal of it, or its bus can be bad. */
enum class World {
    Absent,
    StartFails, ///< The bus can start it, and it ends at once.
    Error,
    WrongType,
    TooFewValues,
    TooManyValues,
    EmptyValue,
    TenMegabytes, ///< A text of that size, or that beside the values.
    Late,         ///< By a second.
    TooLate,      ///< For the bus.
    Hung,         ///< The process stands still.
    Ends,         ///< While it is waited for, without an answer.
    Replaced,     ///< While it is waited for: another owns its name, and it still answers.
    BusEnds,      ///< Before, while it is waited for, or after.
};

/** All of them. */
const QVector<World> &worlds();

/** What becomes of a call or signal. */
enum class Effect {
    NotPossible, ///< There is no such signal, or nobody waits for an answer.
    AsUsual,     ///< As if nothing were wrong.
    Senseless,   ///< It counts, and its value means nothing.
    None,        ///< As if it had not been: the fallback counts.
    Postponed,   ///< Until the service goes on.
};

/** How long the module waits for the answer. */
enum class Wait { None, ForAnswer, ForTimeOut };

/** What the module does with one method or signal in one of the worlds. */
struct Failure
{
    Effect effect;
    Wait wait;
    bool standsStill; ///< The window, as long as it waits.
    QString log;      ///< How a line in the log begins, "LEVEL|TEXT"; mostly there is none.
    QString seen;     ///< What people see.
};

Failure failureOf(const MemberUse &member, World world);

/** A way in which the sound server can be bad, which the module reaches through Qt alone. */
enum class SoundWorld {
    Absent, ///< Or without a microphone.
    Ends,   ///< During a voice test.
    HangsAtFirst,
    HangsAtStart,
    HangsAtEnd,
    HangsAlong, ///< During a voice test, or while none runs.
};

/** What the module does then. */
struct SoundFailure
{
    QString when;     ///< What the server does, and at which moment.
    bool standsStill; ///< The window, for as long as it hangs.
    QString log;      ///< As above.
    QString seen;
};

/** In the order of SoundWorld. */
const QVector<SoundFailure> &soundFailures();

/** What every member does in every world, as a document in Markdown. */
QString failureDocument();

} // namespace doctor
