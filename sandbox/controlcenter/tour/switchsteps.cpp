#include "sandbox/controlcenter/tour/switchsteps.h"

#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/pagecontrols.h"
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

QWidget *checkBox(QWidget *page, int index)
{
    for (QWidget *control : controlsOf(page)) {
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
        if (accessible->role() == QAccessible::CheckBox && index-- == 0)
            return control;
    }
    return nullptr;
}

bool isChecked(QWidget *box)
{
    return QAccessible::queryAccessibleInterface(box)->state().checked;
}

/** Flips @p what once; empty when window, service and a fresh page agree on the new state. */
QString flip(TourDriver &driver, const Switch &what)
{
    const QString problem = driver.openPage(what.page);
    if (!problem.isEmpty())
        return problem;
    QWidget *box = checkBox(driver.window()->currentPage(), what.index);
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

    const QString reopened = driver.openPage(what.page);
    if (!reopened.isEmpty())
        return reopened;
    box = checkBox(driver.window()->currentPage(), what.index);
    if (!box || isChecked(box) != wanted)
        return QStringLiteral("the page shows the old state when it is opened again");
    return QString();
}

TourStep flipStep(const Switch &what, const QString &way, const QString &picture)
{
    return {QStringLiteral("flip %1 of '%2' (%3)").arg(what.key, what.page, way),
            [what](TourDriver &driver) { return flip(driver, what); }, picture};
}

} // namespace

TourSteps switchSteps(const ControlCenterWindow *)
{
    const QString assistant = QStringLiteral("assistant");
    const QString firstPage = QStringLiteral("Desktop AI Assistant");
    const QString speechPage = QStringLiteral("Text to Speech");
    const QVector<Switch> switches = {
        {firstPage, 0, assistant, QStringLiteral("wakeup.enabled"), false},
        {firstPage, 1, QStringLiteral("dock"), QStringLiteral("hidden"), true},
        {QStringLiteral("Speech to Text"), 0, assistant, QStringLiteral("iat.enabled"), false},
        {speechPage, 0, assistant, QStringLiteral("tts.enabled"), false},
        {speechPage, 1, assistant, QStringLiteral("tts.window"), false},
        {QStringLiteral("Translation"), 0, assistant, QStringLiteral("trans.enabled"), false},
    };
    TourSteps steps;
    for (const Switch &what : switches) {
        steps.append(flipStep(what, QStringLiteral("there"),
                              QString(what.key).replace(QLatin1Char('.'), QLatin1Char('-')) +
                                  QStringLiteral("-flipped")));
        steps.append(flipStep(what, QStringLiteral("and back"), QString()));
    }
    return steps;
}

} // namespace controlcenter
