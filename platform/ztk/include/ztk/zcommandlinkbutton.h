#pragma once

#include "ztk/ztkglobal.h"

#include <QAbstractButton>

namespace Ztk {
namespace Widget {

/** A button that looks like a link in the theme's highlight colour. */
class ZTK_EXPORT ZCommandLinkButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ZCommandLinkButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
};

} // namespace Widget
} // namespace Ztk
