#include "sandbox/controlcenter/breadcrumb.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {

Breadcrumb::Breadcrumb(QWidget *parent)
    : QWidget(parent)
    , m_entry(new QLabel(this))
    , m_arrow(new QLabel(this))
    , m_page(new QLabel(this))
{
    const QFont font = ZFontSizeManager::instance()->get(ZFontSizeManager::T5, this->font());
    QFont heading = font;
    heading.setWeight(QFont::DemiBold);
    m_entry->setFont(font);
    m_arrow->setFont(font);
    m_page->setFont(heading);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (QLabel *label : {m_entry, m_arrow, m_page}) {
        label->setTextFormat(Qt::PlainText);
        layout->addWidget(label);
    }
    layout->addStretch();
    updateColors();
}

void Breadcrumb::setPath(const QString &entry, const QString &page)
{
    const bool both = !page.isEmpty();
    m_entry->setText(entry);
    m_entry->setVisible(both);
    m_arrow->setText(QStringLiteral("›")); // mirrored by the text layout where that is due
    m_arrow->setVisible(both);
    m_page->setText(both ? page : entry);
    setAccessibleName(both ? entry + QStringLiteral(", ") + page : entry);
}

void Breadcrumb::reserveWidthFor(const QString &entry, const QString &page)
{
    setPath(entry, page);
    setMinimumWidth(qMax(minimumWidth(), layout()->totalMinimumSize().width()));
}

QString Breadcrumb::page() const
{
    return m_page->text();
}

void Breadcrumb::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updateColors();
    QWidget::changeEvent(event);
}

void Breadcrumb::updateColors()
{
    QPalette secondary = palette();
    secondary.setColor(QPalette::WindowText, secondaryTextColor(palette()));
    m_entry->setPalette(secondary);
    m_arrow->setPalette(secondary);
}

} // namespace controlcenter
