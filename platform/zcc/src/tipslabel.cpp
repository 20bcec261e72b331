#include "zcc/widgets/tipslabel.h"

namespace zcc {
namespace widgets {

namespace {
// Together with the 7 px that pages give a tip on its leading side, its text stands exactly under
// the text of the rows, whose padding is 10 px.
constexpr int textMargin = 3;
} // namespace

TipsLabel::TipsLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::Text);
    setMargin(textMargin);
}

} // namespace widgets
} // namespace zcc
