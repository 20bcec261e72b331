#include "pages/wordslabel.h"

#include <QPainter>
#include <QtMath>

WordsLabel::WordsLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setWordWrap(true);
}

QSize WordsLabel::sizeHint() const
{
    // Of a width that is ignored, a layout gives what it has.
    return QSize(QWIDGETSIZE_MAX, fontMetrics().height());
}

QSize WordsLabel::minimumSizeHint() const
{
    return QSize(0, fontMetrics().height());
}

int WordsLabel::heightForWidth(int width) const
{
    return qCeil(lines(width).boundingRect().height());
}

void WordsLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const int free = height() - heightForWidth(width());
    lines(width()).draw(&painter, QPointF(0, qMax(0, free / 2)));
}

const QTextLayout &WordsLabel::lines(int width) const
{
    const QString shown = text().replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
    if (m_linesWidth == width && m_lines.text() == shown && m_lines.font() == font())
        return m_lines;

    QTextOption option(Qt::AlignHCenter);
    // The words' own, whatever the interface's.
    option.setTextDirection(shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_lines.setTextOption(option);
    m_lines.setFont(font());
    m_lines.setText(shown);
    m_lines.setCacheEnabled(true); // or every drawing would look for the letters' shapes again
    m_linesWidth = width;

    qreal y = 0;
    m_lines.beginLayout();
    for (QTextLine line = m_lines.createLine(); line.isValid(); line = m_lines.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += line.height();
    }
    m_lines.endLayout();
    return m_lines;
}
