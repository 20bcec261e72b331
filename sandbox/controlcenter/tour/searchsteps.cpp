#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"

namespace controlcenter {
namespace {

TourStep typeStep(const QString &text, bool dark = false)
{
    return {QStringLiteral("search for '%1'").arg(text),
            [text, dark](TourDriver &driver) {
                driver.setDark(dark);
                driver.press(Qt::Key_F, Qt::ControlModifier);
                SearchField *field = driver.window()->searchField();
                if (!field->hasFocus())
                    return QStringLiteral("Ctrl+F does not lead to the search field");
                driver.type(text);
                if (!field->accessibleDescription().contains(text, Qt::CaseInsensitive))
                    return QStringLiteral("the first result is \"%1\"")
                        .arg(field->accessibleDescription());
                return QString();
            },
            dark ? QStringLiteral("search-dark") : QStringLiteral("search")};
}

TourStep acceptStep(const QString &title)
{
    return {QStringLiteral("open the result '%1' with Enter").arg(title),
            [title](TourDriver &driver) {
                driver.press(Qt::Key_Return);
                if (driver.window()->currentTitle() != title)
                    return QStringLiteral("the heading says \"%1\"")
                        .arg(driver.window()->currentTitle());
                if (!driver.window()->searchField()->text().isEmpty())
                    return QStringLiteral("the search field still has its text");
                return QString();
            },
            QStringLiteral("search-opened")};
}

// A result that is a setting leads to its control.
TourStep settingStep(const SearchEntry &setting)
{
    return {QStringLiteral("search for '%1' of '%2' and open it").arg(setting.item, setting.page),
            [setting](TourDriver &driver) {
                driver.press(Qt::Key_F, Qt::ControlModifier);
                driver.type(setting.item + ' ' + setting.page);
                driver.press(Qt::Key_Return);
                if (driver.window()->currentTitle() != setting.page)
                    return QStringLiteral("the heading says \"%1\"")
                        .arg(driver.window()->currentTitle());
                QWidget *control = driver.control(setting.item);
                if (!control)
                    return QStringLiteral("the page has no control of that name");
                if (!control->hasFocus())
                    return QStringLiteral("the control does not have the focus");
                return QString();
            },
            QStringLiteral("search-setting")};
}

TourStep escapeStep(const QString &text)
{
    return {QStringLiteral("clear the search with Escape"),
            [text](TourDriver &driver) {
                driver.press(Qt::Key_F, Qt::ControlModifier);
                driver.type(text);
                driver.press(Qt::Key_Escape);
                return driver.window()->searchField()->text().isEmpty()
                           ? QString()
                           : QStringLiteral("the text is still there");
            },
            QString()};
}

} // namespace

TourSteps searchSteps(const ControlCenterWindow *window)
{
    const QString title = window->pageTitle(modulepages::translation);
    SearchEntry lastSetting;
    for (const SearchEntry &entry : window->searchEntries())
        if (!entry.item.isEmpty())
            lastSetting = entry;
    return {typeStep(title), acceptStep(title), settingStep(lastSetting), typeStep(title, true),
            escapeStep(title)};
}

} // namespace controlcenter
