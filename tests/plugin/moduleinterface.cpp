#include "tests/support/testprogram.h"

#include <zcc/moduleinterface.h>

#include <QtTest>

#include <cstring>

// Hosts and modules are built apart and meet in the virtual tables: the operations' places are the
// contract.

namespace {

// Itanium C++ ABI: a pointer to a virtual member holds 1 + the byte offset into the table.
template <typename Member>
int tableIndex(Member member)
{
    quintptr offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return int((offset - 1) / sizeof(void *));
}

} // namespace

class ModuleInterfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void moduleOperationsStandInOrderBehindTheDestructorPair_data();
    void moduleOperationsStandInOrderBehindTheDestructorPair();
    void frameOperationsStandInOrder_data();
    void frameOperationsStandInOrder();
    void interfaceId();
    void defaultsOfTheBase();
};

void ModuleInterfaceTest::moduleOperationsStandInOrderBehindTheDestructorPair_data()
{
    using Module = zccV20::ModuleInterface;
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expected");
    int place = 2; // 0 and 1 are the destructors
    const auto add = [&place](const char *name, int index) {
        QTest::newRow(name) << index << place++;
    };
    add("preInitialize", tableIndex(&Module::preInitialize));
    add("initialize", tableIndex(&Module::initialize));
    add("reset", tableIndex(&Module::reset));
    add("name", tableIndex(&Module::name));
    add("displayName", tableIndex(&Module::displayName));
    add("icon", tableIndex(&Module::icon));
    add("translationPath", tableIndex(&Module::translationPath));
    add("showPage", tableIndex(&Module::showPage));
    add("moduleWidget", tableIndex(&Module::moduleWidget));
    add("contentPopped", tableIndex(&Module::contentPopped));
    add("active", tableIndex(&Module::active));
    add("deactive", tableIndex(&Module::deactive));
    add("load", tableIndex(&Module::load));
    add("availPage", tableIndex(&Module::availPage));
    add("path", tableIndex(&Module::path));
    add("follow", tableIndex(&Module::follow));
    add("enabled", tableIndex(&Module::enabled));
    add("addChildPageTrans", tableIndex(&Module::addChildPageTrans));
    add("initSearchData", tableIndex(&Module::initSearchData));
    QCOMPARE(place, 2 + 19);
}

void ModuleInterfaceTest::moduleOperationsStandInOrderBehindTheDestructorPair()
{
    QFETCH(int, index);
    QTEST(index, "expected");
}

void ModuleInterfaceTest::frameOperationsStandInOrder_data()
{
    using Frame = zccV20::FrameProxyInterface;
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expected");
    QTest::newRow("pushWidget") << tableIndex(&Frame::pushWidget) << 0;
    QTest::newRow("addPageTranslation") << tableIndex(&Frame::addPageTranslation) << 1;
    QTest::newRow("addSearchModule") << tableIndex(&Frame::addSearchModule) << 2;
    QTest::newRow("addSearchItem") << tableIndex(&Frame::addSearchItem) << 3;
}

void ModuleInterfaceTest::frameOperationsStandInOrder()
{
    QFETCH(int, index);
    QTEST(index, "expected");
}

void ModuleInterfaceTest::interfaceId()
{
    QCOMPARE(qobject_interface_iid<zccV20::ModuleInterface *>(),
             "com.tavren.zde.ControlCenter.module/1.0");
}

void ModuleInterfaceTest::defaultsOfTheBase()
{
    class Bare : public zccV20::ModuleInterface
    {
    public:
        void preInitialize(bool, zccV20::FrameProxyInterface::PushType) override {}
        void initialize() override {}
        void reset() override {}
        QString name() const override { return {}; }
        QString displayName() const override { return {}; }
        QIcon icon() const override { return {}; }
        QString translationPath() const override { return {}; }
        void contentPopped(QWidget *) override {}
        void active() override {}
        void deactive() override {}
        int load(const QString &) override { return 0; }
        QStringList availPage() const override { return {}; }
        QString path() const override { return {}; }
        QString follow() const override { return {}; }
        void addChildPageTrans() const override {}
        void initSearchData() override {}
        bool hasFrame() const { return m_frameProxy != nullptr; }
    } bare;

    QVERIFY(bare.enabled());
    QVERIFY(!bare.moduleWidget());
    QVERIFY(!bare.hasFrame());
}

TEST_CLASS(testsupport::NoApplication, ModuleInterfaceTest)
#include "moduleinterface.moc"
