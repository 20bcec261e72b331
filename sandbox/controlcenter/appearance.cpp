#include "sandbox/controlcenter/appearance.h"

#include "sandbox/controlcenter/options.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QLocale>

using Ztk::Gui::ZGuiApplicationHelper;

namespace controlcenter {

void prepareEnvironment(const Options &options)
{
    if (!options.locale.isEmpty()) {
        // Qt reads the name alone, so the C library need not have this locale.
        qunsetenv("LANGUAGE");
        qputenv("LC_ALL", options.locale.toLatin1() + ".UTF-8");
    }
    if (!qFuzzyCompare(options.scale, 1.0))
        qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void dressApplication(const Options &options)
{
    Ztk::Widget::ZApplicationSetup::install();
    QApplication::setLayoutDirection(QLocale::system().textDirection());
    ZGuiApplicationHelper::instance()->setThemeType(
        options.dark ? ZGuiApplicationHelper::DarkType : ZGuiApplicationHelper::LightType);
}

} // namespace controlcenter
