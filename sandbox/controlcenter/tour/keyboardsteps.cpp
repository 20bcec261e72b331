#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"

#include <QApplication>

#include <algorithm>

namespace controlcenter {
namespace {

QString describe(QWidget *widget)
{
    const QString name = accessibleNameOf(widget);
    return name.isEmpty() ? QString::fromLatin1(widget->metaObject()->className()) : name;
}

// The window's picture inside a widget and a little around it, where a focus frame may be.
QImage around(const QImage &window, const QWidget *widget)
{
    constexpr int frame = 4; // px
    const QRect area(widget->mapTo(widget->window(), QPoint()), widget->size());
    const qreal scale = window.devicePixelRatio();
    const QRect wide = area.adjusted(-frame, -frame, frame, frame);
    return window.copy(QRect(wide.topLeft() * scale, wide.size() * scale));
}

// Presses a key until the search field has the focus again, collecting the stops on the way.
QString goRound(TourDriver &driver, int key, Qt::KeyboardModifiers modifiers,
                QVector<QWidget *> *stops)
{
    SearchField *start = driver.window()->searchField();
    start->setFocus(Qt::ShortcutFocusReason);
    QString unseen;
    const auto press = [&] {
        const QImage before = driver.grab();
        driver.press(key, modifiers);
        QWidget *focus = QApplication::focusWidget();
        if (focus && around(before, focus) == around(driver.grab(), focus))
            unseen += QStringLiteral("the focus on \"%1\" cannot be seen. ").arg(describe(focus));
    };
    *stops = focusStops(press, start);
    if (!stops->contains(start))
        return QStringLiteral("the focus does not come round after %1 stops").arg(stops->size());
    stops->removeLast();
    return unseen;
}

// Goes from the search field to all of the controls and back; each stop must be seen.
QString walk(TourDriver &driver, const QVector<QWidget *> &controls)
{
    if (controls.isEmpty())
        return QStringLiteral("the page has no controls");
    QVector<QWidget *> there;
    QString problem = goRound(driver, Qt::Key_Tab, Qt::NoModifier, &there);
    if (!problem.isEmpty())
        return problem;
    for (QWidget *control : controls) {
        if (!there.contains(control))
            return QStringLiteral("Tab does not lead to \"%1\"").arg(describe(control));
        if (accessibleNameOf(control).isEmpty())
            return QStringLiteral("a %1 has no name").arg(describe(control));
    }

    QVector<QWidget *> back;
    problem = goRound(driver, Qt::Key_Backtab, Qt::ShiftModifier, &back);
    if (!problem.isEmpty())
        return QStringLiteral("backwards: ") + problem;
    std::reverse(back.begin(), back.end());
    return back == there ? QString() : QStringLiteral("Shift+Tab does not go the same way back");
}

TourStep walkStep(const QString &page)
{
    return {QStringLiteral("reach every control of '%1' by keyboard").arg(page),
            [page](TourDriver &driver) {
                QString problem = driver.openPage(page);
                return problem.isEmpty() ? walk(driver, controlsOf(driver.window()->currentPage()))
                                         : problem;
            },
            QString()};
}

// The same for a page of the window's own.
TourStep walkOwnStep(const QString &page, void (ControlCenterWindow::*open)())
{
    return {QStringLiteral("reach every control of '%1' by keyboard").arg(page),
            [open](TourDriver &driver) {
                (driver.window()->*open)();
                driver.settle();
                return walk(driver, controlsOf(driver.window()->currentContent()));
            },
            QString()};
}

} // namespace

TourSteps keyboardSteps(const ControlCenterWindow *window)
{
    TourSteps steps;
    for (const QString &page : window->pageNames())
        steps.append(walkStep(page));
    steps.append(walkOwnStep(QStringLiteral("Shortcuts"), &ControlCenterWindow::openShortcuts));
    steps.append(walkOwnStep(QStringLiteral("Services"), &ControlCenterWindow::openServices));
    return steps;
}

} // namespace controlcenter
