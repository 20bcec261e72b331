#include "sandbox/controlcenter/searchfield.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <QKeyEvent>
#include <QPainter>

namespace controlcenter {
namespace {

constexpr int fieldHeight = 36;   // px, a comfortable target
constexpr int magnifierRoom = 28; // px, on the leading side
constexpr int textMargin = 12;    // px, around the text
constexpr qreal magnifierRadius = 4.5;

} // namespace

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
{
    setPlaceholderText(tr("Search settings"));
    setAccessibleName(tr("Search settings"));
    setMinimumHeight(fieldHeight);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(mirrored ? 0 : magnifierRoom, 0, mirrored ? magnifierRoom : 0, 0);
}

QSize SearchField::sizeHint() const
{
    const QSize usual = QLineEdit::sizeHint();
    const int text = fontMetrics().horizontalAdvance(placeholderText());
    return usual.expandedTo(QSize(magnifierRoom + text + 2 * textMargin, fieldHeight));
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
        Q_EMIT focusLost();
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(secondaryTextColor(palette()), 1.6, Qt::SolidLine, Qt::RoundCap));
    const qreal leading = 12 + magnifierRadius;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const QPointF center(mirrored ? width() - leading - 3 : leading, height() / 2.0 - 1);
    painter.drawEllipse(center, magnifierRadius, magnifierRadius);
    const QPointF edge = center + QPointF(3.3, 3.3);
    painter.drawLine(edge, edge + QPointF(3.7, 3.7));
}

} // namespace controlcenter
