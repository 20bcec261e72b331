#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/controlcenter/tour/toursections.h"

namespace controlcenter {
namespace {

// "Speech to Text" becomes "speech-to-text".
QString fileName(const QString &page)
{
    return page.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

TourStep openPageStep(const QString &page, bool dark)
{
    const QString theme = dark ? QStringLiteral("dark") : QStringLiteral("light");
    return {QStringLiteral("open '%1' (%2)").arg(page, theme),
            [page, dark](TourDriver &driver) {
                driver.setDark(dark);
                return driver.openPage(page);
            },
            fileName(page) + '-' + theme};
}

// What does not fit must be reachable by scrolling, never cut off.
TourStep smallWindowStep(const QString &page)
{
    return {QStringLiteral("scroll '%1' in the smallest window").arg(page),
            [page](TourDriver &driver) {
                QString problem = driver.openPage(page);
                if (!problem.isEmpty())
                    return problem;
                ControlCenterWindow *window = driver.window();
                window->resize(window->minimumSize());
                driver.settle();
                QWidget *shown = window->currentPage();
                if (shown->width() < shown->minimumSizeHint().width() ||
                    shown->height() < shown->minimumSizeHint().height())
                    return QStringLiteral("the page is squeezed below its least size");
                return QString();
            },
            fileName(page) + QStringLiteral("-small")};
}

TourStep usualWindowStep(const QSize &size)
{
    return {QStringLiteral("go back to the usual window"),
            [size](TourDriver &driver) {
                driver.window()->resize(size);
                driver.settle();
                return QString();
            },
            QString()};
}

} // namespace

TourSteps pageSteps(const ControlCenterWindow *window)
{
    TourSteps steps;
    for (const bool dark : {false, true})
        for (const QString &page : window->pageNames())
            steps.append(openPageStep(page, dark));
    steps.append(smallWindowStep(window->pageNames().value(0)));
    steps.append(usualWindowStep(window->size()));
    return steps;
}

} // namespace controlcenter
