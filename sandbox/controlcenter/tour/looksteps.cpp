#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/looks/contactsheet.h"
#include "sandbox/controlcenter/looks/sheetwindow.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/controlcenter/tour/toursections.h"

#include <QTest>
#include <QWindow>

#include <memory>

namespace controlcenter {
namespace {

constexpr int longestDrawing = 240000; // ms, on a busy machine

TourStep sheetStep(const QString &place, const std::shared_ptr<ContactSheet> &sheet)
{
    return {QStringLiteral("see '%1' in every look and language").arg(place),
            [place, sheet](TourDriver &driver) {
                driver.showPicture(sheet->sheet(place));
                return sheet->problems(place).join(QStringLiteral("; "));
            },
            QStringLiteral("looks-") + place.toLower().replace(QLatin1Char(' '), QLatin1Char('-'))};
}

// As a person asks for the sheet of the page that is open.
TourStep keyStep(const QString &page)
{
    return {QStringLiteral("see '%1' in every look and language by F9").arg(page),
            [page](TourDriver &driver) {
                QString problem = driver.openPage(page);
                if (!problem.isEmpty())
                    return problem;
                driver.press(Qt::Key_F9);
                auto *sheet = driver.window()->findChild<SheetWindow *>();
                if (!sheet || !driver.waitFor([&] { return sheet->isDrawn(); }, longestDrawing))
                    return QStringLiteral("it is not shown");
                driver.showPicture(sheet->grab().toImage());
                QTest::keyClick(sheet->windowHandle(), Qt::Key_Escape);
                return sheet->isVisible() ? QStringLiteral("Escape does not close it") : QString();
            },
            QStringLiteral("looks-window")};
}

} // namespace

TourSteps lookSteps(const ControlCenterWindow *window)
{
    const QStringList places = window->places();
    const auto sheet = std::make_shared<ContactSheet>();
    TourSteps steps{{QStringLiteral("draw all pages in every look and language"),
                     [sheet, places](TourDriver &driver) {
                         sheet->draw(places);
                         return driver.waitFor([&] { return sheet->drawn() == sheet->all(); },
                                               longestDrawing)
                                    ? QString()
                                    : QStringLiteral("only %1 of %2 languages are drawn")
                                          .arg(sheet->drawn())
                                          .arg(sheet->all());
                     },
                     QString()}};
    for (const QString &place : places)
        steps.append(sheetStep(place, sheet));
    steps.append(keyStep(window->pageNames().value(0)));
    return steps;
}

} // namespace controlcenter
