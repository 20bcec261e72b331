#include "sandbox/controlcenter/servicespage/servicespage.h"

#include "sandbox/controlcenter/servicespage/servicecard.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfocustracker.h>
#include <ztk/zpainting.h>

#include <QDBusConnection>
#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

using Ztk::Widget::ZFocusTracker;
using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int cardSpacing = 18; // px

} // namespace

ServicesPage::ServicesPage(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    viewport()->setAutoFillBackground(false);
    setAccessibleName(tr("Services"));

    struct Service
    {
        QString title;
        const char *name;
        const char *busName;
        QDBusConnection bus;
    };
    const QDBusConnection session = QDBusConnection::sessionBus();
    const Service services[] = {
        {tr("Assistant"), "assistant", "com.corvane.aiassistant", session},
        {tr("Dock icon"), "dock", "com.corvane.aiassistant.dock", session},
        {tr("Shortcuts"), "keybinding", "com.tavren.daemon.Keybinding", session},
        {tr("AI service"), "aiservice", "com.corvane.aiservice", session},
        {tr("Sound"), "audio", "com.tavren.daemon.Audio", session},
        {tr("Network"), "networkmanager", "org.freedesktop.NetworkManager",
         QDBusConnection::systemBus()},
    };

    auto *page = new QWidget;
    page->setMaximumWidth(widestPage);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, 0, pageMargin, pageMargin);
    layout->setSpacing(cardSpacing);
    for (const Service &service : services) {
        auto *watch = new ServiceWatch(QLatin1String(service.name), QLatin1String(service.busName),
                                       service.bus, this);
        m_watches.append(watch);
        layout->addWidget(new ServiceCard(service.title, watch));
    }
    layout->addStretch();
    setWidget(page);
    page->setAutoFillBackground(false); // the scroll area turns it on
}

bool ServicesPage::event(QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        viewport()->update(); // it carries the ring
    return QScrollArea::event(event);
}

void ServicesPage::paintEvent(QPaintEvent *event)
{
    QScrollArea::paintEvent(event);
    if (!ZFocusTracker::showsFocus(this))
        return;
    QPainter painter(viewport());
    ZPainting::drawFocusRing(&painter, viewport()->rect().adjusted(2, 2, -2, -2),
                             ZPainting::CardRadius, palette());
}

void ServicesPage::showEvent(QShowEvent *event)
{
    QScrollArea::showEvent(event);
    for (ServiceWatch *watch : qAsConst(m_watches))
        watch->refresh();
}

} // namespace controlcenter
