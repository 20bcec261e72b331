#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/options.h"
#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/themechoice.h"
#include "sandbox/controlcenter/windowstyle.h"
#include "sandbox/controlcenter/worlddrawer/calllist.h"
#include "sandbox/controlcenter/worlddrawer/faultrow.h"
#include "sandbox/controlcenter/worlddrawer/faulttexts.h"
#include "sandbox/controlcenter/worlddrawer/valuerow.h"

#include <zcc/widgets/settingsgroup.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/ziconbutton.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
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
constexpr int leastRows = 150;  // px of height, with usual texts
constexpr int margin = 10;      // px
constexpr int groupSpacing = 8;
constexpr int rowSpacing = 1; // px: the rows stand as one block

QLabel *boldLabel(const QString &text)
{
    auto *label = new LeadingLabel(text);
    QFont bold = label->font();
    bold.setWeight(QFont::DemiBold);
    label->setFont(bold);
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

// The row with the focus stays in sight as a whole, with what its choice leads to, whatever heights
// it and others get. Qt itself does nothing when the focus comes from outside of the area.
class RowsArea : public QScrollArea
{
public:
    RowsArea() { connect(qApp, &QApplication::focusChanged, this, &RowsArea::showFocused); }
    ~RowsArea() override
    {
        disconnect(qApp, nullptr, this, nullptr);
    } // its rows lose the focus next

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool done = QScrollArea::eventFilter(watched, event);
        if (watched == widget() && event->type() == QEvent::Resize)
            showFocused();
        return done;
    }

private:
    void showFocused()
    {
        QWidget *focus = window()->focusWidget();
        if (!focus || !widget()->isAncestorOf(focus))
            return;
        auto *row = qobject_cast<ChoiceRow *>(focus->parentWidget());
        ensureWidgetVisible(row ? row : focus, 0, 0);
    }
};

// Scrolls @p content, without a frame and a ground of its own.
QScrollArea *scrolled(QWidget *content)
{
    auto *area = new RowsArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // Tab goes from control to control
    area->viewport()->setAutoFillBackground(false);
    area->setWidget(content);
    content->setAutoFillBackground(false);
    return area;
}

} // namespace

WorldDrawer::WorldDrawer(ServiceWatches *watches, ThemeChoice *theme, QWidget *parent)
    : QWidget(parent)
    , m_watches(watches)
    , m_theme(theme)
    , m_calls(new CallList(watches))
{
    setAccessibleName(tr("World"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0); // the edge towards the content
    layout->setSpacing(0);
    layout->addWidget(buildHead());
    auto *both = new QWidget;
    m_parts = new QBoxLayout(QBoxLayout::TopToBottom, both);
    m_parts->setContentsMargins(0, 0, 0, margin);
    m_parts->setSpacing(groupSpacing);
    m_parts->addWidget(buildRows(), 1);
    auto *calls = new QHBoxLayout; // between the edges of the rows
    calls->setSpacing(0);
    calls->addSpacing(margin);
    calls->addWidget(m_calls);
    calls->addSpacing(margin + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    m_parts->addLayout(calls, 1);
    layout->addWidget(scrolled(both), 1); // where there is no room for both
}

QSize WorldDrawer::sizeHint() const
{
    int needed = m_calls->minimumSizeHint().width();
    for (const ChoiceRow *row : findChildren<ChoiceRow *>())
        needed = qMax(needed, row->besideWidth());
    needed += 2 * margin + 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {qMax(ZFontSizeManager::instance()->scaled(usualWidth), needed + 1), 0};
}

void WorldDrawer::setWide(bool wide)
{
    m_parts->setDirection(wide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

QString WorldDrawer::focusedRow() const
{
    const QWidget *focus = focusWidget();
    return focus && focus->parentWidget() ? focus->parentWidget()->objectName() : QString();
}

void WorldDrawer::focusRow(const QString &name)
{
    if (auto *row = findChild<ChoiceRow *>(name))
        row->focusChoice();
}

bool WorldDrawer::isSettled() const
{
    return !m_watches || std::none_of(m_watches->all().cbegin(), m_watches->all().cend(),
                                      [](const ServiceWatch *watch) { return watch->isCausing(); });
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
    close->setToolTip(tr("Close") + QStringLiteral(" (F12)"));
    connect(close, &ZIconButton::clicked, this, &WorldDrawer::closeRequested);
    auto *layout = new QHBoxLayout(head);
    layout->setContentsMargins(margin, 0, margin, 0);
    layout->addSpacing(margin);
    layout->addWidget(boldLabel(tr("World")), 1);
    layout->addWidget(close);
    return head;
}

QWidget *WorldDrawer::buildRows()
{
    auto *body = new QWidget;
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(margin, 0, margin, margin);
    layout->setSpacing(groupSpacing);
    addServices(layout);
    addSurroundings(layout);
    addAppearance(layout);
    layout->addStretch();
    QScrollArea *rows = scrolled(body);
    rows->setMinimumHeight(ZFontSizeManager::instance()->scaled(leastRows));
    return rows;
}

void WorldDrawer::addServices(QVBoxLayout *body)
{
    SettingsGroup *group = addGroup(body, tr("Services"));
    for (ServiceWatch *watch : m_watches->all())
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
    group->appendItem(
        new ValueRow(tr("Microphone"), m_watches->named(QStringLiteral("audio")), sounds));

    ServiceWatch *network = m_watches->named(QStringLiteral("networkmanager"));
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
        new ValueRow(tr("Icon in the dock"), m_watches->named(QStringLiteral("dock")),
                     {{tr("Shown"), {{hidden, false}}, {}}, {tr("Hidden"), {{hidden, true}}, {}}}));
}

void WorldDrawer::addAppearance(QVBoxLayout *body)
{
    SettingsGroup *group = addGroup(body, tr("Appearance"));
    const auto add = [&](const QString &name, const QString &title) {
        auto *row = new ChoiceRow(title);
        row->setObjectName(name);
        group->appendItem(row);
        return row;
    };
    const Appearance now = currentAppearance();

    ChoiceRow *theme = add(QStringLiteral("theme"), tr("Theme"));
    for (int choice = 0; choice < ThemeChoice::names().size(); ++choice)
        theme->addChoice(ThemeChoice::textOf(ThemeChoice::Choice(choice)));
    const auto showTheme = [this, theme] {
        theme->setChoice(m_theme->choice());
    };
    showTheme();
    connect(m_theme, &ThemeChoice::changed, theme, showTheme);
    connect(theme, &ChoiceRow::chosen, m_theme,
            [this](int choice) { m_theme->choose(ThemeChoice::Choice(choice)); });

    // Whatever is chosen of the others, this window keeps what it has.
    const auto offer = [&](ChoiceRow *row, int inForce, auto change) {
        row->setChosenFromList();
        row->setChoice(inForce);
        connect(row, &ChoiceRow::chosen, this, [this, row, inForce, now, change](int choice) {
            row->setChoice(inForce);
            Appearance wanted = now;
            change(&wanted, choice);
            if (choice == inForce)
                return;
            row->focusChoice(); // the new window goes on there
            Q_EMIT appearanceWanted(wanted);
        });
    };

    ChoiceRow *language = add(QStringLiteral("language"), tr("Language"));
    for (const QString &locale : locales())
        language->addChoice(languageName(locale));
    language->setSentences({tr("The window restarts in the language that is chosen.")});
    offer(language, locales().indexOf(now.locale),
          [](Appearance *wanted, int choice) { wanted->locale = locales().at(choice); });

    const QVector<int> percents{100, 125, 150, 200};
    ChoiceRow *size = add(QStringLiteral("text-size"), tr("Text size"));
    for (const int percent : percents)
        size->addChoice(QLocale().toString(percent) + QLocale().percent());
    offer(size, percents.indexOf(now.textPercent), [percents](Appearance *wanted, int choice) {
        wanted->textPercent = percents.at(choice);
    });

    ChoiceRow *direction = add(QStringLiteral("direction"), tr("Direction"));
    for (const QString &text : {tr("By language"), tr("Left to right"), tr("Right to left")})
        direction->addChoice(text);
    offer(direction, int(now.direction),
          [](Appearance *wanted, int choice) { wanted->direction = Direction(choice); });
}

// Of a minimised window, and of its parts that are hidden then, each is told twice.
void WorldDrawer::setFollowing(bool following)
{
    if (following == m_following)
        return;
    m_following = following;
    if (!m_watches)
        return;
    for (ServiceWatch *watch : m_watches->all()) {
        watch->setFollowing(following);
        if (following)
            watch->refresh(); // nothing tells of a process that stands still
    }
}

} // namespace controlcenter
