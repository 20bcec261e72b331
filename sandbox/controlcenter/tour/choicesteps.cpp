#include "sandbox/controlcenter/tour/choicesteps.h"

#include "sandbox/controlcenter/tour/servicecontrol.h"
#include "sandbox/controlcenter/tour/tourdriver.h"

#include <QComboBox>

namespace controlcenter {
namespace {

/** A list of the module, the only one of its page, and where the assistant keeps what was chosen.
 */
struct Choice
{
    QString page; ///< untranslated
    QString key;  ///< of the service's state
};

QComboBox *listOf(const TourDriver &driver)
{
    return qobject_cast<QComboBox *>(driver.control(QAccessible::ComboBox, 0));
}

/** Chooses the entry below, or above the last one, and checks it; then the one before again. */
QString choose(TourDriver &driver, const Choice &what)
{
    QString problem = driver.openPage(what.page);
    if (!problem.isEmpty())
        return problem;
    const QComboBox *list = listOf(driver);
    if (!list)
        return QStringLiteral("the page has no list");
    const bool atEnd = list->currentIndex() == list->count() - 1;
    const int before = list->currentIndex();
    const int wanted = before + (atEnd ? -1 : 1);

    ServiceControl service(QStringLiteral("assistant"));
    const QVariant kept = service.value(what.key);
    if (!kept.isValid())
        return service.error();

    for (const bool there : {true, false}) {
        if (!driver.tabTo(listOf(driver)))
            return QStringLiteral("Tab does not lead to the list");
        driver.press(there == atEnd ? Qt::Key_Up : Qt::Key_Down);
        if ((service.value(what.key) != kept) != there)
            return QStringLiteral("the service keeps %1 = %2")
                .arg(what.key, service.value(what.key).toString());
        problem = driver.openPage(what.page);
        if (!problem.isEmpty())
            return problem;
        list = listOf(driver);
        if (!list || list->currentIndex() != (there ? wanted : before))
            return QStringLiteral("the page shows the old choice when it is opened again");
    }
    return QString();
}

TourStep choiceStep(const Choice &what)
{
    return {QStringLiteral("choose %1 of '%2', and back").arg(what.key, what.page),
            [what](TourDriver &driver) { return choose(driver, what); }, QString()};
}

} // namespace

TourSteps choiceSteps(const ControlCenterWindow *)
{
    return {choiceStep({QStringLiteral("Speech to Text"), QStringLiteral("iat.language")}),
            choiceStep({QStringLiteral("Text to Speech"), QStringLiteral("tts.speaker")}),
            choiceStep({QStringLiteral("Translation"), QStringLiteral("trans.language")})};
}

} // namespace controlcenter
