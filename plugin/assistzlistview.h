#pragma once

#include <ztk/zlistview.h>

/**
 * The list view of the navigation list: arrow up and down choose the next row at once and stop at
 * the ends; the other cursor keys do nothing.
 */
class AssistZListView : public Ztk::Widget::ZListView
{
    Q_OBJECT

public:
    explicit AssistZListView(QWidget *parent = nullptr);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
};
