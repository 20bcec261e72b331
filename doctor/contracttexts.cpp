#include "doctor/contractuse.h"

namespace doctor {

namespace {

bool waits(const QString &service, Mode mode)
{
    for (const ObjectUse &use : contractUses())
        for (const MemberUse &member : use.members)
            if (use.object.service == service && member.mode == mode)
                return true;
    return false;
}

} // namespace

QString modeText(Mode mode)
{
    switch (mode) {
    case Mode::WaitProcessingEvents:
        return QStringLiteral("wait, GUI events processed");
    case Mode::WaitProcessingNothing:
        return QStringLiteral("wait, nothing processed");
    case Mode::SendWithoutReply:
        return QStringLiteral("send, no reply expected");
    case Mode::SendIgnoringReply:
        return QStringLiteral("send, reply ignored");
    case Mode::Heard:
        break;
    }
    return QStringLiteral("signal");
}

QString hangText(Mode mode)
{
    switch (mode) {
    case Mode::WaitProcessingEvents:
        return QStringLiteral(QT_TRANSLATE_NOOP(
            "doctor::Contract", "What is asked for comes only after the bus's time-out of 25 s."));
    case Mode::WaitProcessingNothing:
        return QStringLiteral(QT_TRANSLATE_NOOP(
            "doctor::Contract", "The window stands still for the bus's time-out of 25 s."));
    case Mode::SendWithoutReply:
    case Mode::SendIgnoringReply:
    case Mode::Heard:
        break;
    }
    return QString();
}

QString lateText(Mode mode)
{
    switch (mode) {
    case Mode::WaitProcessingEvents:
        return QStringLiteral(
            QT_TRANSLATE_NOOP("doctor::Contract", "What is asked for comes only with the answer."));
    case Mode::WaitProcessingNothing:
        return QStringLiteral(QT_TRANSLATE_NOOP("doctor::Contract",
                                                "The window stands still until the answer comes."));
    case Mode::SendWithoutReply:
    case Mode::SendIgnoringReply:
    case Mode::Heard:
        break;
    }
    return QString();
}

QString nothingText()
{
    return QStringLiteral(QT_TRANSLATE_NOOP("doctor::Contract", "Nothing."));
}

QStringList waitTexts(const QString &service, bool timesOut)
{
    for (const Mode mode : {Mode::WaitProcessingNothing, Mode::WaitProcessingEvents})
        if (waits(service, mode))
            return {timesOut ? hangText(mode) : lateText(mode)};
    return timesOut ? QStringList() : QStringList(nothingText());
}

QStringList failureTexts(const QString &service)
{
    QStringList noticed;
    QStringList unnoticed;
    for (const ObjectUse &use : contractUses())
        if (use.object.service == service && !use.object.path.isEmpty())
            (use.noticed ? noticed : unnoticed).append(use.seen);
    return noticed.isEmpty() ? unnoticed : noticed;
}

} // namespace doctor
