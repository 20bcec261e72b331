#include "tests/plugin/hostedmodule.h"
#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QtTest>

#include <memory>

using namespace testsupport;

/** The widgets that the module pushes into its frame, which may end in any order. No service runs:
 * every page opens with its fallbacks. */
class PushedPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void activePushesTheListThenTheAssistantPage();
    void activeTwicePushesTwoListsAndTwoAssistantPages();
    void anOldListStillOpensPages();
    void everyPushIsAParentlessWidgetOfTheModuleWithType2();
    void contentPoppedDeactiveAndResetLeaveThePagesAlone();
    void loadOpensThePageOfItsUntranslatedName_data();
    void loadOpensThePageOfItsUntranslatedName();
    void loadBuildsAFreshPageEachTime();
    void loadBeforeActiveReturnsZero();
    void loadAfterTheFrameDestroyedTheListReturnsZero();
    void theFrameMayDestroyAPageAtAnyTime();
    void theFrameMayDestroyTheListBeforeThePages();
    void pagesOutliveTheModuleObject();
    void listOutlivesTheModuleObject();
    void worksWithoutAFrameProxy();

private:
    std::unique_ptr<HostedModule> m_host;
};

void PushedPagesTest::init()
{
    m_host = std::make_unique<HostedModule>();
    QVERIFY2(m_host->module, qPrintable(m_host->loader.errorString()));
}

void PushedPagesTest::cleanup()
{
    m_host.reset();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void PushedPagesTest::activePushesTheListThenTheAssistantPage()
{
    m_host->module->preInitialize();
    m_host->module->initialize();
    QVERIFY(m_host->frame->pushes().isEmpty());
    m_host->module->active();
    QCOMPARE(
        m_host->frame->pushedClasses(),
        (QStringList{QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget")}));
}

void PushedPagesTest::activeTwicePushesTwoListsAndTwoAssistantPages()
{
    m_host->module->active();
    m_host->module->active();
    QCOMPARE(
        m_host->frame->pushedClasses(),
        (QStringList{QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget"),
                     QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget")}));
    QVERIFY(m_host->pushed(0) != m_host->pushed(2));
    QVERIFY(m_host->pushed(1) != m_host->pushed(3));

    // load() is the newer list's.
    m_host->module->load(QStringLiteral("Translation"));
    QCOMPARE(m_host->pushed(0)->findChild<QListView *>()->currentIndex().row(), 0);
    QCOMPARE(m_host->pushed(2)->findChild<QListView *>()->currentIndex().row(), 3);
}

void PushedPagesTest::anOldListStillOpensPages()
{
    m_host->module->active();
    m_host->module->active();
    auto *oldList = m_host->pushed(0)->findChild<QListView *>();
    oldList->setFocus();
    QTest::keyClick(oldList, Qt::Key_Down);
    QCOMPARE(m_host->frame->pushes().size(), 5);
    QCOMPARE(m_host->frame->pushes().constLast().className,
             QStringLiteral("VoiceIatSettingWidget"));
}

void PushedPagesTest::everyPushIsAParentlessWidgetOfTheModuleWithType2()
{
    m_host->module->preInitialize(false, zccV20::FrameProxyInterface::FullWindow);
    m_host->module->active();
    for (const ModulePage &page : modulePages())
        m_host->module->load(page.name);
    QCOMPARE(m_host->frame->pushes().size(), modulePages().size() + 2); // after active()'s two
    for (const FakeFrame::Push &push : m_host->frame->pushes()) {
        QCOMPARE(push.module, m_host->module);
        QVERIFY(push.widget);
        QVERIFY(!push.hadParent);
        QCOMPARE(push.type, 2);
    }
}

void PushedPagesTest::contentPoppedDeactiveAndResetLeaveThePagesAlone()
{
    m_host->module->active();
    m_host->module->contentPopped(m_host->pushed(1));
    m_host->module->deactive();
    m_host->module->reset();
    testsupport::flushDeferredDeletes();
    QCOMPARE(m_host->frame->pushes().size(), 2);
    QVERIFY(m_host->pushed(0));
    QVERIFY(m_host->pushed(1));
}

void PushedPagesTest::loadOpensThePageOfItsUntranslatedName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("page");
    const QString assistant = QStringLiteral("AssistantSettingWidget");
    const QVector<ModulePage> pages = modulePages();
    for (int row = 0; row < pages.size(); ++row) {
        const ModulePage &page = pages.at(row);
        QTest::newRow(qPrintable(page.name)) << page.name << row << page.className;
    }
    QTest::newRow("other letter case") << "speech to text" << 0 << assistant;
    QTest::newRow("short name iat") << "iat" << 0 << assistant;
    QTest::newRow("short name tts") << "tts" << 0 << assistant;
    QTest::newRow("short name translation") << "translation" << 0 << assistant;
    QTest::newRow("name with a space behind") << "Translation " << 0 << assistant;
    QTest::newRow("name as part of a path") << "Translation/Language" << 0 << assistant;
    QTest::newRow("empty") << "" << 0 << assistant;
    QTest::newRow("null") << QString() << 0 << assistant;
    QTest::newRow("rubbish") << QString(100000, QChar(0xFFFD)) << 0 << assistant;
}

void PushedPagesTest::loadOpensThePageOfItsUntranslatedName()
{
    QFETCH(QString, path);
    QFETCH(int, row);
    QFETCH(QString, page);

    m_host->module->active();
    // From another row, so that row 0 too is a change.
    m_host->module->load(QStringLiteral("Text to Speech"));
    const int before = m_host->frame->pushes().size();
    QCOMPARE(m_host->module->load(path), 0);
    QCOMPARE(m_host->frame->pushes().size(), before + 1);
    QCOMPARE(m_host->frame->pushes().constLast().className, page);
    QCOMPARE(m_host->pushed(0)->findChild<QListView *>()->currentIndex().row(), row);
}

void PushedPagesTest::loadBuildsAFreshPageEachTime()
{
    m_host->module->active();
    m_host->module->load(QStringLiteral("Translation"));
    m_host->module->load(QStringLiteral("Translation"));
    QCOMPARE(m_host->frame->pushes().size(), 4);
    QVERIFY(m_host->pushed(2));
    QVERIFY(m_host->pushed(3));
    QVERIFY(m_host->pushed(2) != m_host->pushed(3));
}

void PushedPagesTest::loadBeforeActiveReturnsZero()
{
    QCOMPARE(m_host->module->load(QStringLiteral("Translation")), 0);
    QVERIFY(m_host->frame->pushes().isEmpty());
    m_host->module->active();
    QCOMPARE(m_host->frame->pushes().size(), 2);
}

void PushedPagesTest::loadAfterTheFrameDestroyedTheListReturnsZero()
{
    m_host->module->active();
    delete m_host->pushed(0);
    QCOMPARE(m_host->module->load(QStringLiteral("Translation")), 0);
    QCOMPARE(m_host->frame->pushes().size(), 2);
    m_host->module->active();
    QCOMPARE(m_host->module->load(QStringLiteral("Translation")), 0);
    QCOMPARE(m_host->frame->pushes().size(), 5);
}

void PushedPagesTest::theFrameMayDestroyAPageAtAnyTime()
{
    m_host->module->active();
    delete m_host->pushed(1);
    for (const ModulePage &page : modulePages()) {
        m_host->module->load(page.name);
        QVERIFY(m_host->frame->pushes().constLast().widget);
        delete m_host->frame->pushes().constLast().widget;
    }
    m_host->module->active();
    QVERIFY(m_host->frame->pushes().constLast().widget);
}

void PushedPagesTest::theFrameMayDestroyTheListBeforeThePages()
{
    m_host->module->active();
    delete m_host->pushed(0);
    auto *languages = m_host->pushed(1)->findChild<QComboBox *>();
    QVERIFY(languages);
    languages->setCurrentIndex(-1);
}

void PushedPagesTest::pagesOutliveTheModuleObject()
{
    m_host->module->active();
    for (const ModulePage &page : modulePages())
        m_host->module->load(page.name);
    delete m_host->loader.instance();
    for (int i = 1; i < m_host->frame->pushes().size(); ++i) {
        const auto buttons = m_host->pushed(i)->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons)
            if (button->isCheckable())
                button->click();
    }
}

void PushedPagesTest::listOutlivesTheModuleObject()
{
    m_host->module->active();
    delete m_host->loader.instance();
    QTest::keyClick(m_host->pushed(0)->findChild<QListView *>(), Qt::Key_Down);
    QCOMPARE(m_host->frame->pushes().size(), 2);
}

void PushedPagesTest::worksWithoutAFrameProxy()
{
    m_host->module->setFrameProxy(nullptr);
    m_host->module->preInitialize();
    m_host->module->initialize();
    QVERIFY(m_host->frame->registrations().isEmpty());
}

TEST_CLASS(QApplication, PushedPagesTest)
#include "pushedpages.moc"
