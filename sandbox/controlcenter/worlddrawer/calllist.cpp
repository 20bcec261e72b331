#include "sandbox/controlcenter/worlddrawer/calllist.h"

#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/servicespage/servicewatch.h"
#include "sandbox/controlcenter/windowstyle.h"
#include "sandbox/controlcenter/worlddrawer/callmodel.h"
#include "sandbox/controlcenter/worlddrawer/choicerow.h"
#include "sandbox/services/control/servicecontrol.h"

#include <zcc/widgets/settingsitem.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/zlistview.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

using zcc::widgets::SettingsItem;
using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZListView;

namespace controlcenter {
namespace {

constexpr int leastListHeight = 60; // px, with usual texts

} // namespace

CallList::CallList(ServiceWatches *watches, QWidget *parent)
    : QWidget(parent)
    , m_watches(watches)
    , m_calls(new CallModel(this))
    , m_shown(new QSortFilterProxyModel(this))
{
    m_shown->setSourceModel(m_calls);
    m_shown->setFilterRole(CallModel::ServiceRole);

    auto *card = new SettingsItem;
    card->addBackground();
    auto *content = new QVBoxLayout(card);
    content->setContentsMargins(0, 0, 0, 0);
    QWidget *list = buildList();
    content->addWidget(list);
    auto *none = new QLabel(tr("No calls yet"));
    none->setAlignment(Qt::AlignCenter);
    content->addWidget(none);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(buildHead());
    layout->addWidget(buildFilter());
    layout->addWidget(card, 1);
    const auto showCalls = [this, list, none] {
        list->setVisible(m_shown->rowCount() > 0);
        none->setVisible(m_shown->rowCount() == 0);
    };
    showCalls();
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(m_shown, signal, this, showCalls);
    connect(m_shown, &QAbstractItemModel::modelReset, this, showCalls);
}

QString CallList::text() const
{
    QString text;
    for (int row = 0; row < m_shown->rowCount(); ++row)
        text += m_shown->index(row, 0).data(CallModel::LineRole).toString() + QLatin1Char('\n');
    return text;
}

void CallList::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_listener || !m_watches)
        return;
    m_listener = std::make_unique<QObject>();
    for (const ServiceWatch *watch : m_watches->all())
        follow(watch);
}

void CallList::hideEvent(QHideEvent *event)
{
    m_listener.reset();
    QWidget::hideEvent(event);
}

QWidget *CallList::buildHead()
{
    auto *head = new QWidget;
    auto *heading = new LeadingLabel(tr("Calls"));
    QFont bold = heading->font();
    bold.setWeight(QFont::DemiBold);
    heading->setFont(bold);
    auto *copy = new QPushButton(tr("Copy"));
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(text()); });
    auto *clear = new QPushButton(tr("Clear"));
    connect(clear, &QPushButton::clicked, m_calls, &CallModel::clear);
    auto *layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addSpacing(pageMargin);
    layout->addWidget(heading, 1);
    layout->addWidget(copy);
    layout->addWidget(clear);
    return head;
}

QWidget *CallList::buildFilter()
{
    auto *filter = new ChoiceRow(tr("Calls to"));
    filter->addChoice(tr("All services"));
    QStringList names{QString()};
    for (const ServiceWatch *watch : m_watches->all()) {
        filter->addChoice(ServicesPage::titleOf(watch->name()));
        names.append(watch->name());
    }
    connect(filter, &ChoiceRow::chosen, m_shown,
            [this, names](int index) { m_shown->setFilterFixedString(names.at(index)); });
    return filter;
}

QWidget *CallList::buildList()
{
    auto *list = new ZListView;
    list->setModel(m_shown);
    list->setAccessibleName(tr("Calls"));
    list->setMinimumHeight(ZFontSizeManager::instance()->scaled(leastListHeight));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // or texts wrap anew when it comes
    // The latest call stays in sight for whoever looks at the end.
    connect(list->verticalScrollBar(), &QScrollBar::rangeChanged, list,
            [list, last = 0](int, int most) mutable {
                if (list->verticalScrollBar()->value() >= last)
                    list->scrollToBottom();
                last = most;
            });
    return list;
}

// First what comes from now on, so that none is missed; then what came before. By a client of its
// own: as long as one lives, QtDBus has the bus bring every signal that was ever connected.
void CallList::follow(const ServiceWatch *watch)
{
    const QString service = watch->name();
    auto *control =
        new sandbox::ServiceControl(service, watch->control()->connection(), m_listener.get());
    connect(control, &sandbox::ServiceControl::CallLogged, m_calls,
            [this, service](const QString &record) { m_calls->take(service, record); });
    auto *earlier = new QDBusPendingCallWatcher(control->Calls(), control);
    connect(earlier, &QDBusPendingCallWatcher::finished, m_calls, [this, service, earlier] {
        earlier->deleteLater();
        const QDBusPendingReply<QStringList> reply = *earlier;
        if (reply.isValid())
            m_calls->takeEarlier(service, reply.value());
    });
}

} // namespace controlcenter
