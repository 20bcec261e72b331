#include "pages/keydisplaynames.h"
#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"

#include <ztk/zguiapplicationhelper.h>

#include <QAccessible>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionButton>

using Ztk::Gui::ZGuiApplicationHelper;

using namespace testsupport;

namespace {

/** Remembers the push buttons that it was asked to draw, and draws them. */
class RecordingStyle : public QProxyStyle
{
public:
    RecordingStyle()
        : QProxyStyle(QStringLiteral("fusion"))
    {
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_PushButton) {
            buttons.append(*qstyleoption_cast<const QStyleOptionButton *>(option));
            widgets.append(widget);
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QList<QStyleOptionButton> buttons;
    mutable QList<const QWidget *> widgets;
};

/** Counts the paint events of a widget. */
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

const QList<QPalette::ColorGroup> groups = {QPalette::Active, QPalette::Inactive,
                                            QPalette::Disabled};

} // namespace

/** KeyLabel, one key cap, and ShortcutKey, a row of them. */
class ShortcutCapsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void capIsWideEnough_data();
    void capIsWideEnough();
    void capFollowsApplicationFont();
    void capDrawsOneButton();
    void capColoursAreThoseOfThePalette();
    void capFollowsTheme();
    void capFollowsDesktopTheme();
    void hoverRepaintsOnly();
    void rowLayout();
    void rowReplacesCaps();
    void rowIsSizedAtOnce();
    void rowPassesHoverOn();
    void rowStaysLeftToRight();
    void rowTellsItsKeys();

private:
    QFont m_font;
    QPalette m_palette;
};

void ShortcutCapsTest::init()
{
    m_font = QApplication::font();
}

void ShortcutCapsTest::cleanup()
{
    QApplication::setFont(m_font);
    QApplication::setPalette(m_palette);
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void ShortcutCapsTest::capIsWideEnough_data()
{
    QTest::addColumn<QFont>("font");

    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPixelSize(11);
    QFont large = QApplication::font();
    large.setPixelSize(31);
    large.setBold(true);
    QTest::newRow("application font") << QApplication::font();
    QTest::newRow("small, fixed pitch") << fixed;
    QTest::newRow("large, bold") << large;
}

void ShortcutCapsTest::capIsWideEnough()
{
    QFETCH(QFont, font);
    QApplication::setFont(font);
    const QFontMetrics metrics(font);

    QStringList names = keyDisplayNames.keys();
    names << QString() << QStringLiteral("T") << QStringLiteral("bracketleft");
    for (const QString &name : qAsConst(names)) {
        const KeyLabel cap(name, nullptr);
        QCOMPARE(cap.minimumWidth(), metrics.horizontalAdvance(cap.text()) + 18);
        QVERIFY2(cap.sizeHint().height() >= metrics.height(), qPrintable(name));
        QCOMPARE(cap.sizeHint().width(), cap.minimumWidth());
    }
}

void ShortcutCapsTest::capFollowsApplicationFont()
{
    const KeyLabel cap(QStringLiteral("Escape"), nullptr);
    QFont large = QApplication::font();
    large.setPixelSize(40);
    QApplication::setFont(large);
    QCOMPARE(cap.minimumWidth(), QFontMetrics(large).horizontalAdvance("Escape") + 18);
}

void ShortcutCapsTest::capDrawsOneButton()
{
    RecordingStyle style;
    KeyLabel cap(QStringLiteral("ampersand"), nullptr);
    cap.setStyle(&style);
    cap.resize(70, 33);
    cap.setEnabled(false);
    cap.grab();

    QCOMPARE(style.buttons.size(), 1);
    const QStyleOptionButton &button = style.buttons.first();
    QCOMPARE(button.rect, QRect(0, 0, 70, 33));
    QCOMPARE(button.text, QStringLiteral("&"));
    QVERIFY(button.state == QStyle::State_None);
    QVERIFY(button.features == QStyleOptionButton::None);
    QVERIFY(button.icon.isNull());
    QCOMPARE(style.widgets.first(), static_cast<const QWidget *>(&cap));
}

void ShortcutCapsTest::capColoursAreThoseOfThePalette()
{
    RecordingStyle style;
    KeyLabel cap(QStringLiteral("T"), nullptr);
    cap.setStyle(&style);
    QPalette own = cap.palette();
    own.setColor(QPalette::Base, Qt::red); // the application's palette counts, not the widget's
    own.setColor(QPalette::Highlight, Qt::red);
    cap.setPalette(own);
    cap.grab();

    const QPalette application = QApplication::palette();
    QCOMPARE(style.buttons.size(), 1);
    const QPalette &drawn = style.buttons.first().palette;
    for (QPalette::ColorGroup group : groups) {
        QCOMPARE(drawn.brush(group, QPalette::Light), application.base());
        QCOMPARE(drawn.brush(group, QPalette::Dark), application.base());
        QCOMPARE(drawn.brush(group, QPalette::ButtonText), application.highlight());
        QCOMPARE(drawn.brush(group, QPalette::Shadow).color(), QColor(Qt::transparent));
        QCOMPARE(drawn.brush(group, QPalette::Shadow).style(), Qt::SolidPattern);
        QCOMPARE(drawn.brush(group, QPalette::Window), application.brush(group, QPalette::Window));
    }
}

void ShortcutCapsTest::capFollowsTheme()
{
    KeyLabel cap(QStringLiteral("Ctrl"), nullptr);
    cap.resize(60, 30);
    const auto picture = [&cap](const QColor &base, const QColor &highlight) {
        QPalette palette(base);
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Highlight, highlight);
        QApplication::setPalette(palette);
        return cap.grab().toImage();
    };

    const QImage light = picture(QColor(250, 250, 250), QColor(0, 80, 200));
    const QImage dark = picture(QColor(40, 40, 40), QColor(120, 180, 255));
    QVERIFY(light != dark);
    QVERIFY(light.pixelColor(30, 4).lightness() > dark.pixelColor(30, 4).lightness() + 50);
    QVERIFY2(light != picture(QColor(250, 250, 250), QColor(200, 0, 0)), "the text has no colour");
}

void ShortcutCapsTest::capFollowsDesktopTheme()
{
    auto *desktop = ZGuiApplicationHelper::instance();
    KeyLabel cap(QStringLiteral("Ctrl"));
    cap.resize(60, 30);
    const auto picture = [&](ZGuiApplicationHelper::ColorType theme) {
        desktop->setThemeType(theme);
        return cap.grab().toImage();
    };
    const QImage light = picture(ZGuiApplicationHelper::LightType);
    const QImage dark = picture(ZGuiApplicationHelper::DarkType);
    QVERIFY(light != dark);
    QVERIFY(light.pixelColor(30, 4).lightness() > dark.pixelColor(30, 4).lightness() + 50);
    QCOMPARE(picture(ZGuiApplicationHelper::LightType), light);
}

void ShortcutCapsTest::hoverRepaintsOnly()
{
    KeyLabel cap(QStringLiteral("T"), nullptr);
    cap.resize(40, 30);
    cap.show();
    QVERIFY(QTest::qWaitForWindowExposed(&cap));
    const QImage before = cap.grab().toImage();

    PaintCounter paints(&cap);
    cap.setEnter(true);
    QTRY_VERIFY(paints.count > 0);
    QCOMPARE(cap.grab().toImage(), before);
    paints.count = 0;
    cap.setEnter(false);
    QTRY_VERIFY(paints.count > 0);
}

void ShortcutCapsTest::rowLayout()
{
    ShortcutKey key(nullptr);
    auto *layout = qobject_cast<QHBoxLayout *>(key.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 5);
    QCOMPARE(layout->count(), 0);

    key.setTextList({QStringLiteral("Ctrl"), QStringLiteral("T")});
    QCOMPARE(layout->count(), 2);
    for (int i = 0; i < layout->count(); ++i) {
        QCOMPARE(layout->stretch(i), 0);
        QCOMPARE(layout->itemAt(i)->alignment(), Qt::Alignment());
        QCOMPARE(layout->itemAt(i)->widget()->parentWidget(), &key);
    }
}

void ShortcutCapsTest::rowReplacesCaps()
{
    ShortcutKey key(nullptr);
    key.setTextList({QStringLiteral("Ctrl"), QStringLiteral("Alt"), QStringLiteral("T")});
    QList<QPointer<KeyLabel>> old;
    for (KeyLabel *cap : caps(&key))
        old.append(cap);

    key.setTextList({QStringLiteral("minus"), QString()});
    QCOMPARE(capTexts(&key), QStringList({QStringLiteral("-"), QStringLiteral("None")}));
    for (const QPointer<KeyLabel> &cap : qAsConst(old))
        QVERIFY2(cap, "a cap went before the event loop could delete it");
    for (const QPointer<KeyLabel> &cap : qAsConst(old))
        QTRY_VERIFY(cap.isNull());
    QCOMPARE(key.findChildren<KeyLabel *>().size(), 2);

    key.setTextList({});
    QVERIFY(caps(&key).isEmpty());
    QTRY_COMPARE(key.findChildren<KeyLabel *>().size(), 0);
}

void ShortcutCapsTest::rowIsSizedAtOnce()
{
    for (bool shown : {false, true}) {
        QWidget window;
        auto *key = new ShortcutKey(&window);
        if (shown) {
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
        }
        key->setTextList({QStringLiteral("Ctrl"), QStringLiteral("T")});
        int width = 5;
        for (const KeyLabel *cap : caps(key))
            width += cap->minimumWidth();
        QCOMPARE(key->width(), width);
        QVERIFY(key->height() >= key->fontMetrics().height());
    }
}

void ShortcutCapsTest::rowPassesHoverOn()
{
    QWidget window;
    window.resize(300, 80);
    auto *key = new ShortcutKey(&window);
    key->setTextList({QStringLiteral("Ctrl"), QStringLiteral("T")});
    key->setGeometry(100, 20, 120, 30);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::mouseMove(window.windowHandle(), QPoint(5, 5));

    PaintCounter first(caps(key).first());
    PaintCounter last(caps(key).last());
    QTest::mouseMove(window.windowHandle(), QPoint(160, 35));
    QTRY_VERIFY(first.count > 0 && last.count > 0);
    first.count = last.count = 0;
    QTest::mouseMove(window.windowHandle(), QPoint(5, 5));
    QTRY_VERIFY(first.count > 0 && last.count > 0);
}

void ShortcutCapsTest::rowStaysLeftToRight()
{
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    auto *layout = new QHBoxLayout(&window);
    auto *key = new ShortcutKey;
    layout->addWidget(key);
    key->setTextList({QStringLiteral("Ctrl"), QStringLiteral("Alt"), QStringLiteral("T")});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QList<KeyLabel *> row = caps(key);
    QVERIFY(row.at(0)->x() < row.at(1)->x());
    QVERIFY(row.at(1)->x() < row.at(2)->x());
}

void ShortcutCapsTest::rowTellsItsKeys()
{
    ShortcutKey key(nullptr);
    key.setTextList({QStringLiteral("Ctrl"), QStringLiteral("minus")});
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(&key);
    QCOMPARE(row->role(), QAccessible::Grouping);
    QCOMPARE(row->text(QAccessible::Name), QStringLiteral("Ctrl+-"));
    const QAccessibleInterface *cap = row->child(row->childCount() - 1);
    QCOMPARE(cap->role(), QAccessible::StaticText);
    QCOMPARE(cap->text(QAccessible::Name), QStringLiteral("-"));
}

TEST_CLASS(QApplication, ShortcutCapsTest)
#include "shortcutcaps.moc"
