#include "tests/support/fakeframe.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QSettings>
#include <QVBoxLayout>
#include <QtTest>

#include <thread>

using namespace testsupport;
using zcc::widgets::SwitchWidget;
using zccV20::FrameProxyInterface;

/** What the tests rely on must itself be right. */
class DoublesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void frameRecordsInOrder();
    void frameDisposesOfReplacedPages();
    void frameDisposesOnDemand();
    void frameDeletesItsWidgets();
    void frameSurvivesAPageThatIsGone();
    void frameGivesKeysToThePage();

    void logRecordsCarryTheirContext();
    void logIsPassedOnAndStopsWithTheCapture();
    void logTakesLinesFromThreads();

    void homeHoldsSettingsAndPutsVariablesBack();

    void widgetsAreFound();
    void deferredDeletesAreFlushed();
    void forgottenWindowsAreListed();

private:
    IsolatedHome m_home; // before the first settings store of this process
};

void DoublesTest::cleanup()
{
    QCOMPARE(topLevelWidgetsLeft(), QStringList());
}

void DoublesTest::frameRecordsInOrder()
{
    FakeFrame frame;
    FrameProxyInterface &proxy = frame;
    proxy.addPageTranslation("Translation", "Übersetzung");
    proxy.addSearchModule("Tools", "Übersetzung", true);
    proxy.addSearchItem("Tools", "Übersetzung", "Richtung", false);
    auto *list = new QLabel;
    auto *page = new QCheckBox(frame.window());
    proxy.pushWidget(nullptr, list, FrameProxyInterface::NextColumn);
    proxy.pushWidget(nullptr, page, FrameProxyInterface::Overlay);

    QCOMPARE(frame.registrations().size(), 3);
    QCOMPARE(frame.registrations().at(0).kind, FakeFrame::Registration::PageTranslation);
    QCOMPARE(frame.registrations().at(0).texts, (QStringList{"Translation", "Übersetzung"}));
    QCOMPARE(frame.registrations().at(1).kind, FakeFrame::Registration::SearchModule);
    QCOMPARE(frame.registrations().at(1).present, true);
    QCOMPARE(frame.registrations().at(2).texts, (QStringList{"Tools", "Übersetzung", "Richtung"}));
    QCOMPARE(frame.registrations().at(2).present, false);

    QCOMPARE(frame.pushedClasses(), (QStringList{"QLabel", "QCheckBox"}));
    QCOMPARE(frame.pushes().at(0).hadParent, false);
    QCOMPARE(frame.pushes().at(0).type, FrameProxyInterface::NextColumn);
    QCOMPARE(frame.pushes().at(1).hadParent, true);
    QCOMPARE(frame.pushes().at(1).type, FrameProxyInterface::Overlay);
    QCOMPARE(frame.list(), list);
    QCOMPARE(frame.page(), page);
    QCOMPARE(frame.pageAs<QCheckBox>(), page);
    QCOMPARE(frame.pageAs<QLabel>(), nullptr);
    frame.clearRecords();
    QVERIFY(frame.pushes().isEmpty() && frame.registrations().isEmpty());
}

void DoublesTest::frameDisposesOfReplacedPages()
{
    FakeFrame frame;
    QPointer<QWidget> list(new QWidget);
    QPointer<QWidget> first(new QWidget);
    frame.pushWidget(nullptr, list, FrameProxyInterface::NextColumn);
    frame.pushWidget(nullptr, first, FrameProxyInterface::NextColumn);
    auto *second = new QWidget;
    frame.pushWidget(nullptr, second, FrameProxyInterface::NextColumn);
    QVERIFY(first); // scheduled, not deleted while whoever pushed still uses it
    flushDeferredDeletes();
    QVERIFY(!first);
    QVERIFY(list);
    QCOMPARE(frame.page(), second);
}

void DoublesTest::frameDisposesOnDemand()
{
    FakeFrame frame(FakeFrame::OnDemand);
    QPointer<QWidget> list(new QWidget);
    QPointer<QWidget> first(new QWidget);
    QPointer<QWidget> second(new QWidget);
    frame.pushWidget(nullptr, list, FrameProxyInterface::NextColumn);
    frame.pushWidget(nullptr, first, FrameProxyInterface::NextColumn);
    frame.pushWidget(nullptr, second, FrameProxyInterface::NextColumn);
    flushDeferredDeletes();
    QVERIFY(first);
    frame.disposeReplaced();
    QVERIFY(!first && list && second);
    frame.disposeAll();
    QVERIFY(!list && !second);
    QCOMPARE(frame.list(), nullptr);

    // The window is open for a list again.
    auto *nextList = new QWidget;
    frame.pushWidget(nullptr, nextList, FrameProxyInterface::NextColumn);
    QCOMPARE(frame.list(), nextList);
    QCOMPARE(frame.page(), nullptr);
}

void DoublesTest::frameDeletesItsWidgets()
{
    QPointer<QWidget> list(new QWidget);
    QPointer<QWidget> replaced(new QWidget);
    {
        FakeFrame frame(FakeFrame::OnDemand);
        frame.pushWidget(nullptr, list, FrameProxyInterface::NextColumn);
        frame.pushWidget(nullptr, replaced, FrameProxyInterface::NextColumn);
        frame.pushWidget(nullptr, new QWidget, FrameProxyInterface::NextColumn);
    }
    QVERIFY(!list && !replaced);
}

void DoublesTest::frameSurvivesAPageThatIsGone()
{
    FakeFrame frame;
    frame.pushWidget(nullptr, new QWidget, FrameProxyInterface::NextColumn);
    auto *gone = new QWidget;
    frame.pushWidget(nullptr, gone, FrameProxyInterface::NextColumn);
    delete gone;
    QCOMPARE(frame.page(), nullptr);
    QVERIFY(frame.pushes().at(1).widget.isNull());
    auto *next = new QWidget;
    frame.pushWidget(nullptr, next, FrameProxyInterface::NextColumn);
    QCOMPARE(frame.page(), next);
}

void DoublesTest::frameGivesKeysToThePage()
{
    FakeFrame frame;
    frame.pushWidget(nullptr, new QLabel, FrameProxyInterface::NextColumn);
    auto *row = new SwitchWidget("Wake up");
    frame.pushWidget(nullptr, row, FrameProxyInterface::NextColumn);
    QVERIFY(frame.showActive());
    switchButton(row)->setFocus();
    QTest::keyClick(switchButton(row), Qt::Key_Space);
    QVERIFY(row->checked());
}

void DoublesTest::logRecordsCarryTheirContext()
{
    LogCapture log;
    qDebug() << "plain" << QString("quoted") << true;
    const int line = __LINE__ - 1;
    qCritical("bad");
    qCritical("bad");
    QCOMPARE(log.texts(), (QStringList{"plain \"quoted\" true", "bad", "bad"}));
    QCOMPARE(log.texts(QtCriticalMsg), (QStringList{"bad", "bad"}));
    QCOMPARE(log.count(QtCriticalMsg, "bad"), 2);
    QCOMPARE(log.count(QtDebugMsg, "bad"), 0);
    const LogRecord record = log.find("plain \"quoted\" true");
    QCOMPARE(record.type, QtDebugMsg);
    QCOMPARE(record.category, QStringLiteral("default"));
    QCOMPARE(record.line, line);
    QVERIFY2(record.file.endsWith("doubles.cpp"), qPrintable(record.file));
    QCOMPARE(record.function, QStringLiteral("void DoublesTest::logRecordsCarryTheirContext()"));
    QCOMPARE(log.find("never said").text, QString());
    log.clear();
    QVERIFY(log.records().isEmpty());
}

namespace {

int passedOn = 0;

void countMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
    ++passedOn;
}

} // namespace

void DoublesTest::logIsPassedOnAndStopsWithTheCapture()
{
    const QtMessageHandler before = qInstallMessageHandler(countMessage);
    passedOn = 0;
    {
        LogCapture log;
        qWarning("inside");
        QCOMPARE(log.texts(), QStringList{"inside"});
    }
    qWarning("outside");
    QCOMPARE(passedOn, 2);
    QVERIFY(qInstallMessageHandler(before) == countMessage);
}

void DoublesTest::logTakesLinesFromThreads()
{
    const QtMessageHandler before = qInstallMessageHandler(countMessage); // keeps the output short
    LogCapture log;
    const auto talk = [] {
        for (int i = 0; i < 500; ++i)
            qDebug("again");
    };
    std::thread first(talk);
    std::thread second(talk);
    first.join();
    second.join();
    QCOMPARE(log.count(QtDebugMsg, "again"), 1000);
    qInstallMessageHandler(before);
}

void DoublesTest::homeHoldsSettingsAndPutsVariablesBack()
{
    QVERIFY(m_home.writeWakeupSettings("[base]\nenable=true\n"));
    QVERIFY(QSettings("corvane", "TavrenVoiceWakeuper").value("base/enable").toBool());
    m_home.clear();
    QVERIFY(!QFile::exists(m_home.wakeupSettingsFile()));
    QVERIFY(!QSettings("corvane", "TavrenVoiceWakeuper").value("base/enable").toBool());

    const QByteArray outer = qgetenv("XDG_DATA_HOME");
    qunsetenv("XDG_CACHE_HOME");
    {
        const IsolatedHome inner;
        QVERIFY(qgetenv("XDG_DATA_HOME") != outer);
        QVERIFY(qEnvironmentVariableIsSet("XDG_CACHE_HOME"));
        QVERIFY(QDir(QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME"))).exists());
    }
    QCOMPARE(qgetenv("XDG_DATA_HOME"), outer);
    QVERIFY(!qEnvironmentVariableIsSet("XDG_CACHE_HOME"));
}

void DoublesTest::widgetsAreFound()
{
    QWidget page;
    QVBoxLayout layout(&page);
    auto *off = new SwitchWidget("Off");
    auto *on = new SwitchWidget("On");
    auto *firstCombo = new QComboBox;
    auto *secondCombo = new QComboBox;
    auto *box = new QCheckBox("OneShot");
    auto *label = new QLabel("Say (Ctrl+Alt+T) to start");
    const QList<QWidget *> widgets{off, on, firstCombo, secondCombo, box, label};
    for (QWidget *widget : widgets)
        layout.addWidget(widget);
    QCOMPARE(switchTitled(&page, "On"), on);
    QCOMPARE(switchTitled(&page, "on"), nullptr);
    QCOMPARE(comboBoxAt(&page, 0), firstCombo);
    QCOMPARE(comboBoxAt(&page, 1), secondCombo);
    QCOMPARE(comboBoxAt(&page, 2), nullptr);
    QCOMPARE(checkBoxTitled(&page, "OneShot"), box);
    QCOMPARE(checkBoxTitled(&page, "On"), nullptr);
    QCOMPARE(labelWithText(&page, label->text()), label);
    QCOMPARE(labelWithText(&page, "Say"), nullptr);
    QCOMPARE(labelContaining(&page, "Ctrl+Alt+T"), label);
    QCOMPARE(labelTexts(&page), (QStringList{"Off", "On", label->text()}));
}

void DoublesTest::deferredDeletesAreFlushed()
{
    QPointer<QObject> first(new QObject);
    QPointer<QObject> second(new QObject);
    QPointer<QObject> third(new QObject);
    connect(first.data(), &QObject::destroyed, second.data(), &QObject::deleteLater);
    connect(second.data(), &QObject::destroyed, third.data(), &QObject::deleteLater);
    first->deleteLater();
    QCoreApplication::processEvents();
    QVERIFY(first);
    flushDeferredDeletes();
    QVERIFY(!first && !second && !third);
}

void DoublesTest::forgottenWindowsAreListed()
{
    QCOMPARE(topLevelWidgetsLeft(), QStringList());
    QLabel forgotten;
    forgotten.setObjectName("tip");
    QLabel child(&forgotten, Qt::Tool);
    QCOMPARE(topLevelWidgetsLeft(), QStringList{"QLabel tip"});
}

TEST_CLASS(QApplication, DoublesTest)

#include "doubles.moc"
