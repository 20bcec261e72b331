#include "plugin/assistzlistview.h"

#include <QPointer>

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
    // Opening a page processes events, in which the frame may take this list away.
    const QPointer<AssistZListView> self(this);
    Q_EMIT clicked(currentIndex());
    return self ? currentIndex() : QModelIndex();
}
