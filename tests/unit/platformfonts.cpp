#include "tests/support/testprogram.h"

#include <ztk/zfontsizemanager.h>

#include <QApplication>
#include <QFontInfo>
#include <QTest>

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

TEST_CLASS(QApplication, PlatformFontsTest)

#include "platformfonts.moc"
