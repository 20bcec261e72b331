#include "sandbox/controlcenter/worlddrawer/faulttexts.h"

#include "doctor/contractuse.h"

#include <QCoreApplication>
#include <QLocale>

using sandbox::Fault;

namespace controlcenter {
namespace {

constexpr int busTimeoutMs = 25000;

class FaultTexts
{
    Q_DECLARE_TR_FUNCTIONS(controlcenter::FaultTexts)
};

// The contract's sentences are English; the catalogues of the window have them, too.
QString translated(const QString &sentence)
{
    return QCoreApplication::translate("doctor::Contract", sentence.toUtf8().constData());
}

} // namespace

QString faultName(const Fault &fault)
{
    switch (fault.kind) {
    case Fault::None:
        break;
    case Fault::Slow:
        return FaultTexts::tr("Slow by %1 s").arg(QLocale().toString(fault.delayMs / 1000.0));
    case Fault::Refusing:
        return FaultTexts::tr("Refusing");
    case Fault::WrongTypes:
        return FaultTexts::tr("Wrong types");
    case Fault::Hung:
        return FaultTexts::tr("Hung");
    case Fault::Stopped:
        return FaultTexts::tr("Stopped");
    }
    return FaultTexts::tr("Running");
}

QStringList faultSentences(const QString &busName, const Fault &fault)
{
    QStringList sentences;
    const bool timesOut =
        fault.kind == Fault::Hung || (fault.kind == Fault::Slow && fault.delayMs >= busTimeoutMs);
    if (timesOut || fault.kind == Fault::Slow)
        sentences += doctor::waitTexts(busName, timesOut);
    if (timesOut || (fault.kind != Fault::None && fault.kind != Fault::Slow))
        sentences += doctor::failureTexts(busName);
    for (QString &sentence : sentences)
        sentence = translated(sentence);
    return sentences;
}

} // namespace controlcenter
