#include "pages/themedtip.h"

#include "pages/pagelayout.h"

#include <QEvent>
#include <QLabel>

ThemedTip::ThemedTip(QLabel *tip, QWidget *page)
    : QObject(tip)
    , m_tip(tip)
    , m_page(page)
{
    page->installEventFilter(this);
}

bool ThemedTip::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        pagelayout::setTextColor(m_tip, pagelayout::tipColor(*m_page));
    return QObject::eventFilter(watched, event);
}
