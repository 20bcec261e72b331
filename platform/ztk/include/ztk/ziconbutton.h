#pragma once

#include "ztk/ztkglobal.h"

#include <QAbstractButton>
#include <QStyle>

namespace Ztk {
namespace Widget {

/** A flat button that shows only its icon; give it an accessible name. */
class ZTK_EXPORT ZIconButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ZIconButton(QWidget *parent = nullptr);
    explicit ZIconButton(QStyle::StandardPixmap icon, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
};

} // namespace Widget
} // namespace Ztk
