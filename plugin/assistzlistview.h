#pragma once

#include <ztk/zlistview.h>

#include <functional>

/**
 * The list view of the navigation list: arrow up and down choose the next row at once and stop at
 * the ends; the other cursor keys do nothing.
 */
class AssistZListView : public Ztk::Widget::ZListView
{
    Q_OBJECT

public:
    explicit AssistZListView(QWidget *parent = nullptr);

    /**
     * Runs @p action, which may take this view away: at once, or while the view handles a click or
     * a key as the last thing of that. Of several actions for one event only the last one is run.
     */
    void runLast(const std::function<void()> &action);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void handle(const std::function<void()> &baseHandler);

    bool m_handling = false; // a base handler is running
    std::function<void()> m_last;
};
