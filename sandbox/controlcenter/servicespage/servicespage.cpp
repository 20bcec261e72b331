#include "sandbox/controlcenter/servicespage/servicespage.h"

#include "sandbox/controlcenter/servicespage/servicecard.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfocustracker.h>
#include <ztk/zpainting.h>

#include <QEvent>
#include <QHash>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

using Ztk::Widget::ZFocusTracker;
using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int cardSpacing = 18; // px

} // namespace

ServicesPage::ServicesPage(QWidget *parent)
    : PageArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // cards keep their place when rows come
    setAccessibleName(tr("Services"));

    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, 0, pageMargin, pageMargin);
    layout->setSpacing(cardSpacing);
    auto *world = new QPushButton(tr("World"));
    world->setToolTip(tr("Steer the services and whatever else the settings depend on (F12)"));
    connect(world, &QPushButton::clicked, this, &ServicesPage::worldRequested);
    layout->addWidget(world, 0, Qt::AlignTrailing);
    for (const sandbox::ServiceIdentity &service : sandbox::serviceList()) {
        auto *watch = new ServiceWatch(service, this);
        m_watches.append(watch);
        watch->refresh(); // so that the rows are known before they are drawn
        layout->addWidget(new ServiceCard(titleOf(service.name), watch));
    }
    layout->addStretch();
    setPage(page);
}

QVector<ServiceWatch *> ServicesPage::watches() const
{
    return m_watches;
}

QString ServicesPage::titleOf(const QString &name)
{
    const QHash<QString, QString> titles{
        {QStringLiteral("assistant"), tr("Assistant")},
        {QStringLiteral("dock"), tr("Dock icon")},
        {QStringLiteral("keybinding"), tr("Shortcuts")},
        {QStringLiteral("aiservice"), tr("AI service")},
        {QStringLiteral("audio"), tr("Sound")},
        {QStringLiteral("networkmanager"), tr("Network")},
    };
    return titles.value(name, name);
}

bool ServicesPage::event(QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        viewport()->update(); // it draws the focus ring
    return PageArea::event(event);
}

void ServicesPage::paintEvent(QPaintEvent *event)
{
    PageArea::paintEvent(event);
    if (!ZFocusTracker::showsFocus(this))
        return;
    QPainter painter(viewport());
    ZPainting::drawFocusRing(&painter, viewport()->rect().adjusted(2, 2, -2, -2),
                             ZPainting::cardRadius, palette());
}

void ServicesPage::showEvent(QShowEvent *event)
{
    PageArea::showEvent(event);
    setFollowing(true);
}

void ServicesPage::hideEvent(QHideEvent *event)
{
    setFollowing(false);
    PageArea::hideEvent(event);
}

// Of a minimised window, and of its parts that are hidden then, each is told twice.
void ServicesPage::setFollowing(bool following)
{
    if (following == m_following)
        return;
    m_following = following;
    for (ServiceWatch *watch : qAsConst(m_watches))
        watch->setFollowing(following);
}

} // namespace controlcenter
