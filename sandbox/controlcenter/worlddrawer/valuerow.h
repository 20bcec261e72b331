#pragma once

#include "sandbox/controlcenter/worlddrawer/choicerow.h"

#include <QPair>
#include <QPointer>
#include <QVariant>
#include <QVector>

namespace controlcenter {

class ServiceWatch;

/** Values of a service's state that are chosen together in the drawer. */
class ValueRow : public ChoiceRow
{
    Q_OBJECT

public:
    struct Choice
    {
        QString text;
        QVector<QPair<QString, QVariant>> values; ///< by key; the service may have others, too
        QStringList sentences;                    ///< what people see then
    };

    /** Shows and sets the values of @p watch, which outlives the row. Hidden while it has none. */
    ValueRow(const QString &title, ServiceWatch *watch, const QVector<Choice> &choices,
             QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void choose(int index);
    void showValues();
    int inForce() const;

    QPointer<ServiceWatch> m_watch;
    QVector<Choice> m_choices;
    int m_unanswered = 0;
};

} // namespace controlcenter
