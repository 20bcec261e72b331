#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowstyle.h"
#include "sandbox/controlcenter/worlddrawer/faultrow.h"
#include "sandbox/controlcenter/worlddrawer/faulttexts.h"
#include "sandbox/controlcenter/worlddrawer/valuerow.h"

#include <zcc/widgets/settingsgroup.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/ziconbutton.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

using zcc::widgets::SettingsGroup;
using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZIconButton;

namespace controlcenter {
namespace {

constexpr int usualWidth = 360; // px, with usual texts
constexpr int headHeight = 60;  // px, as the window's
constexpr int margin = 10;      // px
constexpr int groupSpacing = 8;
constexpr int rowSpacing = 1; // px: the rows stand as one block

QLabel *boldLabel(const QString &text)
{
    auto *label = new QLabel(text);
    QFont bold = label->font();
    bold.setWeight(QFont::DemiBold);
    label->setFont(bold);
    label->setTextFormat(Qt::PlainText);
    return label;
}

// Appends a group with a heading.
SettingsGroup *addGroup(QVBoxLayout *body, const QString &title)
{
    QLabel *heading = boldLabel(title);
    heading->setContentsMargins(margin, 0, margin, 0);
    auto *group = new SettingsGroup;
    group->setSpacing(rowSpacing);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred); // rows wrap their texts
    body->addWidget(heading);
    body->addWidget(group);
    body->addSpacing(groupSpacing);
    return group;
}

} // namespace

WorldDrawer::WorldDrawer(const QVector<ServiceWatch *> &watches, QWidget *parent)
    : QWidget(parent)
{
    setAccessibleName(tr("World"));
    for (ServiceWatch *watch : watches)
        m_watches.append(watch);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0); // the edge towards the content
    layout->setSpacing(0);
    layout->addWidget(buildHead());
    layout->addWidget(buildBody(), 1);
}

QSize WorldDrawer::sizeHint() const
{
    const int needed =
        m_body->minimumSizeHint().width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {qMax(ZFontSizeManager::instance()->scaled(usualWidth), needed + 1), 0};
}

bool WorldDrawer::isSettled() const
{
    return std::none_of(m_watches.cbegin(), m_watches.cend(),
                        [](const ServiceWatch *watch) { return watch && watch->isCausing(); });
}

void WorldDrawer::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

void WorldDrawer::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeRequested();
    else
        QWidget::keyPressEvent(event);
}

void WorldDrawer::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    setFollowing(true);
}

void WorldDrawer::hideEvent(QHideEvent *event)
{
    setFollowing(false);
    QWidget::hideEvent(event);
}

void WorldDrawer::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), sideBarColor(palette()));
    const int edge = layoutDirection() == Qt::RightToLeft ? width() - 1 : 0;
    painter.fillRect(edge, 0, 1, height(), separatorColor(palette()));
}

QWidget *WorldDrawer::buildHead()
{
    auto *head = new QWidget;
    head->setMinimumHeight(headHeight);
    auto *close = new ZIconButton;
    close->setIcon(QIcon::fromTheme(QStringLiteral("zcc_clear")));
    close->setAccessibleName(tr("Close"));
    close->setToolTip(tr("Close"));
    connect(close, &ZIconButton::clicked, this, &WorldDrawer::closeRequested);
    auto *layout = new QHBoxLayout(head);
    layout->setContentsMargins(margin, 0, margin, 0);
    layout->addSpacing(margin);
    layout->addWidget(boldLabel(tr("World")), 1);
    layout->addWidget(close);
    return head;
}

QWidget *WorldDrawer::buildBody()
{
    m_body = new QWidget;
    auto *layout = new QVBoxLayout(m_body);
    layout->setContentsMargins(margin, 0, margin, margin);
    layout->setSpacing(groupSpacing);
    addServices(layout);
    addSurroundings(layout);
    layout->addStretch();

    auto *area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // Tab goes from control to control
    area->viewport()->setAutoFillBackground(false);
    area->setWidget(m_body);
    m_body->setAutoFillBackground(false);
    return area;
}

void WorldDrawer::addServices(QVBoxLayout *body)
{
    SettingsGroup *group = addGroup(body, tr("Services"));
    for (ServiceWatch *watch : qAsConst(m_watches))
        group->appendItem(new FaultRow(ServicesPage::titleOf(watch->name()), watch));
}

void WorldDrawer::addSurroundings(QVBoxLayout *body)
{
    SettingsGroup *group = addGroup(body, tr("Surroundings"));

    const QString plugged = QStringLiteral("microphone.plugged");
    QVector<ValueRow::Choice> sounds;
    for (const auto &[text, sound] : {qMakePair(tr("Voice"), QStringLiteral("speech")),
                                      qMakePair(tr("Voice in noise"), QStringLiteral("noise")),
                                      qMakePair(tr("Too loud"), QStringLiteral("loud")),
                                      qMakePair(tr("Too quiet"), QStringLiteral("quiet")),
                                      qMakePair(tr("Silence"), QStringLiteral("silence"))})
        sounds.append({text, {{plugged, true}, {QStringLiteral("microphone.sound"), sound}}, {}});
    sounds.append({tr("Unplugged"), {{plugged, false}}, {}});
    group->appendItem(new ValueRow(tr("Microphone"), watch(QStringLiteral("audio")), sounds));

    ServiceWatch *network = watch(QStringLiteral("networkmanager"));
    // To the module every other state is none at all, as when nobody answers.
    const QStringList unconnected = faultSentences(network->busName(), {sandbox::Fault::Stopped});
    const QString state = QStringLiteral("state");
    group->appendItem(new ValueRow(tr("Connection"), network,
                                   {{tr("Connected"), {{state, 70u}}, {}},
                                    {tr("Local network only"), {{state, 50u}}, unconnected},
                                    {tr("Connecting"), {{state, 40u}}, unconnected},
                                    {tr("Disconnected"), {{state, 20u}}, unconnected}}));

    const QString hidden = QStringLiteral("hidden");
    group->appendItem(
        new ValueRow(tr("Icon in the dock"), watch(QStringLiteral("dock")),
                     {{tr("Shown"), {{hidden, false}}, {}}, {tr("Hidden"), {{hidden, true}}, {}}}));
}

ServiceWatch *WorldDrawer::watch(const QString &service) const
{
    const auto found =
        std::find_if(m_watches.cbegin(), m_watches.cend(),
                     [&](const ServiceWatch *watch) { return watch->name() == service; });
    return *found;
}

// Of a minimised window, and of its parts that are hidden then, each is told twice.
void WorldDrawer::setFollowing(bool following)
{
    if (following == m_following)
        return;
    m_following = following;
    for (ServiceWatch *watch : qAsConst(m_watches)) {
        if (!watch)
            continue;
        watch->setFollowing(following);
        if (following)
            watch->refresh(); // nothing tells of a process that stands still
    }
}

} // namespace controlcenter
