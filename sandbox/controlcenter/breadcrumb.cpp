#include "sandbox/controlcenter/breadcrumb.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {

Breadcrumb::Breadcrumb(QWidget *parent)
    : QWidget(parent)
    , m_entry(new LeadingLabel)
    , m_arrow(new LeadingLabel)
    , m_page(new LeadingLabel)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addSpacing(pageMargin); // in line with what is on the pages
    for (QLabel *label : {m_entry, m_arrow, m_page}) {
        // Not read out: the whole has a name. Without one of its own, a label tells of each text.
        label->setAccessibleName(QStringLiteral("-"));
        layout->addWidget(label);
    }
    layout->addStretch();
    updateFonts();
    updateColors();
}

void Breadcrumb::setPath(const QString &entry, const QString &page)
{
    m_entryText = entry;
    m_pageText = page;
    setAccessibleName(page.isEmpty() ? entry : entry + QStringLiteral(", ") + page);
    showPath();
}

void Breadcrumb::reserveWidthFor(const QString &entry, const QString &page)
{
    setPath(entry, page);
    m_reservedWidth = qMax(m_reservedWidth, layout()->totalMinimumSize().width());
    setMinimumWidth(m_reservedWidth);
}

void Breadcrumb::setParts(bool entry, bool page)
{
    m_entryShown = entry;
    m_pageShown = page;
    showPath();
}

QString Breadcrumb::page() const
{
    return m_pageText.isEmpty() ? m_entryText : m_pageText;
}

void Breadcrumb::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updateColors();
    else if (event->type() == QEvent::FontChange)
        updateFonts();
    QWidget::changeEvent(event);
}

void Breadcrumb::showPath()
{
    const bool both = m_entryShown && m_pageShown;
    const bool path = both && !m_pageText.isEmpty();
    m_entry->setText(m_entryText);
    m_entry->setVisible(path);
    m_arrow->setText(QStringLiteral("›")); // mirrored by the text layout where that is due
    m_arrow->setVisible(path);
    m_page->setText(m_pageShown ? page() : m_entryText);
    m_page->setWordWrap(!both);
    static_cast<QHBoxLayout *>(layout())->setStretchFactor(m_page, both ? 0 : 1);
    setMinimumWidth(both ? m_reservedWidth : 0);
}

void Breadcrumb::updateFonts()
{
    const QFont font = ZFontSizeManager::instance()->get(ZFontSizeManager::T5, this->font());
    QFont heading = font;
    heading.setWeight(QFont::DemiBold);
    m_entry->setFont(font);
    m_arrow->setFont(font);
    m_page->setFont(heading);
}

void Breadcrumb::updateColors()
{
    QPalette secondary = palette();
    secondary.setColor(QPalette::WindowText, secondaryTextColor(palette()));
    m_entry->setPalette(secondary);
    m_arrow->setPalette(secondary);
}

BackButton::BackButton(QWidget *parent)
    : Ztk::Widget::ZIconButton(parent)
{
    setAccessibleName(tr("Back"));
    setToolTip(tr("Back to the list"));
}

void BackButton::paintEvent(QPaintEvent *event)
{
    ZIconButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    const qreal scale = Ztk::Widget::ZFontSizeManager::instance()->scaled(100) / 100.0;
    painter.scale(layoutDirection() == Qt::RightToLeft ? -scale : scale, scale);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.7, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{2.5, -6}, {-3.5, 0}, {2.5, 6}}));
}

} // namespace controlcenter
