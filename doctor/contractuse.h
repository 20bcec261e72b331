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
/** What they see until a late answer to such a call comes; mostly nothing. */
QString lateText(Mode mode);

/** What people see when they see nothing of it. */
QString nothingText();

/** What the module reads of the values that come with an answer or a signal. */
enum class Values {
    Ignored,
    Plain,         ///< One flag, number or path.
    Text,          ///< One text, which may be any.
    PathAndNumber, ///< A path, and a number that counts as 0 when it is missing.
};

/** What the module does with one method or signal of an object. */
struct MemberUse
{
    MemberUse(const Contract::Method &method, Mode mode, const char *when, const char *fallback,
              const char *seen, const QVector<QVariantList> &questions = {});
    MemberUse(const Contract::Method &method, Mode mode, const char *when);
    MemberUse(const Contract::Signal &signal, const char *when, const char *seen);

    /** The same, whose values are @p kind; of one without sense people see @p senseless, if that is
     * not what they see when it fails. */
    MemberUse reading(Values kind, const char *senseless = "") const;
    /**
     * The same, of which the log has a line that begins with @p line, "LEVEL|TEXT", when there is
     * no answer, or it cannot be sent, or a text has no sense; @p later, with each signal that the
     * service then sends.
     */
    MemberUse logging(const char *line, bool later = false) const;

    QString name;
    Mode mode;
    QString when;     ///< What makes the module call it, or what it does when it hears it.
    QString fallback; ///< What counts in place of a reply; empty where none is read.
    QString seen;     ///< What people see when it fails.
    Values values;
    QString seenSenseless;      ///< What they see of a value without sense.
    QString log;                ///< How a line in the log begins then; mostly there is none.
    bool logsLater = false;     ///< With the service's signals, not at once.
    QString seenWithoutSession; ///< When its session went with the service; empty without one.

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
