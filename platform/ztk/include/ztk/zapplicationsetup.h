#pragma once

#include "ztk/ztkglobal.h"

namespace Ztk {
namespace Widget {

/**
 * What a host calls once so that its windows look like the desktop.
 *
 * The built-in icons need no call: QIcon::fromTheme() finds them as soon as the toolkit is loaded
 * and the application object exists.
 */
class ZTK_EXPORT ZApplicationSetup
{
public:
    ZApplicationSetup() = delete;

    /**
     * Puts the toolkit's style, its light palette and its focus handling in force. To be called
     * once, after the QApplication was made and before the first window is shown. A host that wants
     * other display scales than 1 and 2 sets Qt::AA_EnableHighDpiScaling and, with Qt 5.14 or
     * later, the PassThrough rounding policy before it makes the QApplication.
     */
    static void install();

    /**
     * Makes icons that a library or plugin has just brought known at once. Not needed for painting,
     * which looks for itself; for code that asks an icon for its sizes right after the loading.
     */
    static void refreshIcons();
};

} // namespace Widget
} // namespace Ztk
