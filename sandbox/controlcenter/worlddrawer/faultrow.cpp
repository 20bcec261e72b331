#include "sandbox/controlcenter/worlddrawer/faultrow.h"

#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/worlddrawer/faulttexts.h"

using sandbox::Fault;

namespace controlcenter {

FaultRow::FaultRow(const QString &title, ServiceWatch *watch, QWidget *parent)
    : ChoiceRow(title, parent)
    , m_watch(watch)
{
    addFault({Fault::None});
    for (const int delayMs : {1000, 5000, 30000}) // the last is longer than the bus waits
        addFault({Fault::Slow, delayMs});
    for (const Fault::Kind kind : {Fault::Refusing, Fault::WrongTypes, Fault::Hung, Fault::Stopped})
        addFault({kind});
    connect(this, &ChoiceRow::chosen, this, [this](int index) {
        m_watch->cause(m_faults.at(index));
        setSentences(faultSentences(m_watch->busName(), m_faults.at(index)));
    });
    connect(m_watch, &ServiceWatch::changed, this, &FaultRow::showFault);
}

void FaultRow::showEvent(QShowEvent *event)
{
    ChoiceRow::showEvent(event);
    if (m_watch)
        showFault();
}

void FaultRow::addFault(const Fault &fault)
{
    m_faults.append(fault);
    addChoice(faultName(fault));
}

void FaultRow::showFault()
{
    if (!isVisible() || m_watch->isCausing())
        return; // the user's choice stands
    const Fault fault = m_watch->fault();
    if (!m_faults.contains(fault))
        addFault(fault); // somebody else's delay
    setChoice(m_faults.indexOf(fault));
    setSentences(faultSentences(m_watch->busName(), fault));
    setUsable(m_watch->isSteerable());
}

} // namespace controlcenter
