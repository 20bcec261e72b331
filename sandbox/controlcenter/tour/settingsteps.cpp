#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/services/control/servicecontrol.h"

#include <QAccessible>
#include <QComboBox>

namespace controlcenter {
namespace {

// A control of the module, and where a service keeps its setting.
struct Setting
{
    QLatin1String page;
    QAccessible::Role role;
    int index;             // among the page's controls of this role, in tab order
    QLatin1String service; // short name
    QLatin1String key;     // of the service's state
    bool inverted = false; // the service keeps the opposite
};

const QLatin1String assistant("assistant");
const QLatin1String dock("dock");

const Setting wakeUp = {modulepages::assistant, QAccessible::CheckBox, 0, assistant,
                        QLatin1String("wakeup.enabled")};
// Can be operated, and so is counted, while wake-up is on.
const Setting oneShot = {modulepages::assistant, QAccessible::CheckBox, 1, assistant,
                         QLatin1String("wakeup.oneshot")};
const Setting dockIcon = {
    modulepages::assistant, QAccessible::CheckBox, 1, dock, QLatin1String("hidden"), true};

const Setting otherSwitches[] = {
    dockIcon,
    {modulepages::speechToText, QAccessible::CheckBox, 0, assistant, QLatin1String("iat.enabled")},
    {modulepages::textToSpeech, QAccessible::CheckBox, 0, assistant, QLatin1String("tts.enabled")},
    {modulepages::textToSpeech, QAccessible::CheckBox, 1, assistant, QLatin1String("tts.window")},
    {modulepages::translation, QAccessible::CheckBox, 0, assistant, QLatin1String("trans.enabled")},
};

const Setting choices[] = {
    {modulepages::speechToText, QAccessible::ComboBox, 0, assistant, QLatin1String("iat.language")},
    {modulepages::textToSpeech, QAccessible::ComboBox, 0, assistant, QLatin1String("tts.speaker")},
    {modulepages::translation, QAccessible::ComboBox, 0, assistant,
     QLatin1String("trans.language")},
};

QWidget *controlOf(const TourDriver &driver, const Setting &setting)
{
    return driver.control(setting.role, setting.index);
}

QComboBox *listOf(const TourDriver &driver, const Setting &setting)
{
    return qobject_cast<QComboBox *>(controlOf(driver, setting));
}

bool isChecked(const QWidget *box)
{
    return QAccessible::queryAccessibleInterface(const_cast<QWidget *>(box))->state().checked;
}

// Flips a switch once; empty when window, service and a fresh page agree on the new state.
QString flip(TourDriver &driver, const Setting &setting)
{
    QString problem = driver.openPage(setting.page);
    if (!problem.isEmpty())
        return problem;
    QWidget *box = controlOf(driver, setting);
    if (!box)
        return QStringLiteral("the page has no such switch");
    const bool wanted = !isChecked(box);
    if (!driver.tabTo(box))
        return QStringLiteral("Tab does not lead to the switch");
    driver.press(Qt::Key_Space);
    if (isChecked(box) != wanted)
        return QStringLiteral("the space bar does not flip the switch");

    sandbox::ServiceControl service(setting.service);
    const QVariant state = service.value(setting.key);
    if (!state.isValid())
        return service.error();
    if ((state.toBool() != setting.inverted) != wanted)
        return QStringLiteral("the service keeps %1 = %2").arg(setting.key, state.toString());

    problem = driver.openPage(setting.page);
    if (!problem.isEmpty())
        return problem;
    box = controlOf(driver, setting);
    if (!box || isChecked(box) != wanted)
        return QStringLiteral("the page shows the old state when it is opened again");
    return QString();
}

// Chooses the entry below, or above the last one, and checks it; then the one before again.
QString choose(TourDriver &driver, const Setting &setting)
{
    QString problem = driver.openPage(setting.page);
    if (!problem.isEmpty())
        return problem;
    const QComboBox *list = listOf(driver, setting);
    if (!list)
        return QStringLiteral("the page has no list");
    const bool atEnd = list->currentIndex() == list->count() - 1;
    const int before = list->currentIndex();
    const int wanted = before + (atEnd ? -1 : 1);

    sandbox::ServiceControl service(setting.service);
    const QVariant kept = service.value(setting.key);
    if (!kept.isValid())
        return service.error();

    for (const bool there : {true, false}) {
        if (!driver.tabTo(listOf(driver, setting)))
            return QStringLiteral("Tab does not lead to the list");
        driver.press(there == atEnd ? Qt::Key_Up : Qt::Key_Down);
        if ((service.value(setting.key) != kept) != there)
            return QStringLiteral("the service keeps %1 = %2")
                .arg(setting.key, service.value(setting.key).toString());
        problem = driver.openPage(setting.page);
        if (!problem.isEmpty())
            return problem;
        list = listOf(driver, setting);
        if (!list || list->currentIndex() != (there ? wanted : before))
            return QStringLiteral("the page shows the old choice when it is opened again");
    }
    return QString();
}

QString pictureOf(const Setting &setting)
{
    return QString(setting.key).replace(QLatin1Char('.'), QLatin1Char('-')) +
           QStringLiteral("-flipped");
}

TourSteps flipAndFlipBack(const Setting &setting, const TourSteps &between = {})
{
    const auto run = [setting](TourDriver &driver) {
        return flip(driver, setting);
    };
    const QString title = QStringLiteral("flip %1 of '%2'").arg(setting.key, setting.page);
    return TourSteps{{title, run, pictureOf(setting)}} + between +
           TourSteps{{title + QStringLiteral(" back"), run, QString()}};
}

// Another program changes the state; the open page must follow.
TourStep followStep(const Setting &setting)
{
    return {QStringLiteral("see %1 of '%2' follow a change from outside")
                .arg(setting.key, setting.page),
            [setting](TourDriver &driver) {
                QString problem = driver.openPage(setting.page);
                if (!problem.isEmpty())
                    return problem;
                const QWidget *box = controlOf(driver, setting);
                if (!box)
                    return QStringLiteral("the page has no such switch");
                const bool before = isChecked(box);
                sandbox::ServiceControl service(setting.service);
                for (const bool wanted : {!before, before}) {
                    if (!service.setValue(setting.key, wanted != setting.inverted))
                        return service.error();
                    if (!driver.waitFor([&] { return isChecked(box) == wanted; }))
                        return QStringLiteral("the switch does not follow");
                }
                return QString();
            },
            QString()};
}

} // namespace

TourSteps switchSteps(const ControlCenterWindow *)
{
    TourSteps steps = flipAndFlipBack(wakeUp, flipAndFlipBack(oneShot));
    for (const Setting &setting : otherSwitches)
        steps += flipAndFlipBack(setting);
    return steps + TourSteps{followStep(dockIcon)};
}

TourSteps choiceSteps(const ControlCenterWindow *)
{
    TourSteps steps;
    for (const Setting &setting : choices)
        steps.append({QStringLiteral("choose %1 of '%2', and back").arg(setting.key, setting.page),
                      [setting](TourDriver &driver) { return choose(driver, setting); },
                      QString()});
    return steps;
}

} // namespace controlcenter
