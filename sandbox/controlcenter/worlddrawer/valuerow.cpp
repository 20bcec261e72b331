#include "sandbox/controlcenter/worlddrawer/valuerow.h"

#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/services/control/servicecontrol.h"

#include <algorithm>

namespace controlcenter {
namespace {

// What the service says of a key; null when it has none such.
QString valueOf(const ServiceWatch *watch, const QString &key)
{
    for (const auto &value : watch->values())
        if (value.first == key)
            return value.second;
    return QString();
}

} // namespace

ValueRow::ValueRow(const QString &title, ServiceWatch *watch, const QVector<Choice> &choices,
                   QWidget *parent)
    : ChoiceRow(title, parent)
    , m_watch(watch)
    , m_choices(choices)
{
    for (const Choice &choice : choices)
        addChoice(choice.text);
    connect(this, &ChoiceRow::chosen, this, &ValueRow::choose);
    // Also when nothing has changed, since the user's choice may have been undone at once.
    for (const auto signal : {&ServiceWatch::changed, &ServiceWatch::answered})
        connect(m_watch, signal, this, [this] {
            if (parentWidget()->isVisible())
                showValues();
        });
}

void ValueRow::showEvent(QShowEvent *event)
{
    ChoiceRow::showEvent(event);
    if (m_watch)
        showValues();
}

void ValueRow::choose(int index)
{
    for (const auto &[key, value] : m_choices.at(index).values) {
        ++m_unanswered;
        const auto pending = m_watch->control()->SetValue(key, QDBusVariant(value));
        auto *watcher = new QDBusPendingCallWatcher(pending, this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
            watcher->deleteLater();
            --m_unanswered;
            m_watch->refresh();
        });
    }
    setSentences(m_choices.at(index).sentences);
}

void ValueRow::showValues()
{
    if (m_unanswered > 0)
        return; // the user's choice stands
    const QString key = m_choices.constFirst().values.constFirst().first;
    const QString value = valueOf(m_watch, key);
    const bool runs = m_watch->state() == ServiceWatch::Running;
    // One that has such a value while it runs keeps its place when it does not.
    if (runs)
        setVisible(!value.isNull());
    setUsable(runs && !value.isNull());
    const int index = inForce();
    setChoice(index);
    setSentences(index < 0 ? QStringList() : m_choices.at(index).sentences);
}

int ValueRow::inForce() const
{
    const auto holds = [this](const QPair<QString, QVariant> &value) {
        return valueOf(m_watch, value.first) == sandbox::shownText(value.second);
    };
    const auto found =
        std::find_if(m_choices.cbegin(), m_choices.cend(), [&](const Choice &choice) {
            return std::all_of(choice.values.cbegin(), choice.values.cend(), holds);
        });
    return found == m_choices.cend() ? -1 : int(found - m_choices.cbegin());
}

} // namespace controlcenter
