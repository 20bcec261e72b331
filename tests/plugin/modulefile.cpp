#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"

#include <QFile>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QProcess>
#include <QtTest>

// The file as it lies on the disk: what a loader can learn before anything of the module has run.

class ModuleFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaDataNamesInterfaceClassAndApi();
    void exportsTheTwoEntryPointsAndNothingElse();
    void entryPointsResolve();
    void holdsNoPathOfTheMachineThatBuiltIt();
    void bundlesListTheirFilesInOrder_data();
    void bundlesListTheirFilesInOrder();
};

void ModuleFileTest::metaDataNamesInterfaceClassAndApi()
{
    const QJsonObject metaData = QPluginLoader(QStringLiteral(MODULE_FILE)).metaData();
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
                                          QStringLiteral("-P"), QStringLiteral(MODULE_FILE)});
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
    QLibrary library(QStringLiteral(MODULE_FILE));
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint); // nothing may be left to find later
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QVERIFY(library.resolve("qt_plugin_instance"));
    QVERIFY(library.resolve("qt_plugin_query_metadata"));
    QVERIFY(!library.resolve("_ZN29TavrenAIAssitantControlPlugin16staticMetaObjectE"));
}

void ModuleFileTest::holdsNoPathOfTheMachineThatBuiltIt()
{
    QFile file(QStringLiteral(MODULE_FILE));
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

void ModuleFileTest::bundlesListTheirFilesInOrder_data()
{
    QTest::addColumn<QString>("bundle");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QStringList>("files");
    const auto catalogue = [](const char *language) {
        return QStringLiteral("assistant-control-plugin_%1.ts").arg(QLatin1String(language));
    };
    QTest::newRow("icons") << QStringLiteral("voice")
                           << QStringLiteral("/icons/tavren/builtin/actions")
                           << testsupport::bundledIconFiles();
    QTest::newRow("catalogues") << QStringLiteral("translation") << QStringLiteral("/translation")
                                << QStringList{catalogue("zh_CN"), catalogue("bo"),
                                               catalogue("ug"),    catalogue("zh_HK"),
                                               catalogue("en_US"), catalogue("zh_TW"),
                                               catalogue("en")};
}

void ModuleFileTest::bundlesListTheirFilesInOrder()
{
    QFETCH(QString, bundle);
    QFETCH(QString, prefix);
    QFETCH(QStringList, files);

    QFile source(QStringLiteral(SOURCE_ROOT "/plugin/%1.qrc").arg(bundle));
    QVERIFY(source.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&source);
    QStringList listed;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("qresource"))
            QCOMPARE(reader.attributes().value(QLatin1String("prefix")).toString(), prefix);
        else if (reader.name() == QLatin1String("file"))
            listed.append(reader.attributes().value(QLatin1String("alias")).toString());
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QCOMPARE(listed, files);
}

TEST_CLASS(QCoreApplication, ModuleFileTest)
#include "modulefile.moc"
