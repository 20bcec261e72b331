#include "tests/support/testprogram.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zapplicationsetup.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/zguiapplicationhelper.h>
#include <ztk/ziconbutton.h>
#include <ztk/zlistview.h>
#include <ztk/zpainting.h>
#include <ztk/zstyle.h>

#include <QApplication>
#include <QFontInfo>
#include <QPalette>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QTest>

using Ztk::Gui::ZGuiApplicationHelper;
using Ztk::Widget::ZPainting;

/** The themes: their palettes and the signal that tells of a switch. */
class PlatformThemeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void brightTextTellsTheThemesApart();
    void everyRoleOfEveryGroupIsSet_data() { themes(); }
    void everyRoleOfEveryGroupIsSet();
    void textsAreReadable_data();
    void textsAreReadable();
    void outlinesAreVisible_data();
    void outlinesAreVisible();
    void changeIsToldOnce();

private:
    struct Theme
    {
        const char *name;
        ZGuiApplicationHelper::ColorType type;
        double text, outline; // the least contrast
    };
    static constexpr Theme allThemes[] = {
        {"light", ZGuiApplicationHelper::LightType, 4.5, 3},
        {"dark", ZGuiApplicationHelper::DarkType, 4.5, 3},
        {"high contrast", ZGuiApplicationHelper::ContrastType, 7, 7},
    };
    static void themes();
    static ZGuiApplicationHelper *helper() { return ZGuiApplicationHelper::instance(); }
};

void PlatformThemeTest::initTestCase()
{
    QCOMPARE(helper()->themeType(), ZGuiApplicationHelper::LightType);
    Ztk::Widget::ZApplicationSetup::install();
}

void PlatformThemeTest::themes()
{
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    for (const Theme &theme : allThemes)
        QTest::newRow(theme.name) << theme.type;
}

void PlatformThemeTest::brightTextTellsTheThemesApart()
{
    const auto groups = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};
    helper()->setThemeType(ZGuiApplicationHelper::LightType);
    for (const QPalette::ColorGroup group : groups)
        QCOMPARE(QWidget().palette().color(group, QPalette::BrightText).name(),
                 QStringLiteral("#000000"));
    for (const auto type : {ZGuiApplicationHelper::DarkType, ZGuiApplicationHelper::ContrastType}) {
        helper()->setThemeType(type);
        for (const QPalette::ColorGroup group : groups)
            QCOMPARE(QWidget().palette().color(group, QPalette::BrightText).name(),
                     QStringLiteral("#ffffff"));
    }
}

void PlatformThemeTest::everyRoleOfEveryGroupIsSet()
{
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    helper()->setThemeType(theme);
    const QPalette palette = QApplication::palette();
    for (int group = 0; group < QPalette::NColorGroups; ++group) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            if (role == QPalette::NoRole)
                continue;
            QVERIFY2(palette.isBrushSet(QPalette::ColorGroup(group), QPalette::ColorRole(role)),
                     qPrintable(QStringLiteral("group %1 role %2").arg(group).arg(role)));
        }
    }
}

void PlatformThemeTest::textsAreReadable_data()
{
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    QTest::addColumn<QPalette::ColorRole>("text");
    QTest::addColumn<QPalette::ColorRole>("ground");
    QTest::addColumn<double>("least");
    const QList<QPair<QPalette::ColorRole, QPalette::ColorRole>> pairs = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::WindowText, QPalette::Base},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Highlight, QPalette::Base}, // key caps
        {QPalette::Link, QPalette::Base},
        {QPalette::Link, QPalette::Window},
        {QPalette::LinkVisited, QPalette::Base},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
#if QT_VERSION >= QT_VERSION_CHECK(5, 12, 0)
        {QPalette::PlaceholderText, QPalette::Base},
#endif
    };
    const QMetaEnum names = QMetaEnum::fromType<QPalette::ColorRole>();
    for (const Theme &theme : allThemes)
        for (const auto &pair : pairs)
            QTest::addRow("%s, %s on %s", theme.name, names.valueToKey(pair.first),
                          names.valueToKey(pair.second))
                << theme.type << pair.first << pair.second << theme.text;
}

void PlatformThemeTest::textsAreReadable()
{
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    QFETCH(QPalette::ColorRole, text);
    QFETCH(QPalette::ColorRole, ground);
    QFETCH(double, least);
    helper()->setThemeType(theme);
    const QPalette palette = QApplication::palette();
    const double contrast = ZPainting::contrast(palette.color(text), palette.color(ground));
    QVERIFY2(contrast >= least, qPrintable(QString::number(contrast)));
}

void PlatformThemeTest::outlinesAreVisible_data()
{
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    QTest::addColumn<QPalette::ColorGroup>("group");
    QTest::addColumn<QPalette::ColorRole>("outline");
    QTest::addColumn<QPalette::ColorRole>("ground");
    QTest::addColumn<double>("least");
    const struct
    {
        QPalette::ColorGroup group;
        QPalette::ColorRole outline;
        QList<QPalette::ColorRole> grounds;
    } rows[] = {
        // Frames of combo boxes, buttons and fields: against what they stand on and what they hold.
        {QPalette::Active, QPalette::Mid, {QPalette::Base, QPalette::Window, QPalette::Button}},
        // Check boxes and switches.
        {QPalette::Active, QPalette::Dark, {QPalette::Base, QPalette::Window, QPalette::Button}},
        {QPalette::Active, QPalette::Highlight, {QPalette::Base, QPalette::Window}},
        {QPalette::Disabled, QPalette::Dark, {QPalette::Base}},
        {QPalette::Disabled, QPalette::Highlight, {QPalette::Base, QPalette::HighlightedText}},
        {QPalette::Disabled, QPalette::WindowText, {QPalette::Base, QPalette::Window}},
    };
    const QMetaEnum names = QMetaEnum::fromType<QPalette::ColorRole>();
    for (const Theme &theme : allThemes)
        for (const auto &row : rows)
            for (const QPalette::ColorRole ground : row.grounds)
                QTest::addRow("%s, %s%s on %s", theme.name,
                              row.group == QPalette::Disabled ? "disabled " : "",
                              names.valueToKey(row.outline), names.valueToKey(ground))
                    << theme.type << row.group << row.outline << ground << theme.outline;
}

void PlatformThemeTest::outlinesAreVisible()
{
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    QFETCH(QPalette::ColorGroup, group);
    QFETCH(QPalette::ColorRole, outline);
    QFETCH(QPalette::ColorRole, ground);
    QFETCH(double, least);
    helper()->setThemeType(theme);
    const QPalette palette = QApplication::palette();
    const double contrast =
        ZPainting::contrast(palette.color(group, outline), palette.color(group, ground));
    QVERIFY2(contrast >= least, qPrintable(QString::number(contrast)));
}

void PlatformThemeTest::changeIsToldOnce()
{
    helper()->setThemeType(ZGuiApplicationHelper::LightType);
    QSignalSpy changed(helper(), &ZGuiApplicationHelper::themeTypeChanged);
    helper()->setThemeType(ZGuiApplicationHelper::LightType);
    QCOMPARE(changed.count(), 0);

    // Whoever hears of the change finds the new theme in force.
    QColor seenWindow;
    ZGuiApplicationHelper::ColorType seenType = ZGuiApplicationHelper::UnknownType;
    const auto connection =
        connect(helper(), &ZGuiApplicationHelper::themeTypeChanged, this, [&]() {
            seenWindow = QApplication::palette().color(QPalette::Window);
            seenType = helper()->themeType();
        });
    helper()->setThemeType(ZGuiApplicationHelper::DarkType);
    disconnect(connection);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<ZGuiApplicationHelper::ColorType>(),
             ZGuiApplicationHelper::DarkType);
    QCOMPARE(seenType, ZGuiApplicationHelper::DarkType);
    QVERIFY(seenWindow.lightness() < 60);
}

TEST_CLASS(QApplication, PlatformThemeTest)

using Ztk::Widget::ZFontSizeManager;

/** The size steps: T6 is the application's size, the others keep their proportion to it. */
class PlatformFontsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepsAtTheDefaultSize_data();
    void stepsAtTheDefaultSize();
    void stepsFollowTheApplicationFont_data();
    void stepsFollowTheApplicationFont();
    void pointSizesCountToo();
    void onlyTheSizeOfTheBaseChanges();
    void smallStepsAreHeavier();
    void controlsGrowWithTheText_data();
    void controlsGrowWithTheText();

private:
    static void setApplicationSize(int pixels);
};

void PlatformFontsTest::setApplicationSize(int pixels)
{
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    QApplication::setFont(font);
}

void PlatformFontsTest::stepsAtTheDefaultSize_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("pixels");
    const int sizes[] = {40, 30, 24, 20, 17, 14, 13, 12, 11, 10};
    for (int step = ZFontSizeManager::T1; step <= ZFontSizeManager::T10; ++step)
        QTest::newRow(qPrintable(QStringLiteral("T%1").arg(step + 1))) << step << sizes[step];
}

void PlatformFontsTest::stepsAtTheDefaultSize()
{
    QFETCH(int, step);
    QFETCH(int, pixels);
    setApplicationSize(14);
    const auto type = ZFontSizeManager::SizeType(step);
    QCOMPARE(ZFontSizeManager::instance()->fontPixelSize(type), pixels);
    QCOMPARE(ZFontSizeManager::instance()->get(type).pixelSize(), pixels);
}

void PlatformFontsTest::stepsFollowTheApplicationFont_data()
{
    QTest::addColumn<int>("application");
    QTest::addColumn<int>("t8");
    QTest::newRow("small") << 10 << 9;
    QTest::newRow("default") << 14 << 12;
    QTest::newRow("one and a half") << 21 << 18;
    QTest::newRow("double") << 28 << 24;
}

void PlatformFontsTest::stepsFollowTheApplicationFont()
{
    QFETCH(int, application);
    QFETCH(int, t8);
    setApplicationSize(application);
    QCOMPARE(ZFontSizeManager::instance()->fontPixelSize(ZFontSizeManager::T6), application);
    QCOMPARE(ZFontSizeManager::instance()->fontPixelSize(ZFontSizeManager::T8), t8);
}

void PlatformFontsTest::pointSizesCountToo()
{
    QFont font = QApplication::font();
    font.setPointSizeF(15);
    QApplication::setFont(font);
    QCOMPARE(ZFontSizeManager::instance()->fontPixelSize(ZFontSizeManager::T6),
             QFontInfo(QApplication::font()).pixelSize());
}

void PlatformFontsTest::onlyTheSizeOfTheBaseChanges()
{
    setApplicationSize(14);
    QFont base(QStringLiteral("Some Family"), 33, QFont::Bold, true);
    base.setUnderline(true);
    const QFont font = ZFontSizeManager::instance()->get(ZFontSizeManager::T8, base);
    QCOMPARE(font.pixelSize(), 12);
    QCOMPARE(font.family(), base.family());
    QCOMPARE(font.weight(), base.weight());
    QVERIFY(font.italic());
    QVERIFY(font.underline());
}

void PlatformFontsTest::smallStepsAreHeavier()
{
    const QFont usual(QStringLiteral("Some Family"));
    for (int step = ZFontSizeManager::T1; step <= ZFontSizeManager::T10; ++step) {
        const QFont font =
            ZFontSizeManager::instance()->get(ZFontSizeManager::SizeType(step), usual);
        QCOMPARE(font.weight(),
                 int(step < ZFontSizeManager::T8 ? usual.weight() : QFont::DemiBold));
    }
}

void PlatformFontsTest::controlsGrowWithTheText_data()
{
    QTest::addColumn<int>("application");
    QTest::addColumn<double>("factor");
    QTest::newRow("small") << 10 << 1.0;
    QTest::newRow("default") << 14 << 1.0;
    QTest::newRow("hardly larger") << 15 << 1.0;
    QTest::newRow("one and a half") << 21 << 1.5;
    QTest::newRow("huge") << 32 << 2.25;
}

void PlatformFontsTest::controlsGrowWithTheText()
{
    QFETCH(int, application);
    QFETCH(double, factor);
    setApplicationSize(application);
    const Ztk::Widget::ZStyle style;
    QCOMPARE(style.pixelMetric(QStyle::PM_IndicatorWidth), int(18 * factor));

    QStyleOptionComboBox box;
    box.rect = QRect(0, 0, 200, 80);
    const QRect arrow =
        style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, nullptr);
    QCOMPARE(arrow.size(), QSize(16, 16) * factor);

    const zcc::widgets::SwitchWidget row(QStringLiteral("Wake up"));
    const QSize ring(8, 8); // which is as wide at every size
    QCOMPARE(row.focusProxy()->sizeHint() - ring, QSize(int(42 * factor), int(24 * factor)));
    QCOMPARE(Ztk::Widget::ZIconButton().iconSize(), QSize(16, 16) * factor);

    Ztk::Widget::ZListView list;
    list.setIconSize(QSize(32, 32));
    QPixmap picture(100, 100);
    picture.fill(Qt::black);
    QStandardItemModel model;
    model.appendRow(new QStandardItem(QIcon(picture), QString()));
    list.setModel(&model);
    constexpr int margins = 12;
    QCOMPARE(list.sizeHintForRow(0), qMax(36, int(32 * factor) + margins));
}

TEST_CLASS(QApplication, PlatformFontsTest)

#include "platformtheme.moc"
