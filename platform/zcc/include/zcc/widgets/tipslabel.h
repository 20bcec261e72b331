#pragma once

#include "zcc/zccglobal.h"

#include <QLabel>

namespace zcc {
namespace widgets {

/**
 * A secondary text, always plain: it is drawn in its palette's Text role, so that the owner can
 * colour it.
 */
class ZCC_EXPORT TipsLabel : public QLabel
{
    Q_OBJECT

public:
    explicit TipsLabel(const QString &text = QString(), QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void alignText();
};

} // namespace widgets
} // namespace zcc
