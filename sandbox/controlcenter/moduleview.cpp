#include "sandbox/controlcenter/moduleview.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

namespace controlcenter {

ModuleView::ModuleView(QWidget *parent)
    : QWidget(parent)
    , m_column(new QWidget(this))
    , m_scrollArea(new QScrollArea(this))
{
    auto *columnLayout = new QVBoxLayout(m_column);
    columnLayout->setContentsMargins(0, 0, 0, 0);

    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setFocusPolicy(Qt::NoFocus); // Tab goes from control to control
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_scrollArea->viewport()->setAutoFillBackground(false);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_column);
    layout->addWidget(m_scrollArea, 1);
    m_column->hide();
}

QWidget *ModuleView::list() const
{
    return m_list;
}

void ModuleView::setList(QWidget *list, int width)
{
    dispose(m_list);
    m_list = list;
    m_column->setFixedWidth(width);
    m_column->layout()->addWidget(list);
    m_column->show();
    list->show();
}

QWidget *ModuleView::page() const
{
    return m_scrollArea->widget();
}

void ModuleView::setPage(QWidget *page)
{
    // setWidget() would delete the old page while its signal, which asks for the new one, runs.
    dispose(m_scrollArea->takeWidget());
    page->setMaximumWidth(widestPage);
    m_scrollArea->setWidget(page);
    page->setAutoFillBackground(false); // the scroll area turns it on
    page->show();
    scrollToTop();
}

void ModuleView::clear()
{
    dispose(m_scrollArea->takeWidget());
    dispose(m_list);
    m_list.clear();
    m_column->hide();
}

QString ModuleView::currentRowText() const
{
    const auto *view = m_list ? m_list->findChild<QAbstractItemView *>() : nullptr;
    return view ? view->currentIndex().data(Qt::DisplayRole).toString() : QString();
}

void ModuleView::ensureVisible(QWidget *widget)
{
    m_scrollArea->ensureWidgetVisible(widget, 24, 48);
}

void ModuleView::scrollToTop()
{
    m_scrollArea->verticalScrollBar()->setValue(0);
}

void ModuleView::dispose(QWidget *widget)
{
    if (!widget)
        return;
    widget->hide();
    widget->setParent(this); // out of its layout, but still owned until the event loop deletes it
    widget->deleteLater();
    Q_EMIT taken(widget);
}

} // namespace controlcenter
