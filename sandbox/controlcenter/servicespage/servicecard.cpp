#include "sandbox/controlcenter/servicespage/servicecard.h"

#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <zcc/widgets/settingsgroup.h>
#include <ztk/zfontsizemanager.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

QLabel *plainLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ServiceCard::ServiceCard(const QString &title, ServiceWatch *watch, QWidget *parent)
    : QWidget(parent)
    , m_watch(watch)
    , m_state(plainLabel(QString()))
    , m_group(new SettingsGroup)
{
    QLabel *heading = plainLabel(title);
    QFont bold = heading->font();
    bold.setWeight(QFont::DemiBold);
    heading->setFont(bold);
    m_state->setFont(ZFontSizeManager::instance()->get(ZFontSizeManager::T8, m_state->font()));
    m_group->setSpacing(1); // the rows stand as one block

    auto *head = new QHBoxLayout;
    head->setContentsMargins(10, 0, 10, 0);
    head->addWidget(heading);
    head->addStretch();
    head->addWidget(m_state);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addLayout(head);
    layout->addWidget(m_group);

    connect(m_watch, &ServiceWatch::changed, this, &ServiceCard::showState);
    showState();
}

void ServiceCard::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updateColors();
    QWidget::changeEvent(event);
}

void ServiceCard::showState()
{
    m_state->setText(m_watch->state() == ServiceWatch::Missing
                         ? tr("%1 is not running").arg(m_watch->busName())
                         : m_watch->busName());
    const QMap<QString, QString> values = m_watch->values();
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        showValue(value.key(), value.value());
    m_group->setVisible(!m_values.isEmpty());
    updateColors();
}

void ServiceCard::showValue(const QString &key, const QString &text)
{
    QLabel *label = m_values.value(key);
    if (!label)
        label = addRow(key);
    label->setText(text);
    label->setAccessibleName(key + QStringLiteral(": ") + text);
}

QLabel *ServiceCard::addRow(const QString &key)
{
    auto *row = new SettingsItem;
    row->addBackground();
    QLabel *value = plainLabel(QString());
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *layout = new QHBoxLayout(row);
    layout->addWidget(plainLabel(key));
    layout->addStretch();
    layout->addWidget(value);
    m_group->appendItem(row);
    m_values.insert(key, value);
    return value;
}

void ServiceCard::updateColors()
{
    QPalette secondary = palette();
    secondary.setColor(QPalette::WindowText, secondaryTextColor(palette()));
    m_state->setPalette(secondary);
    for (QLabel *value : qAsConst(m_values)) {
        value->setPalette(secondary);
        value->setEnabled(m_watch->state() == ServiceWatch::Running);
    }
}

} // namespace controlcenter
