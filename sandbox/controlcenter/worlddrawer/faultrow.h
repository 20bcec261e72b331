#pragma once

#include "sandbox/controlcenter/worlddrawer/choicerow.h"
#include "sandbox/services/control/servicecontrol.h"

#include <QPointer>
#include <QVector>

namespace controlcenter {

class ServiceWatch;

/** A service in the drawer: how it fails, to be chosen, and what people see because of that. */
class FaultRow : public ChoiceRow
{
    Q_OBJECT

public:
    /** Shows and steers @p watch, which outlives the row. */
    FaultRow(const QString &title, ServiceWatch *watch, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addFault(const sandbox::Fault &fault);
    void showFault();

    QPointer<ServiceWatch> m_watch;
    QVector<sandbox::Fault> m_faults; ///< by choice
};

} // namespace controlcenter
