#pragma once

#include <QWidget>

namespace controlcenter {

/** The window's leading column, a shade away from the page and as wide as its contents need. */
class SideBar : public QWidget
{
    Q_OBJECT

public:
    explicit SideBar(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace controlcenter
