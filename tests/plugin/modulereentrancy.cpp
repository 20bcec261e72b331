#include "pages/assistantsettingwidget.h"
#include "plugin/assistzlistview.h"
#include "plugin/tavrenaiassitantcontrolplugin.h"
#include "plugin/thirdlistwidget.h"
#include "tests/support/fakeframe.h"
#include "tests/support/modulepages.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

// A page waits for its services while events are processed: what the host or the user may do to the
// module in the meantime, beyond what modulewaits.cpp does at every call.

using testsupport::FakeFrame;
using testsupport::ServiceProcess;

using AskForAPage = std::function<void(QWidget *viewport, const QPoint &place)>;
Q_DECLARE_METATYPE(AskForAPage)

class ModuleReentrancyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void preInitializeCallsThroughTheVirtualTable();
    void searchEntriesTakeTheDisplayNameThroughTheVirtualTable();
    void withoutAFrameNothingIsLeftBehind();

    void aSecondPageMayOpenWhileTheFirstWaits();
    void theSamePageMayOpenTwiceAtOnce();
    void activeMayBeCalledWhileAPageWaits();
    void theFrameProxyMayGoWhileAPageWaits();
    void theListMayGoWhileThePageItAskedForWaits_data();
    void theListMayGoWhileThePageItAskedForWaits();
    void theKeybindingDaemonMayDieWhileAPageWaits();

    void aFrameMayCallInAnyOrder();
    void twoModulesKeepApart();

private:
    /**
     * Holds back the next answers of the keybinding daemon, opens a page with @p open and, once the
     * page waits, runs @p meanwhile before it lets the answers go.
     */
    void whileAPageWaits(const std::function<void()> &open, const std::function<void()> &meanwhile);
    QWidget *pushed(int index) const { return m_frame->pushes().at(index).widget; }

    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    std::unique_ptr<FakeFrame> m_frame;
    QPointer<TavrenAIAssitantControlPlugin> m_module;
};

void ModuleReentrancyTest::initTestCase()
{
    QVERIFY(m_keybinding.start());
}

void ModuleReentrancyTest::init()
{
    m_frame = std::make_unique<FakeFrame>(FakeFrame::OnDemand);
    m_module = new TavrenAIAssitantControlPlugin;
    m_module->setFrameProxy(m_frame.get());
}

void ModuleReentrancyTest::cleanup()
{
    delete m_module;
    m_frame.reset();
    testsupport::flushDeferredDeletes();
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
    if (!m_keybinding.isRunning())
        QVERIFY(m_keybinding.start());
    m_keybinding.reset();
}

void ModuleReentrancyTest::whileAPageWaits(const std::function<void()> &open,
                                           const std::function<void()> &meanwhile)
{
    m_keybinding.reset();
    m_keybinding.script(QStringLiteral("GetShortcut"), QStringLiteral("hold"));
    bool waited = false;
    QTimer::singleShot(0, this, [&] {
        QVERIFY(m_keybinding.waitForCalls(QStringLiteral("GetShortcut")));
        waited = true;
        // Later pages of this test get their answer at once.
        m_keybinding.script(QStringLiteral("GetShortcut"), QStringLiteral("answer"));
        meanwhile();
        if (m_keybinding.isRunning())
            m_keybinding.release(QStringLiteral("GetShortcut"));
    });
    open();
    QVERIFY(waited);
}

void ModuleReentrancyTest::preInitializeCallsThroughTheVirtualTable()
{
    class Overridden : public TavrenAIAssitantControlPlugin
    {
    public:
        void addChildPageTrans() const override { order.append(QStringLiteral("names")); }
        void initSearchData() override { order.append(QStringLiteral("search")); }
        mutable QStringList order;
    } module;
    module.setFrameProxy(m_frame.get());
    module.preInitialize(true, zccV20::FrameProxyInterface::Overlay);
    QCOMPARE(module.order, (QStringList{QStringLiteral("names"), QStringLiteral("search")}));
    QVERIFY(m_frame->registrations().isEmpty());
}

void ModuleReentrancyTest::searchEntriesTakeTheDisplayNameThroughTheVirtualTable()
{
    class Renamed : public TavrenAIAssitantControlPlugin
    {
    public:
        QString displayName() const override
        {
            ++asked;
            return QStringLiteral("Another name");
        }
        mutable int asked = 0;
    } module;
    module.setFrameProxy(m_frame.get());
    module.initSearchData();
    QCOMPARE(module.asked, 1);
    int expected = 0;
    for (const testsupport::ModulePage &page : testsupport::modulePages())
        expected += 1 + page.settings.size();
    QCOMPARE(m_frame->registrations().size(), expected);
    for (const FakeFrame::Registration &entry : m_frame->registrations())
        QCOMPARE(entry.texts.constFirst(), QStringLiteral("Another name"));
}

void ModuleReentrancyTest::withoutAFrameNothingIsLeftBehind()
{
    m_module->setFrameProxy(nullptr);
    m_module->preInitialize(false, zccV20::FrameProxyInterface::NextColumn);
    m_module->active();
    QCOMPARE(m_module->load(QStringLiteral("Translation")), 0);
    m_module->showVoiceIatWidget();
    m_module->deactive();
    testsupport::flushDeferredDeletes();
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList{m_frame->window()});

    m_module->setFrameProxy(m_frame.get());
    m_module->active();
    QCOMPARE(m_frame->pushes().size(), 2);
}

void ModuleReentrancyTest::aSecondPageMayOpenWhileTheFirstWaits()
{
    m_module->active();
    whileAPageWaits([this] { m_module->load(QStringLiteral("Speech to Text")); },
                    [this] { m_module->load(QStringLiteral("Translation")); });
    // Each slot pushes the page that it built.
    QCOMPARE(m_frame->pushedClasses(), (QStringList{QStringLiteral("ThirdListWidget"),
                                                    QStringLiteral("AssistantSettingWidget"),
                                                    QStringLiteral("TextTranslateSettingWidget"),
                                                    QStringLiteral("VoiceIatSettingWidget")}));
}

void ModuleReentrancyTest::theSamePageMayOpenTwiceAtOnce()
{
    m_module->active();
    whileAPageWaits([this] { m_module->showVoiceTtsWidget(); },
                    [this] { m_module->showVoiceTtsWidget(); });
    QCOMPARE(m_frame->pushes().size(), 4);
    QVERIFY(pushed(2));
    QVERIFY(pushed(3));
    QVERIFY(pushed(2) != pushed(3));
}

void ModuleReentrancyTest::activeMayBeCalledWhileAPageWaits()
{
    m_module->active();
    whileAPageWaits([this] { m_module->load(QStringLiteral("Text to Speech")); },
                    [this] { m_module->active(); });
    QCOMPARE(
        m_frame->pushedClasses(),
        (QStringList{QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget"),
                     QStringLiteral("ThirdListWidget"), QStringLiteral("AssistantSettingWidget"),
                     QStringLiteral("VoiceTTSSettingWidget")}));
}

void ModuleReentrancyTest::theFrameProxyMayGoWhileAPageWaits()
{
    m_module->active();
    whileAPageWaits([this] { m_module->showTranslateWidget(); },
                    [this] { m_module->setFrameProxy(nullptr); });
    QCOMPARE(m_frame->pushes().size(), 2);
}

void ModuleReentrancyTest::theListMayGoWhileThePageItAskedForWaits_data()
{
    QTest::addColumn<AskForAPage>("ask");
    QTest::addColumn<bool>("later");

    const AskForAPage click = [](QWidget *viewport, const QPoint &place) {
        QTest::mouseClick(viewport, Qt::LeftButton, {}, place);
    };
    const AskForAPage secondClick = [](QWidget *viewport, const QPoint &place) {
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, place);
    };
    const auto key = [](Qt::Key pressed) -> AskForAPage {
        return [pressed](QWidget *viewport, const QPoint &) {
            QTest::keyClick(viewport->parentWidget(), pressed);
        };
    };
    for (const bool later : {false, true}) {
        const QByteArray end = later ? ", deleted later" : ", deleted at once";
        QTest::newRow("click" + end) << click << later;
        QTest::newRow("second click of a double click" + end) << secondClick << later;
        QTest::newRow("Up" + end) << key(Qt::Key_Up) << later;
        QTest::newRow("Return" + end) << key(Qt::Key_Return) << later;
        QTest::newRow("Enter" + end) << key(Qt::Key_Enter) << later;
    }
}

void ModuleReentrancyTest::theListMayGoWhileThePageItAskedForWaits()
{
    QFETCH(AskForAPage, ask);
    QFETCH(bool, later);
    m_module->active();
    const QPointer<QWidget> list = pushed(0);
    auto *view = list->findChild<AssistZListView *>();
    QVERIFY(m_frame->showActive());
    const QPoint place = view->visualRect(view->model()->index(3, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(m_frame->pushes().size(), 3);

    whileAPageWaits([&] { ask(view->viewport(), place); },
                    [&list, later] {
                        if (later) {
                            list->deleteLater();
                            testsupport::flushDeferredDeletes();
                        } else {
                            delete list;
                        }
                        QVERIFY(list.isNull());
                    });
    QCOMPARE(m_frame->pushes().size(), 4);
}

void ModuleReentrancyTest::theKeybindingDaemonMayDieWhileAPageWaits()
{
    m_module->active();
    whileAPageWaits([this] { m_module->load(QStringLiteral("Speech to Text")); },
                    [this] { m_keybinding.kill(); });
    QCOMPARE(m_frame->pushes().constLast().className, QStringLiteral("VoiceIatSettingWidget"));
}

// Also again and again, and without a frame. Each call does what it does in the usual order.
void ModuleReentrancyTest::aFrameMayCallInAnyOrder()
{
    bool frame = true;    // is set
    bool list = false;    // was pushed, and lives
    int pushes = 0;       // as many as there should be
    int preparations = 0; // each registers the same
    const auto pushed = [&](int count) {
        pushes += frame ? count : 0;
    };
    const std::function<void()> calls[] = {
        [&] {
            m_module->preInitialize(true, zccV20::FrameProxyInterface::Overlay);
            preparations += frame ? 1 : 0;
        },
        [&] { m_module->initialize(); },
        [&] { m_module->reset(); },
        [&] {
            m_module->active();
            pushed(2);
            list = frame;
        },
        [&] { m_module->deactive(); },
        [&] {
            QCOMPARE(m_module->load(QStringLiteral("Translation")), 0);
            pushed(list ? 1 : 0);
        },
        [&] {
            m_module->showVoiceTtsWidget();
            pushed(1);
        },
        [&] { m_module->contentPopped(m_frame->page()); },
        [&] { m_module->contentPopped(nullptr); },
        [&] {
            m_frame->disposeAll();
            list = false;
        },
        [&] {
            frame = !frame;
            m_module->setFrameProxy(frame ? m_frame.get() : nullptr);
        },
    };
    constexpr int count = int(sizeof calls / sizeof *calls);
    calls[0]();
    const int each = m_frame->registrations().size();
    QVERIFY(each > 0);
    QRandomGenerator random(1);
    QByteArray order(1, 'a');
    QSet<QByteArray> pairs;
    while (pairs.size() < count * count) { // each call after each
        const int call = random.bounded(count);
        order.append(static_cast<char>('a' + call));
        pairs.insert(order.right(2));
        calls[call]();
        if (QTest::currentTestFailed())
            return;
        QVERIFY2(m_frame->pushes().size() == pushes, order.constData());
        QVERIFY2(m_frame->registrations().size() == preparations * each, order.constData());
    }
}

void ModuleReentrancyTest::twoModulesKeepApart()
{
    FakeFrame otherFrame(FakeFrame::OnDemand);
    TavrenAIAssitantControlPlugin other;
    other.setFrameProxy(&otherFrame);
    other.preInitialize(true, zccV20::FrameProxyInterface::Overlay);
    QVERIFY(m_frame->registrations().isEmpty());
    m_module->active();
    other.active();
    QCOMPARE(m_frame->pushes().size(), 2);
    QCOMPARE(otherFrame.pushes().size(), 2);

    // The one goes while its page waits and the other builds one, too.
    whileAPageWaits([this] { m_module->load(QStringLiteral("Speech to Text")); },
                    [&] {
                        other.load(QStringLiteral("Translation"));
                        delete m_module;
                    });
    QCOMPARE(m_frame->pushes().size(), 2);
    QCOMPARE(otherFrame.pushes().constLast().className,
             QStringLiteral("TextTranslateSettingWidget"));
    other.load(QStringLiteral("Text to Speech"));
    QCOMPARE(otherFrame.pushes().size(), 4);
    for (const FakeFrame::Push &push : otherFrame.pushes())
        QCOMPARE(push.module, static_cast<zccV20::ModuleInterface *>(&other));
}

TEST_CLASS(QApplication, ModuleReentrancyTest)
#include "modulereentrancy.moc"
