#include "contracts/contract.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/modulepages.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/controlcenter/tour/toursections.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QLabel>

#include <algorithm>

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

} // namespace controlcenter
