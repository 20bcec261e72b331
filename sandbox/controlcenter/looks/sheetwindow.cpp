#include "sandbox/controlcenter/looks/sheetwindow.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace controlcenter {
namespace {

constexpr int longestList = 12; // problems; the rest is seen on the sheet

} // namespace

SheetWindow::SheetWindow(QWidget *window)
    : QWidget(window, Qt::Window)
    , m_state(new QLabel)
    , m_picture(new QLabel)
    , m_area(new QScrollArea)
{
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidget(m_picture);
    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // texts come and go
    layout->addWidget(m_state);
    layout->addWidget(m_area, 1);
    connect(&m_sheet, &ContactSheet::progressed, this, &SheetWindow::showProgress);
}

void SheetWindow::draw(const QString &place, const QString &title)
{
    m_place = place;
    setWindowTitle(tr("All looks of “%1”").arg(title));
    m_area->setAccessibleName(windowTitle());
    m_picture->clear();
    m_picture->adjustSize();
    m_sheet.draw({place});
    resize(parentWidget()->size());
    show();
    activateWindow();
    m_area->setFocus(); // the arrow keys scroll it
    showProgress();
}

bool SheetWindow::isDrawn() const
{
    return isVisible() && m_sheet.drawn() == m_sheet.all();
}

void SheetWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void SheetWindow::showProgress()
{
    if (m_sheet.drawn() < m_sheet.all()) {
        m_state->setText(tr("Drawing: %1 of %2 languages").arg(m_sheet.drawn()).arg(m_sheet.all()));
        return;
    }
    const QStringList problems = m_sheet.problems(m_place);
    QStringList lines(problems.isEmpty() ? tr("Nothing is marked.")
                                         : tr("Marked: %1").arg(problems.size()));
    m_state->setText((lines + problems.mid(0, longestList)).join(QLatin1Char('\n')));
    m_picture->setPixmap(QPixmap::fromImage(m_sheet.sheet(m_place)));
    m_picture->adjustSize();
    QAccessibleEvent alert(m_state, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace controlcenter
