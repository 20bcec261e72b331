#include "pages/keylabel.h"
#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/contrastcheck.h"
#include "sandbox/controlcenter/looks/lookpictures.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/gui/shownwindow.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using namespace controlcenter;
using testsupport::ScriptedModule;
using testsupport::ShownWindow;
using Ztk::Gui::ZGuiApplicationHelper;
namespace pictures = testsupport::pictures;

namespace {

/** Its only page has no room for its text. */
class CrampedModule : public ScriptedModule
{
public:
    int load(const QString &) override
    {
        auto *page = new QWidget;
        auto *label = new QLabel(QStringLiteral("A text that is cut off"), page);
        label->setGeometry(10, 10, 40, 20);
        m_frameProxy->pushWidget(this, page, zccV20::FrameProxyInterface::NextColumn);
        return 0;
    }
};

/** A pale text and a list with a pale frame, on which all is well at first. */
struct Colours
{
    Colours()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(text);
        layout->addWidget(list);
        list->addItem(QStringLiteral("entry"));
        window.resize(300, 200);
        window.show();
    }

    QStringList problems() { return textsOf(contrastProblems(&window, window.grab().toImage())); }

    QWidget window;
    QLabel *text = new QLabel(QStringLiteral("readable"));
    QComboBox *list = new QComboBox;
};

} // namespace

/** The window in every look, and what is marked there. */
class WindowLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_window.start()); }
    void init();
    void everyLookIsDrawn();
    void whatIsWrongIsMarked();
    void paleTextsAreFound();
    void largeTextsMayBePaler();
    void paleFramesAreFound();
    void paleKeyCapsAreNamed();
    void whatIsCoveredIsNotLookedAt();

private:
    ShownWindow m_window;
};

void WindowLooksTest::init()
{
    QVERIFY(m_window.useLocale(QStringLiteral("en")));
    setDirection(Direction::LeftToRight);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void WindowLooksTest::everyLookIsDrawn()
{
    const QTemporaryDir folder;
    const QStringList places{QStringLiteral("Translation"), QStringLiteral("Shortcuts"),
                             QStringLiteral("Services")};
    QVERIFY(drawLooks(m_window.module(), places, folder.path()));

    QVector<QImage> all;
    for (const QString &place : places) {
        for (const Look &look : allLooks()) {
            const QImage picture(folder.filePath(lookFile(place, look)));
            QCOMPARE(picture.size(), testsupport::usualWindow);
            QCOMPARE(problemsOf(picture), QStringList());
            QVERIFY2(!all.contains(picture), qPrintable(lookFile(place, look)));
            all.append(picture);
            const int lower = picture.height() - 4; // nothing but grounds
            const bool dark = look.theme != ThemeChoice::Light;
            const auto inMiddle = [&](int y) {
                return picture.pixelColor(picture.width() / 2, y).lightness();
            };
            // One of the two, since cards have frames in high contrast.
            QCOMPARE(qMin(inMiddle(lower), inMiddle(lower - 4)) < 60, dark);
            const int left = picture.pixelColor(2, lower).lightness();
            const int right = picture.pixelColor(picture.width() - 20, lower).lightness();
            if (look.textPercent == 100) // else there is no side bar beside the page
                QCOMPARE(left == right || (left < right) != dark, !look.mirrored);
            const QColor accent(look.theme == ThemeChoice::Light  ? "#1769e0"
                                : look.theme == ThemeChoice::Dark ? "#5b9dff"
                                                                  : "#ffe600");
            const QRect rows(0, 110, picture.width(), 200); // of shortcuts: their keys are there
            if (place == QLatin1String("Shortcuts"))
                QVERIFY2(pictures::count(picture, accent, rows, 60) > 100,
                         qPrintable(lookFile(place, look)));
        }
    }
    QCOMPARE(all.size(), 3 * 2 * 2 * 3);
}

void WindowLooksTest::whatIsWrongIsMarked()
{
    CrampedModule module;
    const QTemporaryDir folder;
    QVERIFY(drawLooks(&module, {QStringLiteral("Page")}, folder.path()));
    for (const Look &look : allLooks()) {
        const QImage picture(folder.filePath(lookFile(QStringLiteral("Page"), look)));
        const QStringList problems = problemsOf(picture);
        QVERIFY2(problems.size() == 1, qPrintable(problems.join('\n')));
        QVERIFY2(problems.constFirst().contains(QLatin1String("px of text in")),
                 qPrintable(problems.constFirst()));
        const QRect mark = pictures::boundsOf(picture, Qt::red);
        QVERIFY(mark.width() >= 40 && mark.width() < 60);
        QVERIFY(mark.height() >= 20 && mark.height() < 40);
    }
}

void WindowLooksTest::paleTextsAreFound()
{
    Colours shown;
    QCOMPARE(shown.problems(), QStringList());
    QPalette pale;
    pale.setColor(QPalette::WindowText, QColor("#808080"));
    shown.text->setPalette(pale);
    const QStringList found = shown.problems();
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.constFirst().contains(QLatin1String("\"readable\" has a contrast of 3.5")),
             qPrintable(found.constFirst()));
    shown.text->setEnabled(false);
    QCOMPARE(shown.problems(), QStringList());
}

void WindowLooksTest::largeTextsMayBePaler()
{
    Colours shown;
    QPalette pale;
    pale.setColor(QPalette::WindowText, QColor("#808080"));
    shown.text->setPalette(pale);
    QFont font = shown.text->font();
    font.setPixelSize(20);
    shown.text->setFont(font);
    QCOMPARE(shown.problems().size(), 1);
    font.setBold(true);
    shown.text->setFont(font);
    QCOMPARE(shown.problems(), QStringList());
    pale.setColor(QPalette::WindowText, QColor("#999999"));
    shown.text->setPalette(pale);
    QCOMPARE(shown.problems().size(), 1);
}

void WindowLooksTest::paleFramesAreFound()
{
    Colours shown;
    QPalette pale;
    pale.setColor(QPalette::Mid, QColor("#c0c0c0"));
    shown.list->setPalette(pale);
    const QStringList found = shown.problems();
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.constFirst().startsWith(QLatin1String("the outline of \"entry\"")),
             qPrintable(found.constFirst()));
}

/** Their letters have the application's accent colour. */
void WindowLooksTest::paleKeyCapsAreNamed()
{
    Colours shown;
    auto *cap = new KeyLabel(QStringLiteral("Control"));
    shown.window.layout()->addWidget(cap);
    QPalette card = shown.window.palette(); // where caps stand
    card.setColor(QPalette::Window, card.color(QPalette::Base));
    shown.window.setPalette(card);
    ShownWindow::settle();
    QVERIFY2(shown.problems().isEmpty(), qPrintable(shown.problems().join('\n')));
    const QPalette usual = QApplication::palette();
    QPalette pale = usual;
    pale.setColor(QPalette::Highlight, QColor("#c0c0c0"));
    QApplication::setPalette(pale);
    const QStringList found = shown.problems();
    QApplication::setPalette(usual);
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.constFirst().startsWith('"' + cap->text() + "\" has a contrast of "),
             qPrintable(found.constFirst()));
}

void WindowLooksTest::whatIsCoveredIsNotLookedAt()
{
    Colours shown;
    QPalette pale;
    pale.setColor(QPalette::WindowText, QColor("#c0c0c0"));
    shown.text->setPalette(pale);
    QCOMPARE(shown.problems().size(), 1);
    QWidget cover(&shown.window);
    cover.setAutoFillBackground(true);
    cover.setGeometry(shown.window.rect());
    cover.show();
    QCOMPARE(shown.problems(), QStringList());
}

TEST_CLASS(QApplication, WindowLooksTest)
#include "windowlooks.moc"
