#include "tests/support/testprogram.h"
#include "tests/support/voicepage.h"
#include "tests/support/widgets.h"
#include "voice/audiorecorder.h"

#include <QPainter>
#include <QtTest>

using namespace testsupport;

namespace {

constexpr int mostWords = 2000; // characters that the panel shows

/** How much of @p picture is drawn on, in pixels. */
double ink(const QImage &picture)
{
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            sum += qAlpha(line[x]) / 255.0;
    }
    return sum;
}

QImage emptyPicture(const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

/** The share of its text that @p label really draws; 1 when nothing is cut off. */
double shareDrawn(QLabel *label)
{
    QImage drawn = emptyPicture(label->size());
    label->render(&drawn, QPoint(), QRegion(), QWidget::RenderFlags());

    // Word for word, each on its own: no line can be too short for them.
    double all = 0;
    const QFontMetrics metrics(label->font());
    const QStringList words = label->text().simplified().split(QLatin1Char(' '));
    for (const QString &word : words) {
        const int border = metrics.height();
        QImage picture =
            emptyPicture(QSize(metrics.horizontalAdvance(word) + 2 * border, 3 * metrics.height()));
        QPainter painter(&picture);
        painter.setFont(label->font());
        painter.drawText(border, 2 * metrics.height(), word);
        painter.end();
        all += ink(picture);
    }
    return ink(drawn) / all;
}

/** What is wrong with the recognised words on @p page; empty when all of them can be read. */
QStringList wordProblems(const VoicePage &page)
{
    auto *words = qobject_cast<QLabel *>(page.layout()->itemAt(1)->widget());
    QStringList problems;
    if (words->height() < words->heightForWidth(words->width()))
        problems += QStringLiteral("the words are higher than their place");
    if (!page.panel()->rect().contains(words->geometry()))
        problems += QStringLiteral("the words leave the panel");
    if (!page->rect().contains(page.group()->geometry()))
        problems += QStringLiteral("the panel leaves the page");
    for (int i = 0; i < page.layout()->count(); ++i) {
        QWidget *other = page.layout()->itemAt(i)->widget();
        if (other && other != words && other->geometry().intersects(words->geometry()))
            problems += QStringLiteral("the words lie over another part");
    }
    const double share = shareDrawn(words);
    if (qAbs(share - 1) > 0.01)
        problems += QStringLiteral("%1 of the words is drawn").arg(share);
    return problems;
}

} // namespace

/**
 * What reaches the voice test panel: recognised words, which can all be read, whatever they are;
 * clicks and keys that start a test and end it, and where the focus goes.
 */
class VoiceTestInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void partialResultsReplaceEachOther();
    void allWordsAreReadable_data();
    void allWordsAreReadable();
    void wordsReadTheSameInEveryLanguageOfTheInterface_data();
    void wordsReadTheSameInEveryLanguageOfTheInterface();
    void aMegabyteOfWordsIsShownInPart_data();
    void aMegabyteOfWordsIsShownInPart();
    void textsFromServicesArePlain();
    void clickOnTheWaveGoesBackAndForgetsTheWords();
    void keyOnTheWaveGoesBack();
    void theWaveLooksAsIfItCouldBeClicked();
    void aDoubleClickOnALinkStartsATest();
    void aDoubleClickOnTheWaveEndsTheTest();
    void focusGoesToTheControlThatReplacesTheOneThatHadIt();

private:
    VoiceTestServices m_services;
};

void VoiceTestInputTest::initTestCase()
{
    QVERIFY(m_services.start());
}

void VoiceTestInputTest::init()
{
    m_services.reset();
}

void VoiceTestInputTest::cleanup()
{
    flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void VoiceTestInputTest::partialResultsReplaceEachOther()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    for (const char *words : {"a", "a b", "", "c"}) {
        page.hear(QLatin1String(words));
        QCOMPARE(page.texts().at(1), QString::fromLatin1(words));
    }
}

void VoiceTestInputTest::allWordsAreReadable_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<Qt::LayoutDirection>("direction");

    const QString chinese = QStringLiteral("帮我预约明天早上十点的视频会议");
    const QString english = QStringLiteral("Please book a video meeting for me tomorrow morning ");
    const QString arabic = QStringLiteral("احجز لي اجتماع فيديو صباح الغد من فضلك ");
    const QVector<QPair<const char *, QString>> texts = {
        {"a few Chinese words", chinese.left(10)},
        {"one Chinese line and a bit", chinese.repeated(2)},
        {"much Chinese", chinese.repeated(20)},
        {"one English line and a bit", english},
        {"much English", english.repeated(38).trimmed()},
        {"one long word", QString(1000, QLatin1Char('w'))},
        {"long words among others", english + QString(200, QLatin1Char('m')) + ' ' + english},
        {"much Arabic", arabic.repeated(20).trimmed()},
        {"lines", QStringLiteral("one\ntwo\nthree\nfour\nfive\nsix\nseven\neight")},
    };
    for (const auto &text : texts)
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft})
            QTest::addRow("%s, %s", text.first, direction == Qt::LeftToRight ? "ltr" : "rtl")
                << text.second << direction;
}

void VoiceTestInputTest::allWordsAreReadable()
{
    QFETCH(QString, words);
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);

    VoicePage page;
    QVERIFY(page.clickLink());
    for (const bool finished : {false, true}) {
        page.hear(QStringLiteral("a"));
        if (finished)
            page.finish(QStringLiteral("1000"));
        flushDeferredDeletes();
        const int least = page->minimumSizeHint().width();
        const int wish = page->sizeHint().width();
        page.hear(words);
        // Every layout up to the page's asks anew.
        for (QWidget *part = page.layout()->itemAt(1)->widget(); part != page.get();
             part = part->parentWidget())
            part->updateGeometry();
        QCOMPARE(page->minimumSizeHint().width(), least);
        QCOMPARE(page->sizeHint().width(), wish);

        for (const int width : {360, 400, 480, 640, 1000, 1600}) {
            page->resize(width, page->heightForWidth(width));
            QCOMPARE(page->width(), qMax(width, least));
            QTRY_VERIFY2(wordProblems(page).isEmpty(),
                         qPrintable(QStringLiteral("%1 px, %2: %3")
                                        .arg(width)
                                        .arg(finished ? QStringLiteral("finished")
                                                      : QStringLiteral("testing"),
                                             wordProblems(page).join(QStringLiteral("; ")))));
        }
    }
}

void VoiceTestInputTest::wordsReadTheSameInEveryLanguageOfTheInterface_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("English") << QStringLiteral("Hello, world.");
    QTest::newRow("Arabic") << QStringLiteral("مرحبا بالعالم.");
}

void VoiceTestInputTest::wordsReadTheSameInEveryLanguageOfTheInterface()
{
    QFETCH(QString, words);
    const auto drawn = [&words](Qt::LayoutDirection direction) {
        QApplication::setLayoutDirection(direction);
        VoicePage page;
        if (!page.clickLink())
            return QImage();
        page.hear(words);
        QWidget *label = page.layout()->itemAt(1)->widget();
        label->resize(400, 40);
        QImage picture = emptyPicture(label->size());
        label->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        return picture;
    };
    const QImage leftToRight = drawn(Qt::LeftToRight);
    QVERIFY(ink(leftToRight) > 0);
    QCOMPARE(drawn(Qt::RightToLeft), leftToRight);
}

void VoiceTestInputTest::aMegabyteOfWordsIsShownInPart_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("letters") << QStringLiteral("w");
    QTest::newRow("English") << QStringLiteral("word ");
    QTest::newRow("Chinese") << QStringLiteral("明天早上");
    QTest::newRow("lines") << QStringLiteral("\n");
    QTest::newRow("beyond the basic plane") << QString::fromUcs4(U"\U0001d11e");
    QTest::newRow("combining marks") << QStringLiteral("e\u0301\u0308\u0323");
}

void VoiceTestInputTest::aMegabyteOfWordsIsShownInPart()
{
    QFETCH(QString, part);
    const QString words = part.repeated((1 << 20) / part.size());
    VoicePage page;
    QVERIFY(page.clickLink());
    page.hear(part.repeated(200)); // Qt looks for fonts once
    page->grab();

    QString heard = QStringLiteral("0");
    const auto next = [&heard, &words] {
        heard = QChar(heard.at(0).unicode() + 1) + words;
    };
    const double cost = leastCostMs(next, [&] { // until all is on the screen
        page.hear(heard);
        flushDeferredDeletes();
        QCoreApplication::processEvents();
        page->grab();
    });
    QVERIFY2(cost < megabyteLimitMs, qPrintable(QString::number(cost)));

    const QString shown = page.texts().at(1);
    QVERIFY(shown.size() <= mostWords && shown.size() > mostWords - 6);
    QVERIFY(shown.endsWith(QChar(0x2026)));
    QVERIFY(words.startsWith(shown.mid(1, shown.size() - 2)));
    page.finish(QStringLiteral("1000"));
    QCOMPARE(page.texts().at(1), shown);
    QCOMPARE(page.texts().at(2), QStringLiteral("It sounds good"));
}

void VoiceTestInputTest::textsFromServicesArePlain()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    page.hear(QStringLiteral("<b>bold</b><img src='file:///etc/hostname'>"));
    auto *words = qobject_cast<QLabel *>(page.layout()->itemAt(1)->widget());
    QCOMPARE(words->textFormat(), Qt::PlainText);
    page.finish(QStringLiteral("1008"));
    QCOMPARE(qobject_cast<QLabel *>(page.layout()->itemAt(2)->widget())->textFormat(),
             Qt::PlainText);
}

void VoiceTestInputTest::clickOnTheWaveGoesBackAndForgetsTheWords()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    page.hear(QStringLiteral("明天"));
    QVERIFY(AudioRecorder::getInstance()->isRecording());
    QTRY_VERIFY(page.wave()->isVisible());
    QTest::mouseClick(page.wave(), Qt::LeftButton);

    QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    QVERIFY(!AudioRecorder::getInstance()->isRecording());
    QVERIFY(m_services.aiService.waitForCalls(QStringLiteral("stopAqc")));
    QVERIFY(m_services.aiService.waitForCalls(QStringLiteral("stopIat")));
    flushDeferredDeletes();
    QVERIFY(!page.label(QStringLiteral("明天")));
    QVERIFY(page.clickLink());
    QCOMPARE(page.texts().at(1), QString());
}

void VoiceTestInputTest::keyOnTheWaveGoesBack()
{
    for (int key : {Qt::Key_Escape, Qt::Key_Space}) {
        VoicePage page;
        QVERIFY(page.clickLink());
        page.wave()->setFocus();
        QTRY_VERIFY(page.wave()->hasFocus());
        QTest::keyClick(page.wave(), static_cast<Qt::Key>(key));
        QCOMPARE(page.texts(), QStringList({QStringLiteral("Voice Test"), VoicePage::runLink()}));
    }
}

// The second click of a double click reaches whatever the first one has put under the pointer.
void VoiceTestInputTest::theWaveLooksAsIfItCouldBeClicked()
{
    VoicePage page;
    QVERIFY(page.clickLink());
    QTRY_VERIFY(page.wave()->isVisible());
    QCOMPARE(page.wave()->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(page.wave()->toolTip(), QStringLiteral("Click to cancel the test"));
}

void VoiceTestInputTest::aDoubleClickOnALinkStartsATest()
{
    VoicePage page;
    for (const bool again : {false, true}) {
        flushDeferredDeletes();
        QTRY_VERIFY(page.link()->isVisible());
        const QRect link = page.link()->rect();
        const QPoint place =
            page.link()->mapTo(page.get(), QPoint(link.center().x(), link.bottom() - 2));
        QWindow *window = page->windowHandle();
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
        flushDeferredDeletes();
        QVERIFY(page.wave());
        QTRY_COMPARE(page->childAt(place), page.wave());
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval; // soon after the first click
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY2(page.texts().contains(QStringLiteral("(wave)")), again ? "again" : "first");

        // A click of its own ends it.
        if (again) {
            QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
            QCOMPARE(page.texts().last(), VoicePage::runLink());
        } else {
            page.finish(QStringLiteral("1000"));
        }
    }
}

void VoiceTestInputTest::aDoubleClickOnTheWaveEndsTheTest()
{
    VoicePage page;
    QTRY_VERIFY(page.link()->isVisible());
    const QRect link = page.link()->rect();
    const QPoint place =
        page.link()->mapTo(page.get(), QPoint(link.center().x(), link.bottom() - 2));
    QWindow *window = page->windowHandle();
    QVERIFY(page.clickLink());
    flushDeferredDeletes();
    QTRY_COMPARE(page->childAt(place), page.wave());
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    flushDeferredDeletes();
    QVERIFY(page.link());
    QTRY_COMPARE(page->childAt(place), page.link());
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval; // soon after the first click
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(page.texts().last(), VoicePage::runLink());
    QVERIFY(!AudioRecorder::getInstance()->isRecording());

    // A click of its own starts the next one.
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(page.texts().contains(QStringLiteral("(wave)")));
}

void VoiceTestInputTest::focusGoesToTheControlThatReplacesTheOneThatHadIt()
{
    VoicePage page;
    page.link()->setFocus();
    QTRY_VERIFY(page.link()->hasFocus());
    QTest::keyClick(page.link(), Qt::Key_Space);
    QTRY_VERIFY(page.wave() && page.wave()->hasFocus());
    page.finish(QStringLiteral("1008"));
    QTRY_VERIFY(page.link() && page.link()->hasFocus());

    // A focus elsewhere stays there.
    auto *other = page->findChild<QAbstractButton *>();
    other->setFocus();
    page.finish(QStringLiteral("1003"));
    QVERIFY(other->hasFocus());
}

TEST_CLASS(QApplication, VoiceTestInputTest)

#include "voicetestinput.moc"
