#include "sandbox/controlcenter/searchfield.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <QKeyEvent>
#include <QPainter>

namespace controlcenter {
namespace {

constexpr int fieldHeight = 36; // px, a comfortable target
constexpr int glassRoom = 28;   // px, on the leading side
constexpr int textEdge = 12;    // px, around the text
constexpr qreal glassRadius = 4.5;

} // namespace

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
{
    setPlaceholderText(tr("Search settings"));
    setAccessibleName(tr("Search settings"));
    setMinimumHeight(fieldHeight);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(mirrored ? 0 : glassRoom, 0, mirrored ? glassRoom : 0, 0);
}

QSize SearchField::sizeHint() const
{
    const QSize usual = QLineEdit::sizeHint();
    const int text = fontMetrics().horizontalAdvance(placeholderText());
    return usual.expandedTo(QSize(glassRoom + text + 2 * textEdge, fieldHeight));
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        Q_EMIT moved(1);
        return;
    case Qt::Key_Up:
        Q_EMIT moved(-1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT accepted();
        return;
    case Qt::Key_Escape:
        clear();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void SearchField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT left();
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(secondaryTextColor(palette()), 1.6, Qt::SolidLine, Qt::RoundCap));
    const qreal leading = 12 + glassRadius;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const QPointF center(mirrored ? width() - leading - 3 : leading, height() / 2.0 - 1);
    painter.drawEllipse(center, glassRadius, glassRadius);
    const QPointF edge = center + QPointF(3.3, 3.3);
    painter.drawLine(edge, edge + QPointF(3.7, 3.7));
}

} // namespace controlcenter
