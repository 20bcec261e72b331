#include "sandbox/controlcenter/servicespage/servicespage.h"

#include "sandbox/controlcenter/layoutcheck.h"
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
constexpr int ringRoom = 4;     // px, above the first control

// Above the cards, which are scrolled below it.
class FocusRing : public QWidget
{
public:
    explicit FocusRing(QWidget *page)
        : QWidget(page)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setOverlay(this);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!ZFocusTracker::showsFocus(parentWidget()))
            return;
        QPainter painter(this);
        ZPainting::drawFocusRing(&painter, rect(), ZPainting::cardRadius, palette());
    }
};

} // namespace

ServicesPage::ServicesPage(ServiceWatches *watches, QWidget *parent)
    : PageArea(parent)
    , m_watches(watches)
    , m_focusRing(new FocusRing(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // cards keep their place when rows come
    setAccessibleName(tr("Services"));

    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(pageMargin, ringRoom, pageMargin, pageMargin);
    layout->setSpacing(cardSpacing);
    auto *world = new QPushButton(tr("World"));
    world->setToolTip(tr("Steer the services and whatever else the settings depend on (F12)"));
    connect(world, &QPushButton::clicked, this, &ServicesPage::worldRequested);
    layout->addWidget(world, 0, Qt::AlignTrailing);
    for (ServiceWatch *watch : m_watches->all())
        layout->addWidget(new ServiceCard(titleOf(watch->name()), watch));
    layout->addStretch();
    setPage(page);
    // No card moves when its rows come.
    page->setVisible(m_watches->isKnown());
    connect(m_watches, &ServiceWatches::known, page, &QWidget::show);
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
        m_focusRing->update();
    return PageArea::event(event);
}

void ServicesPage::resizeEvent(QResizeEvent *event)
{
    PageArea::resizeEvent(event);
    m_focusRing->setGeometry(viewport()->geometry());
    m_focusRing->raise();
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
    for (ServiceWatch *watch : m_watches->all())
        watch->setFollowing(following);
}

} // namespace controlcenter
