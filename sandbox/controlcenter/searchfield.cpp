#include "sandbox/controlcenter/searchfield.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/ziconbutton.h>

#include <QKeyEvent>
#include <QPainter>

using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZIconButton;

namespace controlcenter {
namespace {

constexpr int fieldHeight = 36;        // px, a comfortable target
constexpr int textMargin = 12;         // px, around the text
constexpr int clearSide = 28;          // px, of the button on the trailing side
constexpr int clearEdge = 4;           // px, from the button to the field's edges
constexpr int usualMagnifierRoom = 28; // px, on the leading side
constexpr qreal magnifierRadius = 4.5;

int magnifierRoom()
{
    return ZFontSizeManager::instance()->scaled(usualMagnifierRoom);
}

} // namespace

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
    , m_clearButton(new ZIconButton(this))
{
    setPlaceholderText(tr("Search settings"));
    setAccessibleName(tr("Search settings"));
    setAccessibleDescription(hint());
    setMinimumHeight(fieldHeight);

    m_clearButton->setIcon(QIcon::fromTheme(QStringLiteral("zcc_clear")));
    m_clearButton->setAccessibleName(tr("Clear search"));
    m_clearButton->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the field
    m_clearButton->setCursor(Qt::ArrowCursor);
    m_clearButton->hide();
    connect(m_clearButton, &QAbstractButton::clicked, this, [this] {
        setFocus();
        clear();
    });
    connect(this, &QLineEdit::textChanged, this, &SearchField::placeParts);
    placeParts();
}

QString SearchField::hint()
{
    return tr("Up and Down choose a result, Enter opens it");
}

QSize SearchField::sizeHint() const
{
    const QSize usual = QLineEdit::sizeHint();
    const int text = fontMetrics().horizontalAdvance(placeholderText());
    return usual.expandedTo(
        QSize(magnifierRoom() + text + 2 * textMargin + clearSide + clearEdge, fieldHeight));
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

void SearchField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    placeParts();
}

void SearchField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        placeParts();
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(secondaryTextColor(palette()), 1.6, Qt::SolidLine, Qt::RoundCap));
    const qreal scale = magnifierRoom() / qreal(usualMagnifierRoom);
    const qreal leading = 12 + magnifierRadius * scale;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    painter.translate(mirrored ? width() - leading - 3 * scale : leading, height() / 2.0 - scale);
    painter.scale(scale, scale);
    painter.drawEllipse(QPointF(), magnifierRadius, magnifierRadius);
    painter.drawLine(QPointF(3.3, 3.3), QPointF(7, 7));
}

void SearchField::placeParts()
{
    const bool clearable = !text().isEmpty();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int trailing = clearable ? clearSide + clearEdge : 0;
    setTextMargins(mirrored ? trailing : magnifierRoom(), 0, mirrored ? magnifierRoom() : trailing,
                   0);
    m_clearButton->setVisible(clearable);
    m_clearButton->setGeometry(QStyle::visualRect(
        layoutDirection(), rect(),
        QRect(width() - clearEdge - clearSide, (height() - clearSide) / 2, clearSide, clearSide)));
}

} // namespace controlcenter
