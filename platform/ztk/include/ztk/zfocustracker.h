#pragma once

#include "ztk/ztkglobal.h"

#include <QObject>

class QWidget;

namespace Ztk {
namespace Widget {

/**
 * Decides whether a focused control shows its focus ring: while it is operated by keys. A focus
 * that comes from the mouse shows none until the next key press. One that the program gives is put
 * down to what was used last, key or mouse; before either, to the mouse.
 *
 * One per process, made with the application object; GUI thread only.
 */
class ZTK_EXPORT ZFocusTracker : public QObject
{
    Q_OBJECT

public:
    /** Whether @p widget has the focus and is to show it. */
    static bool showsFocus(const QWidget *widget);

    /** Whether focused controls show it at present. */
    static bool ringsVisible();

    /** Starts watching the application; called by the toolkit, further calls change nothing. */
    static void install();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit ZFocusTracker(QObject *parent);

    bool m_visible = false;
    bool m_lastWasKey = false;
};

} // namespace Widget
} // namespace Ztk
