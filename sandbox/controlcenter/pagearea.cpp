#include "sandbox/controlcenter/pagearea.h"

#include <ztk/zfontsizemanager.h>

#include <QScrollBar>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

// Rows wider than this are hard to follow from their title to their control.
constexpr int widestPage = 820; // px, with usual texts

} // namespace

PageArea::PageArea(QWidget *parent)
    : QScrollArea(parent)
{
    setWidgetResizable(true);
    setAlignment(Qt::AlignLeading | Qt::AlignTop);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // Tab goes from control to control
    viewport()->setAutoFillBackground(false);
}

void PageArea::setPage(QWidget *page)
{
    page->setMaximumWidth(ZFontSizeManager::instance()->scaled(widestPage));
    setWidget(page);
    page->setAutoFillBackground(false); // the scroll area turns it on
    page->show();
    verticalScrollBar()->setValue(0);
}

int PageArea::leastWidth() const
{
    return widget() ? widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width()
                    : 0;
}

} // namespace controlcenter
