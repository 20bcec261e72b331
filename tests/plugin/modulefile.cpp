// What is in the module's file, from the virtual tables to the pictures.

#include "tests/plugin/hostedmodule.h"
#include "tests/support/modulepages.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <zcc/moduleinterface.h>
#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QJsonObject>
#include <QLibrary>
#include <QListView>
#include <QPluginLoader>
#include <QProcess>
#include <QRegularExpression>
#include <QResource>
#include <QtTest>

#include <cstring>
#include <memory>

using namespace testsupport;
using Ztk::Gui::ZGuiApplicationHelper;

Q_DECLARE_METATYPE(Ztk::Gui::ZGuiApplicationHelper::ColorType)

namespace {

// Itanium C++ ABI: a pointer to a virtual member holds 1 + the byte offset into the table. On ARM,
// where the lowest bit of an address has another use, the 1 stands beside the offset.
template <typename Member>
int tableIndex(Member member)
{
#if defined(Q_PROCESSOR_ARM)
    constexpr quintptr mark = 0;
#else
    constexpr quintptr mark = 1;
#endif
    quintptr offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return int((offset - mark) / sizeof(void *));
}

} // namespace

/** Hosts and modules are built apart and meet in the virtual tables: the operations' places are the
 * contract. */
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

TEST_CLASS(NoApplication, ModuleInterfaceTest)

/** The file as it lies on the disk: what a loader can learn before anything of the module has run.
 */
class ModuleFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaDataNamesInterfaceClassAndApi();
    void exportsTheTwoEntryPointsAndNothingElse();
    void entryPointsResolve();
    void holdsNoPathOfTheMachineThatBuiltIt();
};

void ModuleFileTest::metaDataNamesInterfaceClassAndApi()
{
    const QJsonObject metaData = QPluginLoader(moduleFile()).metaData();
    QCOMPARE(metaData.value(QLatin1String("IID")).toString(),
             QStringLiteral("com.tavren.zde.ControlCenter.module/1.0"));
    QCOMPARE(metaData.value(QLatin1String("className")).toString(),
             QStringLiteral("TavrenAIAssitantControlPlugin"));
    const QJsonObject ownData = metaData.value(QLatin1String("MetaData")).toObject();
    QCOMPARE(ownData.keys(), QStringList{QStringLiteral("api")});
    QCOMPARE(ownData.value(QLatin1String("api")).toString(), QStringLiteral("1.0.0"));
}

void ModuleFileTest::exportsTheTwoEntryPointsAndNothingElse()
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                          QStringLiteral("-P"), moduleFile()});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);

    QStringList symbols;
    const auto lines = nm.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines)
        if (!line.isEmpty())
            symbols.append(QString::fromLatin1(line.left(line.indexOf(' '))));
    symbols.sort();
    QCOMPARE(symbols, (QStringList{QStringLiteral("qt_plugin_instance"),
                                   QStringLiteral("qt_plugin_query_metadata")}));
}

void ModuleFileTest::entryPointsResolve()
{
    QLibrary library(moduleFile());
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint); // nothing may be left to find later
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QVERIFY(library.resolve("qt_plugin_instance"));
    QVERIFY(library.resolve("qt_plugin_query_metadata"));
    QVERIFY(!library.resolve("_ZN29TavrenAIAssitantControlPlugin16staticMetaObjectE"));
}

void ModuleFileTest::holdsNoPathOfTheMachineThatBuiltIt()
{
    QFile file(moduleFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const uchar *data = file.map(0, file.size());
    QVERIFY(data);
    const QByteArray content =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(file.size()));
    QVERIFY(content.contains("plugin/tavrenaiassitantcontrolplugin.cpp"));
#ifndef __SANITIZE_ADDRESS__
    // AddressSanitizer's own tables name the sources as the compiler got them, whatever is mapped;
    // such a build stays on the machine that made it.
    for (const char *folder : {"plugin/", "pages/", "proxy/", "voice/"})
        QVERIFY2(!content.contains(QByteArrayLiteral(SOURCE_ROOT "/") + folder), folder);
#endif
}

TEST_CLASS(QCoreApplication, ModuleFileTest)

/** The icons and catalogues that the module brings along, in a host without an icon theme: the
 * toolkit draws the icons from the module's own bundle. */
class ModuleResourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void carriesItsIconsAndCatalogues_data();
    void carriesItsIconsAndCatalogues();
    void translationPathLeadsToTheCatalogueOfALocale_data();
    void translationPathLeadsToTheCatalogueOfALocale();
    void everyIconIsDrawnAndLikeNoOther_data();
    void everyIconIsDrawnAndLikeNoOther();

private:
    std::unique_ptr<HostedModule> m_host;
};

void ModuleResourcesTest::init()
{
    m_host = std::make_unique<HostedModule>();
    QVERIFY2(m_host->module, qPrintable(m_host->loader.errorString()));
}

void ModuleResourcesTest::cleanup()
{
    m_host.reset();
    QCOMPARE(topLevelWidgetsLeft(), QStringList());
}

void ModuleResourcesTest::carriesItsIconsAndCatalogues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("attribute");
    static const QRegularExpression suffix(QStringLiteral("_(\\d+)px\\.svg$"));
    for (const QString &file : bundledIconFiles()) {
        const QByteArray size = suffix.match(file).captured(1).toLatin1();
        QVERIFY(!size.isEmpty());
        QTest::newRow(qPrintable(file))
            << QStringLiteral(":/icons/tavren/builtin/actions/") + file << QByteArray("svg")
            << QByteArray("width=\"" + size + "\" height=\"" + size + "\"");
    }
    for (const char *language : {"zh_CN", "bo", "ug", "zh_HK", "en_US", "zh_TW", "en"})
        QTest::newRow(language) << QStringLiteral(":/translation/assistant-control-plugin_%1.ts")
                                       .arg(QLatin1String(language))
                                << QByteArray("TS") << QByteArray("version=\"2.1\"");
}

void ModuleResourcesTest::carriesItsIconsAndCatalogues()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, attribute);

    const QResource resource(path);
    QVERIFY(resource.isValid());
    // As stored: 4 bytes of size, then a zlib stream.
    const QByteArray stored = QByteArray::fromRawData(
        reinterpret_cast<const char *>(resource.data()), int(resource.size()));
    QCOMPARE(stored.at(4), '\x78');
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QCOMPARE(qUncompress(stored), content);

    const int root = content.indexOf('<' + begin + ' ');
    QVERIFY(root >= 0);
    const QByteArray rootElement = content.mid(root, content.indexOf('>', root) - root);
    QVERIFY2(rootElement.contains(attribute), rootElement.constData());
}

void ModuleResourcesTest::translationPathLeadsToTheCatalogueOfALocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("found");
    for (const char *locale : {"zh_CN", "bo", "ug", "zh_HK", "zh_TW"})
        QTest::newRow(locale) << QString::fromLatin1(locale) << true;
    QTest::newRow("English in its long form") << "en_US" << true;
    QTest::newRow("English in its short form") << "en" << true;
    QTest::newRow("another English has none") << "en_GB" << false;
    QTest::newRow("German has none") << "de_DE" << false;
}

void ModuleResourcesTest::translationPathLeadsToTheCatalogueOfALocale()
{
    QFETCH(QString, locale);
    QFETCH(bool, found);
    QFile catalogue(m_host->module->translationPath().arg(locale));
    QCOMPARE(catalogue.open(QIODevice::ReadOnly), found);
    if (!found)
        return;
    // The file of this very locale, not another one under its name.
    QXmlStreamReader reader(&catalogue);
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QStringLiteral("TS"));
    QCOMPARE(reader.attributes().value(QLatin1String("language")).toString(), locale);
}

void ModuleResourcesTest::everyIconIsDrawnAndLikeNoOther_data()
{
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    QTest::newRow("light") << ZGuiApplicationHelper::LightType;
    QTest::newRow("dark") << ZGuiApplicationHelper::DarkType;
}

void ModuleResourcesTest::everyIconIsDrawnAndLikeNoOther()
{
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    ZGuiApplicationHelper::instance()->setThemeType(theme);
    m_host->module->active();

    QList<QIcon> icons{m_host->module->icon()};
    const QAbstractItemModel *rows = m_host->pushed(0)->findChild<QListView *>()->model();
    for (int row = 0; row < rows->rowCount(); ++row)
        icons.append(rows->index(row, 0).data(Qt::DecorationRole).value<QIcon>());

    const QColor text = QApplication::palette().color(QPalette::WindowText);
    QStringList expected = {QStringLiteral("zcc_nav_voice")}; // the entry, then the rows
    for (const ModulePage &page : modulePages())
        expected.append(page.icon);
    QStringList names;
    QList<QImage> drawn;
    for (const QIcon &icon : qAsConst(icons)) {
        const QImage picture = icon.pixmap(QSize(32, 32)).toImage();
        QCOMPARE(picture.size(), QSize(32, 32));
        // Strokes in the theme's colour of texts.
        QVERIFY2(pictures::count(picture, text) > 50, qPrintable(icon.name()));
        QVERIFY2(!drawn.contains(picture), qPrintable(icon.name()));
        drawn.append(picture);
        names.append(icon.name());
    }
    QCOMPARE(names, expected);
}

TEST_CLASS(QApplication, ModuleResourcesTest)
#include "modulefile.moc"
