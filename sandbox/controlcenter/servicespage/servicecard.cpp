#include "sandbox/controlcenter/servicespage/servicecard.h"

#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <zcc/widgets/settingsgroup.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/zpainting.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {

/** A service's state as a shape, for eyes that do not tell colours apart. As tall as its text. */
class StateIcon : public QWidget
{
public:
    void setState(ServiceWatch::State state)
    {
        m_state = state;
        update();
    }

    QSize sizeHint() const override
    {
        const int side = fontMetrics().ascent() + 2;
        return {side, side};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal side = qMin(width(), height());
        painter.translate(rect().center() + QPointF(0.5, 0.5));
        painter.scale(side / 16, side / 16);
        const QColor color = palette().color(QPalette::WindowText);
        QPen pen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        if (m_state == ServiceWatch::Running) {
            painter.setBrush(color);
            pen.setColor(palette().color(QPalette::Window));
        }
        painter.setPen(m_state == ServiceWatch::Running ? QPen(Qt::NoPen) : pen);
        painter.drawEllipse(QPointF(), 7, 7);
        painter.setPen(pen);
        switch (m_state) {
        case ServiceWatch::Running:
            painter.setBrush(Qt::NoBrush);
            painter.drawPolyline(QPolygonF({{-3.2, 0.2}, {-0.9, 2.5}, {3.4, -2.3}}));
            break;
        case ServiceWatch::Missing:
            painter.drawLine(QPointF(-2.6, -2.6), QPointF(2.6, 2.6));
            painter.drawLine(QPointF(-2.6, 2.6), QPointF(2.6, -2.6));
            break;
        case ServiceWatch::Silent:
            painter.drawLine(QPointF(0, -3.8), QPointF(0, 0));
            painter.drawLine(QPointF(0, 0), QPointF(2.6, 1.6));
            break;
        case ServiceWatch::Unknown:
            break;
        }
    }

private:
    ServiceWatch::State m_state = ServiceWatch::Unknown;
};

namespace {

// Qt would tell of a name that is set once more as of a change.
void setName(QWidget *widget, const QString &name)
{
    if (widget->accessibleName() != name)
        widget->setAccessibleName(name);
}

} // namespace

ServiceCard::ServiceCard(const QString &title, ServiceWatch *watch, QWidget *parent)
    : QWidget(parent)
    , m_watch(watch)
    , m_icon(new StateIcon)
    , m_state(new LeadingLabel)
    , m_busName(new LeadingLabel(watch->busName()))
    , m_group(new SettingsGroup)
{
    setAccessibleName(title);
    auto *heading = new LeadingLabel(title);
    QFont bold = heading->font();
    bold.setWeight(QFont::DemiBold);
    heading->setFont(bold);
    m_busName->setFont(ZFontSizeManager::instance()->get(ZFontSizeManager::T7, m_busName->font()));
    m_busName->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_group->setSpacing(1); // the rows stand as one block

    auto *head = new QHBoxLayout;
    head->setContentsMargins(10, 0, 10, 0);
    auto *names = new QVBoxLayout;
    names->setSpacing(2);
    names->addWidget(heading);
    names->addWidget(m_busName);
    head->addLayout(names);
    head->addStretch();
    head->addWidget(m_icon);
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
    QString words;
    switch (m_watch->state()) {
    case ServiceWatch::Running:
        words = tr("Running");
        break;
    case ServiceWatch::Silent:
        words = tr("Not answering");
        break;
    case ServiceWatch::Missing:
        words = tr("Not running");
        break;
    case ServiceWatch::Unknown:
        break;
    }
    m_state->setText(words);
    setAccessibleDescription(words);
    setName(m_state, m_watch->busName() + QStringLiteral(": ") + words);
    m_icon->setState(m_watch->state());
    showValues();
    updateColors();
}

void ServiceCard::showValues()
{
    const ServiceWatch::Values values = m_watch->values();
    while (m_rows.size() < values.size())
        addRow();
    for (int i = 0; i < m_rows.size(); ++i) {
        const Row &row = m_rows.at(i);
        row.item->setVisible(i < values.size());
        if (i >= values.size())
            continue;
        const auto &[key, value] = values.at(i);
        row.key->setText(key);
        row.value->setText(value);
        setName(row.value, key + QStringLiteral(": ") + value);
    }
    m_group->setVisible(!values.isEmpty());
}

void ServiceCard::addRow()
{
    auto *item = new SettingsItem;
    item->addBackground();
    const Row row{item, new LeadingLabel, new LeadingLabel};
    // Both: the style puts texts that cannot be selected into the middle, and leaves the others.
    for (QLabel *label : {row.key, row.value})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *layout = new QHBoxLayout(item);
    layout->addWidget(row.key);
    layout->addStretch();
    layout->addWidget(row.value);
    m_group->appendItem(item);
    m_rows.append(row);
}

void ServiceCard::updateColors()
{
    QPalette secondary = palette();
    secondary.setColor(QPalette::WindowText, secondaryTextColor(palette()));
    m_busName->setPalette(secondary);
    for (const Row &row : qAsConst(m_rows)) {
        row.value->setPalette(secondary);
        row.value->setEnabled(m_watch->state() == ServiceWatch::Running);
    }
}

} // namespace controlcenter
