#pragma once

#include "zcc/zccglobal.h"

#include <QFrame>

namespace zcc {
namespace widgets {

/** Distance of a row's texts and controls from its left and right edge, in pixels. */
constexpr int rowPadding = 10;

/**
 * One row of a settings group.
 *
 * The owner gives it a layout and its controls. Without a background it is transparent, so that it
 * can stand inside another row.
 */
class ZCC_EXPORT SettingsItem : public QFrame
{
    Q_OBJECT

public:
    explicit SettingsItem(QWidget *parent = nullptr);

    /** Gives the row the rounded background of the theme. Calling it again changes nothing. */
    void addBackground();

    /** Whether addBackground() was called. */
    bool hasBackground() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_background = false;
};

} // namespace widgets
} // namespace zcc
