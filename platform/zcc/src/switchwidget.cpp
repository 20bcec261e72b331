#include "zcc/widgets/switchwidget.h"
#include "zcc/widgets/tipslabel.h"

#include "switchbutton.h"

#include <QHBoxLayout>
#include <QLabel>

namespace zcc {
namespace widgets {

SwitchButton::SwitchButton(QWidget *parent) : QAbstractButton(parent) { setCheckable(true); }
QSize SwitchButton::sizeHint() const { return QSize(50, 24); }
void SwitchButton::paintEvent(QPaintEvent *) {}

SwitchWidget::SwitchWidget(const QString &title, QWidget *parent)
    : SettingsItem(parent), m_title(new QLabel(title)), m_button(new SwitchButton)
{
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_title, 1);
    layout->addWidget(m_button);
    connect(m_button, &QAbstractButton::toggled, this, &SwitchWidget::checkedChanged);
}
bool SwitchWidget::checked() const { return m_button->isChecked(); }
QString SwitchWidget::title() const { return m_title->text(); }
void SwitchWidget::setChecked(bool checked) { m_button->setChecked(checked); }
void SwitchWidget::setTitle(const QString &title) { m_title->setText(title); }

TipsLabel::TipsLabel(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    setForegroundRole(QPalette::Text);
}

} // namespace widgets
} // namespace zcc
