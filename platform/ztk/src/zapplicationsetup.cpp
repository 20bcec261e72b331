#include "ztk/zapplicationsetup.h"

#include "announcer.h"
#include "zicontheme.h"
#include "ztk/zfocustracker.h"
#include "ztk/zguiapplicationhelper.h"
#include "ztk/zstyle.h"

#include <QApplication>

namespace Ztk {
namespace Widget {

namespace {

/** Runs with the application object's constructor, or now when the toolkit is loaded later. */
void prepareApplication()
{
    Gui::ZIconTheme::install();
    ZFocusTracker::install();
}

} // namespace

void ZApplicationSetup::install()
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    prepareApplication();
    announcer::install();
    QApplication::setStyle(new ZStyle);
    Gui::ZGuiApplicationHelper *helper = Gui::ZGuiApplicationHelper::instance();
    helper->setThemeType(helper->themeType());
}

void ZApplicationSetup::refreshIcons()
{
    Gui::ZIconTheme::refresh();
}

Q_COREAPP_STARTUP_FUNCTION(prepareApplication)

} // namespace Widget
} // namespace Ztk
