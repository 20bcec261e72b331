#include "ztk/zlistview.h"

#include "zitemdelegate.h"
#include "zlistaccessible.h"

namespace Ztk {
namespace Widget {

ZListView::ZListView(QWidget *parent)
    : QListView(parent)
{
    ZListAccessible::install();
    setItemDelegate(new ZItemDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setWordWrap(true); // also lays the rows out anew when the width changes
    setVerticalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
}

} // namespace Widget
} // namespace Ztk
