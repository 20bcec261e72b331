#include "zcc/widgets/tipslabel.h"

#include "leadingalignment.h"
#include "zcc/widgets/settingsitem.h"

#include <QEvent>

namespace zcc {
namespace widgets {

namespace {
// Pages give a tip 7 px on its left side. With this margin around the text it stands exactly under
// the text of the rows.
constexpr int pageMargin = 7;
constexpr int textMargin = rowPadding - pageMargin;
} // namespace

TipsLabel::TipsLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::Text);
    setMargin(textMargin);
    alignText();
}

void TipsLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        alignText();
    QLabel::changeEvent(event);
}

void TipsLabel::alignText()
{
    setAlignment(leadingAlignment(this));
    // The page's margin stays on the left in mirrored layouts; the leading side is the right one.
    setIndent(layoutDirection() == Qt::RightToLeft ? pageMargin : 0);
}

} // namespace widgets
} // namespace zcc
