#include "sandbox/controlcenter/tour/switchsteps.h"

#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/tour/servicecontrol.h"
#include "sandbox/controlcenter/tour/tourdriver.h"

#include <QAccessible>

namespace controlcenter {
namespace {

/** A switch of the module, and where the service keeps its state. */
struct Switch
{
    QString page;    ///< untranslated
    int index;       ///< among the page's check boxes, in tab order
    QString service; ///< short name
    QString key;     ///< of the service's state
    bool inverted;   ///< the service keeps the opposite
};

bool isChecked(const QWidget *box)
{
    return QAccessible::queryAccessibleInterface(const_cast<QWidget *>(box))->state().checked;
}

/** Flips @p what once; empty when window, service and a fresh page agree on the new state. */
QString flip(TourDriver &driver, const Switch &what)
{
    QString problem = driver.openPage(what.page);
    if (!problem.isEmpty())
        return problem;
    QWidget *box = driver.control(QAccessible::CheckBox, what.index);
    if (!box)
        return QStringLiteral("the page has no such switch");
    const bool wanted = !isChecked(box);
    if (!driver.tabTo(box))
        return QStringLiteral("Tab does not lead to the switch");
    driver.press(Qt::Key_Space);
    if (isChecked(box) != wanted)
        return QStringLiteral("the space bar does not flip the switch");

    ServiceControl service(what.service);
    const QVariant state = service.value(what.key);
    if (!state.isValid())
        return service.error();
    if ((state.toBool() != what.inverted) != wanted)
        return QStringLiteral("the service keeps %1 = %2").arg(what.key, state.toString());

    QString reopened = driver.openPage(what.page);
    if (!reopened.isEmpty())
        return reopened;
    box = driver.control(QAccessible::CheckBox, what.index);
    if (!box || isChecked(box) != wanted)
        return QStringLiteral("the page shows the old state when it is opened again");
    return QString();
}

QString pictureOf(const Switch &what)
{
    return QString(what.key).replace(QLatin1Char('.'), QLatin1Char('-')) +
           QStringLiteral("-flipped");
}

TourStep flipStep(const Switch &what)
{
    return {QStringLiteral("flip %1 of '%2'").arg(what.key, what.page),
            [what](TourDriver &driver) { return flip(driver, what); }, pictureOf(what)};
}

TourStep flipBackStep(const Switch &what)
{
    return {QStringLiteral("flip %1 of '%2' back").arg(what.key, what.page),
            [what](TourDriver &driver) { return flip(driver, what); }, QString()};
}

/** Another program changes the state; the open page must follow. */
TourStep followStep(const Switch &what)
{
    return {QStringLiteral("see %1 of '%2' follow a change from outside").arg(what.key, what.page),
            [what](TourDriver &driver) {
                QString problem = driver.openPage(what.page);
                if (!problem.isEmpty())
                    return problem;
                const QWidget *box = driver.control(QAccessible::CheckBox, what.index);
                if (!box)
                    return QStringLiteral("the page has no such switch");
                const bool before = isChecked(box);
                ServiceControl service(what.service);
                for (const bool wanted : {!before, before}) {
                    if (!service.setValue(what.key, wanted != what.inverted))
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
    const QString assistant = QStringLiteral("assistant");
    const QString firstPage = QStringLiteral("Desktop AI Assistant");
    const QString speechPage = QStringLiteral("Text to Speech");

    // The one-shot check box can be operated, and so is counted, while wake-up is on.
    const Switch wakeup = {firstPage, 0, assistant, QStringLiteral("wakeup.enabled"), false};
    const Switch oneShot = {firstPage, 1, assistant, QStringLiteral("wakeup.oneshot"), false};
    TourSteps steps = {flipStep(wakeup), flipStep(oneShot), flipBackStep(oneShot),
                       flipBackStep(wakeup)};

    const Switch dock = {firstPage, 1, QStringLiteral("dock"), QStringLiteral("hidden"), true};
    const QVector<Switch> others = {
        dock,
        {QStringLiteral("Speech to Text"), 0, assistant, QStringLiteral("iat.enabled"), false},
        {speechPage, 0, assistant, QStringLiteral("tts.enabled"), false},
        {speechPage, 1, assistant, QStringLiteral("tts.window"), false},
        {QStringLiteral("Translation"), 0, assistant, QStringLiteral("trans.enabled"), false},
    };
    for (const Switch &what : others)
        steps += {flipStep(what), flipBackStep(what)};
    return steps + TourSteps{followStep(dock)};
}

} // namespace controlcenter
