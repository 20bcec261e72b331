#include "plugin/assistzlistview.h"

#include <utility>

AssistZListView::AssistZListView(QWidget *parent)
    : Ztk::Widget::ZListView(parent)
{
}

QModelIndex AssistZListView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const QModelIndex current = currentIndex();
    if (!model())
        return current;

    QModelIndex next;
    if (action == MoveUp && current.row() >= 1)
        next = model()->index(current.row() - 1, 0, rootIndex());
    else if (action == MoveDown && current.row() < model()->rowCount(rootIndex()) - 1)
        next = model()->index(current.row() + 1, 0, rootIndex());
    else
        return current;

    setCurrentIndex(next);
    Q_EMIT clicked(currentIndex());
    return currentIndex();
}

void AssistZListView::mouseReleaseEvent(QMouseEvent *event)
{
    handle([this, event] { ZListView::mouseReleaseEvent(event); });
}

void AssistZListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    handle([this, event] { ZListView::mouseDoubleClickEvent(event); });
}

void AssistZListView::keyPressEvent(QKeyEvent *event)
{
    handle([this, event] { ZListView::keyPressEvent(event); });
}

void AssistZListView::runLast(const std::function<void()> &action)
{
    if (m_handling)
        m_last = action;
    else
        action();
}

// The base handlers go on using the view after they have emitted clicked() or activated().
void AssistZListView::handle(const std::function<void()> &baseHandler)
{
    m_handling = true;
    baseHandler();
    m_handling = false;
    const std::function<void()> last = std::exchange(m_last, nullptr);
    if (last)
        last();
    // This view may be gone.
}
