#include "sandbox/controlcenter/appearance.h"

#include "sandbox/controlcenter/options.h"
#include "sandbox/controlcenter/themechoice.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QFontDatabase>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

using Ztk::Gui::ZGuiApplicationHelper;

namespace controlcenter {
namespace {

// The size that the toolkit's measures are made for: 14 px on a usual display.
constexpr double usualFontSize = 10.5; // points

// Whether there is a desktop, or a theme for Qt in place of one, whose settings name a font.
bool desktopHasFont()
{
    return QGuiApplication::platformName() != QLatin1String("offscreen") &&
           !(qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP") &&
             qEnvironmentVariableIsEmpty("QT_QPA_PLATFORMTHEME"));
}

void installTranslator()
{
    auto *translator = new QTranslator(qApp);
    if (translator->load(QLocale::system(), QStringLiteral("control-center"), QStringLiteral("_"),
                         QStringLiteral(":/control-center")))
        QCoreApplication::installTranslator(translator);
}

// The direction is the translation of a text of Qt's own, and nothing else will do: Qt looks it up
// again whenever a translator is installed, as modules do, and then forgets what was set.
Qt::LayoutDirection translatedDirection()
{
    return QCoreApplication::translate("QGuiApplication", "QT_LAYOUT_DIRECTION") ==
                   QLatin1String("RTL")
               ? Qt::RightToLeft
               : Qt::LeftToRight;
}

// In place of the direction that catalogues have; see above.
class ForcedDirection : public QTranslator
{
public:
    explicit ForcedDirection(Direction direction)
        : QTranslator(qApp)
        , m_direction(direction)
    {
    }

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        if (qstrcmp(source, "QT_LAYOUT_DIRECTION") != 0)
            return QString();
        return m_direction == Direction::RightToLeft ? QStringLiteral("RTL")
                                                     : QStringLiteral("LTR");
    }

private:
    Direction m_direction;
};

Appearance appearance;

QFont windowFont(const Options &options)
{
    QFont font = QApplication::font();
    if (!desktopHasFont()) {
        const QString family = fontFamily(QLocale::system().language());
        if (QFontDatabase().hasFamily(family))
            font.setFamily(family);
        font.setPointSizeF(usualFontSize);
    }
    if (options.fontSize > 0)
        font.setPointSizeF(options.fontSize);
    return font;
}

} // namespace

void prepareEnvironment(const Options &options)
{
    if (!options.locale.isEmpty()) {
        // Qt reads the name alone, so the C library need not have this locale.
        qunsetenv("LANGUAGE");
        qputenv("LC_ALL", options.locale.toLatin1() + ".UTF-8");
    }
    if (!qFuzzyCompare(options.scale, 1.0))
        qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    // Nothing here is drawn by OpenGL, whose libraries take half the time of a start.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
#if QT_VERSION >= QT_VERSION_CHECK(5, 14, 0)
    // Or 144 dpi would be taken for 192. Pictures are taken without a display, and so without its
    // dpi.
    if (qgetenv("QT_QPA_PLATFORM") != "offscreen")
        QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
            Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
#endif
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

QString fontFamily(QLocale::Language language)
{
    // The size of a line is that of the first family, whichever one has the letters.
    return language == QLocale::Tibetan ? QStringLiteral("Noto Serif Tibetan")
                                        : QStringLiteral("Noto Sans");
}

void applyAppearance(const Options &options)
{
    QApplication::setFont(windowFont(options));
    Ztk::Widget::ZApplicationSetup::install();
    installTranslator();
    setDirection(options.direction);
    setTextPercent(options.textPercent);
    ZGuiApplicationHelper::instance()->setThemeType(
        ThemeChoice::typeOf(ThemeChoice::named(options.theme)));
}

Appearance currentAppearance()
{
    const QString locale = QLocale::system().name();
    // The texts of all others are the sources'.
    appearance.locale = locales().contains(locale) ? locale : QStringLiteral("en_US");
    return appearance;
}

void setTextPercent(int percent)
{
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * percent / appearance.textPercent);
    QApplication::setFont(font);
    appearance.textPercent = percent;
}

void setDirection(Direction direction)
{
    static QPointer<ForcedDirection> forced;
    delete forced;
    if (direction != Direction::OfLanguage) {
        forced = new ForcedDirection(direction);
        QCoreApplication::installTranslator(forced);
    }
    QApplication::setLayoutDirection(translatedDirection());
    appearance.direction = direction;
}

} // namespace controlcenter
