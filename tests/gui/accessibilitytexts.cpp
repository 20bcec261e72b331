#include "plugin/thirdlistwidget.h"
#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/layoutcheck.h"
#include "tests/gui/shownpages.h"
#include "tests/support/testprogram.h"

#include <zcc/widgets/switchwidget.h>
#include <ztk/zapplicationsetup.h>
#include <ztk/zlistview.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTranslator>
#include <QVBoxLayout>
#include <QtTest>

using controlcenter::layoutProblems;
using controlcenter::textsOf;
using testsupport::AccessiblePages;

namespace {

constexpr double usualFontSize = 10.5; // points
constexpr double largeFontSize = 1.5 * usualFontSize;
constexpr int narrowWidth = 600; // px, of a page in the smallest window
constexpr int usualWidth = 820;

/** A language in which every text of the module is twice as long as in English. */
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        if (!QByteArray(context).endsWith("SettingWidget"))
            return QString();
        const QString text = QString::fromUtf8(sourceText);
        return text + QLatin1Char(' ') + QString(text).remove(QStringLiteral("%1"));
    }
};

/** The parts of @p page that show text, and are shown. */
QVector<QWidget *> textsOf(const QWidget *page)
{
    QVector<QWidget *> texts;
    for (QWidget *widget : page->findChildren<QWidget *>()) {
        const auto *label = qobject_cast<QLabel *>(widget);
        if (widget->isVisible() &&
            ((label && !label->text().isEmpty()) || qobject_cast<QAbstractButton *>(widget) ||
             qobject_cast<QComboBox *>(widget)))
            texts.append(widget);
    }
    return texts;
}

QString describe(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    const QString name = label ? label->text() : widget->accessibleName();
    return QStringLiteral("%1 \"%2\", %3 x %4")
        .arg(QLatin1String(widget->metaObject()->className()), name)
        .arg(widget->width())
        .arg(widget->height());
}

/** Texts of @p size points, in the family that the window sets them in. */
void useFont(double size)
{
    QFont font(controlcenter::fontFamily(QLocale::English));
    font.setPointSizeF(size);
    QApplication::setFont(font);
}

QRect placeIn(const QWidget *page, const QWidget *widget)
{
    return QRect(widget->mapTo(page, QPoint()), widget->size());
}

} // namespace

/** Whether every page in every state has room for its texts, and mirrors. */
class AccessibilityTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void textsHaveRoom_data();
    void textsHaveRoom();
    void pagesScroll();
    void pagesMirror_data();
    void pagesMirror();
    void faultsAreFound_data();
    void faultsAreFound();

private:
    AccessiblePages m_pages;
};

void AccessibilityTextsTest::initTestCase()
{
    Ztk::Widget::ZApplicationSetup::install();
    QVERIFY(m_pages.start());
}

void AccessibilityTextsTest::cleanup()
{
    m_pages.close();
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void AccessibilityTextsTest::textsHaveRoom_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<double>("fontSize");
    QTest::addColumn<bool>("longTexts");
    QTest::addColumn<int>("width");

    for (const QString &state : AccessiblePages::states()) {
        QTest::newRow(qPrintable(state)) << state << usualFontSize << false << usualWidth;
        QTest::newRow(qPrintable(state + ", large"))
            << state << largeFontSize << false << narrowWidth;
        QTest::newRow(qPrintable(state + ", long"))
            << state << usualFontSize << true << narrowWidth;
        QTest::newRow(qPrintable(state + ", large and long"))
            << state << largeFontSize << true << narrowWidth;
    }
}

void AccessibilityTextsTest::textsHaveRoom()
{
    QFETCH(QString, state);
    QFETCH(double, fontSize);
    QFETCH(bool, longTexts);
    QFETCH(int, width);

    useFont(fontSize);
    LongTexts translator;
    if (longTexts)
        QVERIFY(QCoreApplication::installTranslator(&translator));
    QVERIFY(m_pages.open(state, width));
    QVERIFY(textsOf(m_pages.page()).size() > 3);
    QCOMPARE(m_pages.page()->font().pointSizeF(), fontSize);
    const QString title = m_pages.page()->findChild<zcc::widgets::SwitchWidget *>()->title();
    QCOMPARE(title.left(title.size() / 2) == title.right(title.size() / 2), longTexts);
    QTRY_VERIFY2(layoutProblems(m_pages.window()).isEmpty(),
                 qPrintable(textsOf(layoutProblems(m_pages.window())).join(QLatin1Char('\n'))));
}

void AccessibilityTextsTest::pagesScroll()
{
    useFont(largeFontSize);
    QVERIFY(m_pages.open(AccessiblePages::states().constFirst(), narrowWidth));
    auto *area = qobject_cast<QScrollArea *>(m_pages.window());
    area->resize(narrowWidth, 300);
    QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
    QCOMPARE(textsOf(layoutProblems(m_pages.window())), QStringList());
    // Tab brings what it leads to into view.
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(area, Qt::Key_Tab);
        const QWidget *focus = QApplication::focusWidget();
        QVERIFY(area->viewport()->rect().contains(
            QRect(focus->mapTo(area->viewport(), QPoint()), focus->size())));
    }
    QVERIFY(area->verticalScrollBar()->value() > 0);
}

void AccessibilityTextsTest::pagesMirror_data()
{
    QTest::addColumn<QString>("state");
    for (const QString &state : AccessiblePages::states())
        QTest::newRow(qPrintable(state)) << state;
}

void AccessibilityTextsTest::pagesMirror()
{
    // Tips and the running voice test keep margins that differ on their two sides.
    constexpr int fixedMargins = 12; // px

    QFETCH(QString, state);
    QVERIFY(m_pages.open(state, usualWidth));
    QVector<QRect> places;
    for (const QWidget *text : textsOf(m_pages.page()))
        places.append(placeIn(m_pages.page(), text));
    m_pages.close();

    QApplication::setLayoutDirection(Qt::RightToLeft);
    QVERIFY(m_pages.open(state, usualWidth));
    const int width = m_pages.page()->width();
    const QVector<QWidget *> mirrored = textsOf(m_pages.page());
    QCOMPARE(mirrored.size(), places.size());
    for (int i = 0; i < mirrored.size(); ++i) {
        const QRect place = placeIn(m_pages.page(), mirrored.at(i));
        const int wanted = width - places.at(i).left() - places.at(i).width();
        QVERIFY2(qAbs(place.left() - wanted) <= fixedMargins, qPrintable(describe(mirrored.at(i))));
        QCOMPARE(place.top(), places.at(i).top());
    }
}

// The faults that the tests above look for, made on purpose.
void AccessibilityTextsTest::faultsAreFound_data()
{
    QTest::addColumn<QString>("fault");
    for (const char *fault : {"px of text in", "sticks out of", "lies over"})
        QTest::newRow(fault) << QString::fromLatin1(fault);
}

void AccessibilityTextsTest::faultsAreFound()
{
    QFETCH(QString, fault);
    QWidget page;
    auto *first = new QLabel(QStringLiteral("first"), &page);
    auto *second = new QLabel(QStringLiteral("second"), &page);
    page.resize(300, 200);
    first->setGeometry(10, 10, 100, 50);
    second->setGeometry(10, 100, 100, 50);
    page.show();
    QCOMPARE(textsOf(layoutProblems(&page)), QStringList());

    if (fault == QLatin1String("px of text in"))
        second->setText(QString(40, QLatin1Char('w')));
    else if (fault == QLatin1String("lies over"))
        second->move(50, 30);
    else
        second->move(250, 100);
    const QStringList found = textsOf(layoutProblems(&page));
    QCOMPARE(found.size(), 1);
    QVERIFY2(found.constFirst().contains(fault), qPrintable(found.constFirst()));
}

TEST_CLASS(QApplication, AccessibilityTextsTest)

using Ztk::Widget::ZListView;

/** Assistive technologies choose in lists, by the one thing that they can do to a row. */
class AccessibilityChoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void rowOfAListIsChosen();
    void clicksAndKeysChooseOnce();
    void severalRowsAreLeftToTheUser();
    void entryOfAComboBoxIsChosen();
    void rowOfTheModulesListOpensItsPage();
};

namespace {

/** What an assistive technology does to make @p row of @p list the chosen one. */
void toggle(QAbstractItemView *list, int row)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(list)->child(row);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

void fill(QStandardItemModel *model)
{
    for (const char *text : {"first", "second", "third"})
        model->appendRow(new QStandardItem(QString::fromLatin1(text)));
}

/** Takes a turn through the event loop, where a choice is made. */
void settle()
{
    QCoreApplication::processEvents();
}

} // namespace

void AccessibilityChoiceTest::initTestCase()
{
    Ztk::Widget::ZApplicationSetup::install();
}

void AccessibilityChoiceTest::rowOfAListIsChosen()
{
    QStandardItemModel model;
    fill(&model);
    ZListView list;
    list.setModel(&model);
    list.setCurrentIndex(model.index(0, 0));
    list.show();
    QSignalSpy clicks(&list, &QListView::clicked);

    for (int row : {2, 1}) {
        toggle(&list, row);
        QTRY_COMPARE(clicks.count(), 1);
        QCOMPARE(clicks.takeFirst().constFirst().toModelIndex().row(), row);
        QCOMPARE(list.currentIndex().row(), row);
    }
    // What is chosen already stays so.
    toggle(&list, 1);
    settle();
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(list.selectionModel()->selectedIndexes(), {model.index(1, 0)});
}

void AccessibilityChoiceTest::clicksAndKeysChooseOnce()
{
    QStandardItemModel model;
    fill(&model);
    ZListView list;
    list.setModel(&model);
    list.setCurrentIndex(model.index(0, 0));
    list.show();
    list.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&list));
    QSignalSpy clicks(&list, &QListView::clicked);

    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                      list.visualRect(model.index(1, 0)).center());
    settle();
    QCOMPARE(clicks.count(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    settle();
    QCOMPARE(list.currentIndex().row(), 2);
    QCOMPARE(clicks.count(), 1);
}

void AccessibilityChoiceTest::severalRowsAreLeftToTheUser()
{
    QStandardItemModel model;
    fill(&model);
    ZListView list;
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    list.setModel(&model);
    list.show();
    QSignalSpy clicks(&list, &QListView::clicked);
    toggle(&list, 1);
    toggle(&list, 2);
    settle();
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(list.selectionModel()->selectedIndexes().size(), 2);
}

void AccessibilityChoiceTest::entryOfAComboBoxIsChosen()
{
    QComboBox box;
    box.addItems({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    box.show();
    QSignalSpy changes(&box, qOverload<int>(&QComboBox::currentIndexChanged));
    QSignalSpy choices(&box, qOverload<int>(&QComboBox::activated));

    for (int row : {2, 0, 1}) {
        box.showPopup();
        toggle(box.view(), row);
        QTRY_VERIFY(!box.view()->isVisible());
        QCOMPARE(box.currentIndex(), row);
    }
    QCOMPARE(changes.count(), 3);
    QCOMPARE(choices.count(), 3);
}

void AccessibilityChoiceTest::rowOfTheModulesListOpensItsPage()
{
    ThirdListWidget list;
    list.show();
    auto *view = list.findChild<ZListView *>();
    QSignalSpy speechToText(&list, &ThirdListWidget::signalShowVoiceIat);
    QSignalSpy translation(&list, &ThirdListWidget::signalShowTranslate);
    QSignalSpy assistant(&list, &ThirdListWidget::signalShowAIAssistant);

    toggle(view, 3);
    QTRY_COMPARE(translation.count(), 1);
    toggle(view, 1);
    QTRY_COMPARE(speechToText.count(), 1);
    settle();
    QCOMPARE(translation.count(), 1);
    QCOMPARE(assistant.count(), 0);

    // The host's own way chooses once, too.
    list.updateListViewIndex(0);
    settle();
    QCOMPARE(assistant.count(), 1);
    QCOMPARE(speechToText.count(), 1);
}

TEST_CLASS(QApplication, AccessibilityChoiceTest)

#include "accessibilitytexts.moc"
