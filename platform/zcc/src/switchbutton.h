#pragma once

#include <QAbstractButton>

namespace zcc {
namespace widgets {

/** The switch of a SwitchWidget. */
class SwitchButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit SwitchButton(QWidget *parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace widgets
} // namespace zcc
