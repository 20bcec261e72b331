#pragma once

#include "contracts/contract.h"

#include <QStringList>
#include <QVariantList>
#include <QVector>

namespace doctor {

/** How a call crosses the bus, and what may happen meanwhile. */
enum class Mode {
    WaitProcessingEvents,
    WaitProcessingNothing,
    SendWithoutReply,
    SendIgnoringReply,
    Heard, ///< A signal.
};

/** The mode in words, as documents name it. */
QString modeText(Mode mode);
/** What people see while such a call to a service that hangs has not timed out; mostly nothing. */
QString hangText(Mode mode);

/** What the module does with one method or signal of an object. */
struct MemberUse
{
    MemberUse(const Contract::Method &method, Mode mode, const char *when, const char *fallback,
              const char *seen, const QVector<QVariantList> &questions = {});
    MemberUse(const Contract::Method &method, Mode mode, const char *when);
    MemberUse(const Contract::Signal &signal, const char *when, const char *seen);

    QString name;
    Mode mode;
    QString when;     ///< What makes the module call it, or what it does when it hears it.
    QString fallback; ///< What counts in place of a reply; empty where none is read.
    QString seen;     ///< What people see when it fails.

    /** Arguments with which it can be called so that nothing changes; none when there are none. */
    QVector<QVariantList> questions;
};

/** What the module uses of one object of a service. */
struct ObjectUse
{
    Contract::Object object;
    bool noticed; ///< Whether people notice when it is not there.
    QString seen; ///< What they see then.
    QVector<MemberUse> members;
};

/** Everything that the module uses on the buses, service by service. */
const QVector<ObjectUse> &contractUses();

/**
 * What people see while the calls of the module to @p service get no answer until the bus's
 * time-out, if @p timesOut, or a late one: by the mode that waits most.
 */
QStringList waitTexts(const QString &service, bool timesOut);

/** What people see when @p service is not there, refuses, or answers with other types. */
QStringList failureTexts(const QString &service);

/** It as a document in Markdown, with what the contracts say. */
QString contractDocument();

} // namespace doctor
