#pragma once

#include <QWidget>

namespace controlcenter {

/** The window's leading column, a shade away from the page and as wide as its contents need. */
class SideBar : public QWidget
{
public:
    /** @p search stands above @p entries; both become its own. */
    SideBar(QWidget *search, QWidget *entries, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace controlcenter
