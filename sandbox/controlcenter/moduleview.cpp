#include "sandbox/controlcenter/moduleview.h"

#include "sandbox/controlcenter/pagearea.h"

#include <QAbstractItemView>
#include <QHBoxLayout>

namespace controlcenter {

ModuleView::ModuleView(QWidget *parent)
    : QWidget(parent)
    , m_column(new QWidget(this))
    , m_pageArea(new PageArea(this))
{
    auto *columnLayout = new QVBoxLayout(m_column);
    columnLayout->setContentsMargins(0, 0, 0, 0);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_column);
    layout->addWidget(m_pageArea, 1);
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
    m_listWidth = width;
    m_column->layout()->addWidget(list);
    list->show();
    arrange();
    Q_EMIT changed();
}

int ModuleView::listWidth() const
{
    return m_listWidth;
}

int ModuleView::leastPageWidth() const
{
    return m_pageArea->leastWidth();
}

void ModuleView::setSeen(bool list, bool page)
{
    m_listSeen = list;
    m_pageSeen = page;
    arrange();
}

QWidget *ModuleView::page() const
{
    return m_pageArea->widget();
}

void ModuleView::setPage(QWidget *page)
{
    // setWidget() would delete the old page while its signal, which asks for the new one, runs.
    dispose(m_pageArea->takeWidget());
    m_pageArea->setPage(page);
    Q_EMIT changed();
}

void ModuleView::clear()
{
    dispose(m_pageArea->takeWidget());
    dispose(m_list);
    m_list.clear();
    arrange();
    Q_EMIT changed();
}

QString ModuleView::currentRowText() const
{
    const auto *view = m_list ? m_list->findChild<QAbstractItemView *>() : nullptr;
    return view ? view->currentIndex().data(Qt::DisplayRole).toString() : QString();
}

void ModuleView::ensureVisible(QWidget *widget)
{
    m_pageArea->ensureWidgetVisible(widget, 24, 48);
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

void ModuleView::arrange()
{
    m_column->setMinimumWidth(m_pageSeen ? m_listWidth : 0);
    m_column->setMaximumWidth(m_pageSeen ? m_listWidth : QWIDGETSIZE_MAX);
    m_column->setVisible(m_list && m_listSeen);
    m_pageArea->setVisible(m_pageSeen);
}

} // namespace controlcenter
