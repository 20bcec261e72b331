#include "contracts/contract.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/themechoice.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "sandbox/controlcenter/worlddrawer/faulttexts.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include <ztk/zlistview.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QLabel>

#include <algorithm>

using sandbox::Fault;
using Ztk::Widget::ZListView;

namespace controlcenter {
namespace {

const QString switchKey = QStringLiteral("iat.enabled");

// Whether the page of services shows this value of the switch.
bool shows(const TourDriver &driver, bool on)
{
    const QString wanted = switchKey + (on ? QStringLiteral(": true") : QStringLiteral(": false"));
    const auto labels = driver.window()->findChildren<QLabel *>();
    return std::any_of(labels.cbegin(), labels.cend(), [&](const QLabel *label) {
        return label->isVisible() && label->accessibleName() == wanted;
    });
}

TourStep openStep(bool dark)
{
    const QString theme = dark ? QStringLiteral("dark") : QStringLiteral("light");
    return {QStringLiteral("open the services (%1)").arg(theme),
            [dark](TourDriver &driver) {
                driver.setDark(dark);
                driver.window()->openServices();
                return driver.waitFor([&] { return shows(driver, true); })
                           ? QString()
                           : QStringLiteral("the page does not show %1").arg(switchKey);
            },
            QStringLiteral("services-") + theme};
}

TourStep flipStep()
{
    return {QStringLiteral("see a flipped switch among the services"),
            [](TourDriver &driver) {
                QString problem = driver.openPage(modulepages::speechToText);
                if (!problem.isEmpty())
                    return problem;
                QWidget *box = driver.control(QAccessible::CheckBox, 0);
                if (!box || !driver.tabTo(box))
                    return QStringLiteral("the switch cannot be reached");
                driver.press(Qt::Key_Space);
                driver.window()->openServices();
                return driver.waitFor([&] { return shows(driver, false); })
                           ? QString()
                           : QStringLiteral("the page does not show the change");
            },
            QStringLiteral("services-changed")};
}

TourStep followStep()
{
    return {QStringLiteral("see the services follow another program"),
            [](TourDriver &driver) {
                const Contract::Method method = Contract::SpeechToText::setIatEnable();
                QDBusMessage call =
                    QDBusMessage::createMethodCall(method.object.service, method.object.path,
                                                   method.object.interface, method.name);
                call.setArguments({true});
                QDBusConnection::sessionBus().send(call);
                return driver.waitFor([&] { return shows(driver, true); })
                           ? QString()
                           : QStringLiteral("the page does not show the change");
            },
            QString()};
}

} // namespace

TourSteps serviceSteps(const ControlCenterWindow *)
{
    return {openStep(true), openStep(false), flipStep(), followStep()};
}

namespace {

const QString listNotReached = QStringLiteral("the list \"%1\" cannot be reached");

// The drawer's list called so.
QComboBox *worldList(const TourDriver &driver, const QString &name)
{
    return qobject_cast<QComboBox *>(findControl(driver.window()->world()->drawer(), name));
}

// Chooses it by keys and waits until it is in force.
QString chooseInWorld(TourDriver &driver, const QString &name, const QString &choice)
{
    // A list can be used once its service has answered.
    driver.waitFor([&] { return worldList(driver, name) != nullptr; });
    QComboBox *box = worldList(driver, name);
    if (!box || !driver.tabTo(box))
        return listNotReached.arg(name);
    const int wanted = box->findText(choice);
    if (wanted < 0)
        return QStringLiteral("there is no \"%1\"").arg(choice);
    while (box->currentIndex() != wanted)
        driver.press(box->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    const bool settled = driver.waitFor([&] {
        return driver.window()->world()->drawer()->isSettled() && box->currentText() == choice;
    });
    return settled ? QString() : QStringLiteral("\"%1\" does not stay").arg(choice);
}

QString failService(TourDriver &driver, const QString &service, Fault::Kind kind)
{
    return chooseInWorld(driver, ServicesPage::titleOf(service), faultName({kind}));
}

TourStep openWorldStep(bool dark)
{
    const QString theme = dark ? QStringLiteral("dark") : QStringLiteral("light");
    return {QStringLiteral("open the world's drawer (%1)").arg(theme),
            [dark](TourDriver &driver) {
                driver.setDark(dark);
                driver.window()->world()->closeDrawer();
                driver.window()->openServices();
                driver.press(Qt::Key_F12);
                if (!driver.window()->world()->isOpen())
                    return QStringLiteral("it does not open");
                const QString dock = ServicesPage::titleOf(QStringLiteral("dock"));
                return driver.waitFor([&] { return worldList(driver, dock) != nullptr; })
                           ? QString()
                           : listNotReached.arg(dock);
            },
            QStringLiteral("world-") + theme};
}

// What a page asks its service, beside the page.
TourStep worldCallsStep()
{
    return {QStringLiteral("see what a page asks its service"),
            [](TourDriver &driver) {
                const QString question = Contract::SpeechToText::getIatEnable().name;
                driver.openPage(modulepages::speechToText);
                const auto isAsked = [&] {
                    const auto *calls =
                        driver.window()->world()->drawer()->findChild<ZListView *>();
                    const QAbstractItemModel *rows = calls->model();
                    return !rows->match(rows->index(0, 0), Qt::AccessibleTextRole,
                                        question + QStringLiteral("()"))
                                .isEmpty();
                };
                return driver.waitFor(isAsked)
                           ? QString()
                           : QStringLiteral("%1 is not in the list").arg(question);
            },
            QStringLiteral("world-calls")};
}

TourStep worldAppearanceStep()
{
    return {QStringLiteral("choose the theme in the drawer"),
            [](TourDriver &driver) {
                const QString theme =
                    QCoreApplication::translate("controlcenter::WorldDrawer", "Theme");
                const QString problem =
                    chooseInWorld(driver, theme, ThemeChoice::textOf(ThemeChoice::Dark));
                return problem.isEmpty()
                           ? chooseInWorld(driver, theme, ThemeChoice::textOf(ThemeChoice::Light))
                           : problem;
            },
            QStringLiteral("world-appearance")};
}

TourStep worldFaultsStep()
{
    return {QStringLiteral("let services fail, and read what that leads to"),
            [](TourDriver &driver) {
                QString problem = failService(driver, QStringLiteral("dock"), Fault::Hung);
                if (problem.isEmpty())
                    problem = failService(driver, QStringLiteral("keybinding"), Fault::Refusing);
                if (problem.isEmpty())
                    problem = failService(driver, QStringLiteral("networkmanager"), Fault::Stopped);
                return problem;
            },
            QStringLiteral("world-faults")};
}

TourStep surroundingsStep()
{
    return {QStringLiteral("take the network away and give it back"),
            [](TourDriver &driver) {
                const auto translated = [](const char *text) {
                    return QCoreApplication::translate("controlcenter::WorldDrawer", text);
                };
                const QString connection = translated("Connection");
                const QString problem =
                    chooseInWorld(driver, connection, translated("Disconnected"));
                return problem.isEmpty()
                           ? chooseInWorld(driver, connection, translated("Connected"))
                           : problem;
            },
            QStringLiteral("world-surroundings")};
}

TourStep worldRecoveryStep()
{
    return {QStringLiteral("let them run again, and close the drawer"),
            [](TourDriver &driver) {
                QString problem;
                for (const char *service : {"dock", "keybinding", "networkmanager"})
                    if (problem.isEmpty())
                        problem = failService(driver, QString::fromLatin1(service), Fault::None);
                driver.press(Qt::Key_Escape);
                if (problem.isEmpty() && driver.window()->world()->isOpen())
                    problem = QStringLiteral("it stays open");
                driver.window()->world()->closeDrawer();
                return problem;
            },
            QString()};
}

} // namespace

TourSteps worldSteps(const ControlCenterWindow *)
{
    return {openWorldStep(true),   openWorldStep(false), worldCallsStep(),   surroundingsStep(),
            worldAppearanceStep(), worldFaultsStep(),    worldRecoveryStep()};
}

} // namespace controlcenter
