#include "zcc/widgets/switchwidget.h"

#include "leadingalignment.h"
#include "switchbutton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

namespace zcc {
namespace widgets {

namespace {
constexpr int minimumRowHeight = 48;
constexpr int verticalPadding = 6;
// The switch keeps room for its focus ring around itself; its track ends at the row's padding.
constexpr int switchRingSpace = 4;
} // namespace

SwitchWidget::SwitchWidget(const QString &title, QWidget *parent)
    : SettingsItem(parent)
    , m_title(new QLabel(this))
    , m_button(new SwitchButton(this))
{
    m_title->setObjectName(QStringLiteral("switchTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_button->setObjectName(QStringLiteral("switchButton"));
    setFocusProxy(m_button);
    setMinimumHeight(minimumRowHeight);

    auto *layout = new QHBoxLayout(this);
    layout->setSpacing(rowPadding);
    layout->addWidget(m_title, 1);
    layout->addWidget(m_button);
    mirrorParts();
    setTitle(title);

    connect(m_button, &SwitchButton::switched, this, &SwitchWidget::checkedChanged);
}

bool SwitchWidget::checked() const
{
    return m_button->isChecked();
}

QString SwitchWidget::title() const
{
    return m_title->text();
}

void SwitchWidget::setChecked(bool checked)
{
    m_button->setSwitched(checked);
}

void SwitchWidget::setTitle(const QString &title)
{
    m_title->setText(title);
    m_button->setAccessibleName(title);
}

void SwitchWidget::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton;
    if (!m_pressed) {
        SettingsItem::mousePressEvent(event);
        return;
    }
    m_button->setFocus(Qt::MouseFocusReason);
    m_button->setDown(true);
}

void SwitchWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_pressed || event->button() != Qt::LeftButton) {
        SettingsItem::mouseReleaseEvent(event);
        return;
    }
    m_pressed = false;
    m_button->setDown(false);
    if (rect().contains(event->pos()))
        m_button->click();
}

void SwitchWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        mirrorParts();
    SettingsItem::changeEvent(event);
}

void SwitchWidget::mirrorParts()
{
    m_title->setAlignment(leadingAlignment(this));
    const int leading = rowPadding;
    const int trailing = rowPadding - switchRingSpace;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    layout()->setContentsMargins(mirrored ? trailing : leading, verticalPadding,
                                 mirrored ? leading : trailing, verticalPadding);
}

} // namespace widgets
} // namespace zcc
