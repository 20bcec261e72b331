#pragma once

#include <ztk/ziconbutton.h>

namespace controlcenter {

/** Leads back to the column before: an arrow that points to the leading side. */
class BackButton : public Ztk::Widget::ZIconButton
{
    Q_OBJECT

public:
    explicit BackButton(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace controlcenter
