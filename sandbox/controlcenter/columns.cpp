#include "sandbox/controlcenter/columns.h"

#include "sandbox/controlcenter/moduleview.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcut>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

// A page that is narrower looks squeezed beside other columns.
constexpr int comfortablePage = 450; // px, with usual texts

bool isChoice(QEvent *event, const QAbstractItemView *view)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) &&
               view->currentIndex().isValid();
    }
    if (event->type() != QEvent::MouseButtonRelease)
        return false;
    const auto *mouse = static_cast<QMouseEvent *>(event);
    return mouse->button() == Qt::LeftButton && view->indexAt(mouse->pos()).isValid();
}

} // namespace

Columns::Columns(QWidget *sideBar, QAbstractItemView *entries, QWidget *content, ModuleView *module,
                 QWidget *parent)
    : QWidget(parent)
    , m_sideBar(sideBar)
    , m_entries(entries)
    , m_content(content)
    , m_module(module)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_sideBar);
    layout->addWidget(m_content, 1);

    watch(m_entries);
    connect(m_module, &ModuleView::changed, this, [this] {
        if (list() && list() != m_watchedList) {
            m_watchedList = list();
            watch(m_watchedList);
        }
        arrange();
        if (m_wentOn)
            Q_EMIT wentOn();
    });

    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int arrow = mirrored ? Qt::Key_Right : Qt::Key_Left;
    for (const int keys : {int(Qt::ALT) | arrow, int(Qt::Key_Back)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &Columns::goBack);
}

void Columns::setLeastContentWidth(int width)
{
    m_leastContentWidth = width;
    arrange();
}

void Columns::open(Column column)
{
    m_column = column;
    m_wentOn = false;
    arrange();
}

bool Columns::shows(Column column) const
{
    return m_seen[column];
}

bool Columns::hasWayBack() const
{
    return m_column != Entries && (!m_seen[Entries] || (list() && !m_seen[List]));
}

void Columns::goBack()
{
    if (!hasWayBack())
        return;
    const bool toList = list() && !m_seen[List];
    open(toList ? List : Entries);
    (toList ? list() : m_entries)->setFocus();
}

void Columns::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

bool Columns::eventFilter(QObject *watched, QEvent *event)
{
    // Whoever goes sends events, too, when it is no view any more.
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    for (QAbstractItemView *view : {m_entries, m_watchedList.data()})
        if (view && (watched == view || watched == view->viewport()) && isChoice(event, view))
            // When the view has done with the event.
            QMetaObject::invokeMethod(
                this, [this, view] { goOn(view); }, Qt::QueuedConnection);
    return false;
}

void Columns::arrange()
{
    const int page =
        qMax(ZFontSizeManager::instance()->scaled(comfortablePage), m_module->leastPageWidth());
    const int content = qMax(pageMargin + m_module->listWidth() + page, m_leastContentWidth);
    const bool all = width() >= m_sideBar->sizeHint().width() + content;
    const bool both = width() >= content;
    m_seen[Entries] = all || m_column == Entries;
    m_seen[List] = both || m_column == List || !list();
    m_seen[Page] = both || m_column != List || !list();

    m_sideBar->setMaximumWidth(all ? m_sideBar->sizeHint().width() : QWIDGETSIZE_MAX);
    m_sideBar->setVisible(m_seen[Entries]);
    m_content->setVisible(all || m_column != Entries);
    m_module->setSeen(m_seen[List], m_seen[Page]);
    layout()->activate();
    Q_EMIT arranged();
}

void Columns::watch(QAbstractItemView *view)
{
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

void Columns::goOn(QAbstractItemView *from)
{
    if (from != m_entries && from != m_watchedList)
        return; // it is gone
    open(from == m_entries ? List : Page);
    m_wentOn = !from->isVisible();
    if (m_wentOn)
        Q_EMIT wentOn();
}

QAbstractItemView *Columns::list() const
{
    return m_module->list() ? m_module->list()->findChild<QAbstractItemView *>() : nullptr;
}

} // namespace controlcenter
