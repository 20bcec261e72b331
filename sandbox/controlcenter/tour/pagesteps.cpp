#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"

#include <QApplication>

namespace controlcenter {
namespace {

// "Speech to Text" becomes "speech-to-text".
QString fileName(const QString &page)
{
    return page.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

TourStep openPageStep(const QString &page, ThemeChoice::Choice theme)
{
    const QString &name = ThemeChoice::names().at(theme);
    return {QStringLiteral("open '%1' (%2)").arg(page, name),
            [page, theme](TourDriver &driver) {
                driver.setTheme(theme);
                return driver.openPage(page);
            },
            fileName(page) + '-' + name};
}

// What does not fit must be reachable by scrolling, never cut off.
TourStep sizeStep(const QString &page, const QString &size, const QSize &pixels)
{
    return {QStringLiteral("open '%1' in the %2 window").arg(page, size),
            [page, pixels](TourDriver &driver) {
                driver.setDark(false);
                QString problem = driver.openPage(page);
                if (!problem.isEmpty())
                    return problem;
                ControlCenterWindow *window = driver.window();
                window->resize(pixels.expandedTo(window->minimumSize()));
                driver.settle();
                QWidget *shown = window->currentPage();
                if (shown->width() < shown->minimumSizeHint().width() ||
                    shown->height() < shown->minimumSizeHint().height())
                    return QStringLiteral("the page is squeezed below its least size");
                return QString();
            },
            fileName(page) + '-' + size};
}

// From the page in the smallest window; by keyboard, as everything in it.
TourStep backStep(const QString &to, const std::function<QWidget *(ControlCenterWindow *)> &column)
{
    return {QStringLiteral("go back to the %1").arg(to),
            [column](TourDriver &driver) {
                ControlCenterWindow *window = driver.window();
                const bool mirrored = window->layoutDirection() == Qt::RightToLeft;
                driver.press(mirrored ? Qt::Key_Right : Qt::Key_Left, Qt::AltModifier);
                if (!column(window)->isVisible())
                    return QStringLiteral("it is not seen");
                if (!column(window)->isAncestorOf(QApplication::focusWidget()))
                    return QStringLiteral("it does not have the focus");
                return window->currentPage()->isVisible() ? QStringLiteral("the page is still seen")
                                                          : QString();
            },
            to + QStringLiteral("-small")};
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
    for (const auto theme : {ThemeChoice::Light, ThemeChoice::Dark, ThemeChoice::Contrast})
        for (const QString &page : window->pageNames())
            steps.append(openPageStep(page, theme));
    const QString first = window->pageNames().value(0);
    steps.append(sizeStep(first, QStringLiteral("small"), QSize()));
    steps.append(backStep(QStringLiteral("list"),
                          [](ControlCenterWindow *shown) { return shown->moduleList(); }));
    steps.append(backStep(QStringLiteral("entries"), [](ControlCenterWindow *shown) {
        return shown->searchField()->parentWidget();
    }));
    steps.append(sizeStep(first, QStringLiteral("large"), QSize(2500, 1400)));
    steps.append(usualWindowStep(window->size()));
    return steps;
}

} // namespace controlcenter
