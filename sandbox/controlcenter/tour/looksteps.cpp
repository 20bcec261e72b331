#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/layoutcheck.h"
#include "sandbox/controlcenter/looks/contactsheet.h"
#include "sandbox/controlcenter/looks/sheetwindow.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"

#include <ztk/zpainting.h>

#include <QIcon>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <memory>

using Ztk::Widget::ZPainting;

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

namespace {

struct DrawnIcon
{
    QString name;
    int side; // px at usual scale: that of the icon's file
};

const QVector<DrawnIcon> &drawnIcons()
{
    static const QVector<DrawnIcon> all = {
        {QStringLiteral("zcc_nav_assistant_nor"), 32}, //
        {QStringLiteral("zcc_nav_dictate_nor"), 32},   //
        {QStringLiteral("zcc_nav_read_nor"), 32},      //
        {QStringLiteral("zcc_nav_translate_nor"), 32}, //
        {QStringLiteral("zcc_nav_voice"), 42},         //
        {QStringLiteral("zcc_nav_voice"), 84},
    };
    return all;
}

// Covers the window with one row of icons for each scale, each in a column of its own.
class IconSheet : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        constexpr qreal scales[] = {1, 1.5, 2};
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        const int columnWidth = width() / drawnIcons().size();
        const int rowHeight = height() / 3;
        for (int row = 0; row < 3; ++row) {
            const qreal scale = scales[row];
            for (int column = 0; column < drawnIcons().size(); ++column) {
                const DrawnIcon &drawn = drawnIcons().at(column);
                const QPointF middle((column + 0.5) * columnWidth, (row + 0.5) * rowHeight);
                const qreal half = drawn.side * scale / 2;
                painter.save();
                painter.translate((middle - QPointF(half, half)).toPoint());
                painter.scale(scale, scale);
                ZPainting::drawIcon(&painter, QRect(0, 0, drawn.side, drawn.side),
                                    QIcon::fromTheme(drawn.name),
                                    palette().color(QPalette::WindowText));
                painter.restore();
            }
        }
    }
};

TourStep sheetStep(const QPointer<QWidget> &sheet, bool dark)
{
    return {dark ? QStringLiteral("all icons (dark)") : QStringLiteral("all icons (light)"),
            [sheet, dark](TourDriver &driver) {
                driver.setDark(dark);
                sheet->resize(driver.window()->size());
                sheet->raise();
                sheet->show();
                for (const DrawnIcon &drawn : drawnIcons())
                    if (QIcon::fromTheme(drawn.name).isNull())
                        return QStringLiteral("there is no icon \"%1\"").arg(drawn.name);
                return QString();
            },
            dark ? QStringLiteral("icons-dark") : QStringLiteral("icons-light")};
}

TourStep hideStep(const QPointer<QWidget> &sheet)
{
    return {QStringLiteral("hide the icons"),
            [sheet](TourDriver &driver) {
                sheet->hide();
                driver.setDark(false);
                return QString();
            },
            QString()};
}

} // namespace

TourSteps iconSteps(const ControlCenterWindow *window)
{
    const QPointer<QWidget> sheet = new IconSheet(const_cast<ControlCenterWindow *>(window));
    setOverlay(sheet);
    return {sheetStep(sheet, false), sheetStep(sheet, true), hideStep(sheet)};
}

} // namespace controlcenter
