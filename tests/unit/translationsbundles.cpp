#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/translationsreader.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QResource>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

using namespace testsupport;

// The two bundles compiled into the module: their paths, their order, how they are stored, and that
// the drawings keep to what every SVG renderer of Qt draws.

namespace {

const QString iconFolder = QStringLiteral(":/icons/tavren/builtin/actions");
const QString catalogueFolder = QStringLiteral(":/translation");

QStringList catalogueFiles()
{
    QStringList files;
    for (const QString &language : catalogueLanguages())
        files.append(catalogueFileName(language));
    return files;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct BundleEntry
{
    QString resource; // ":/..."
    QString file;     // relative to the .qrc file
};

QVector<BundleEntry> bundleEntries(const QString &qrc)
{
    QVector<BundleEntry> entries;
    QXmlStreamReader xml(contents(QStringLiteral(SOURCE_ROOT "/plugin/") + qrc));
    QString prefix;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("qresource"))
            prefix = xml.attributes().value(QLatin1String("prefix")).toString();
        if (xml.name() == QLatin1String("file")) {
            const QString alias = xml.attributes().value(QLatin1String("alias")).toString();
            entries.append(
                {QLatin1Char(':') + prefix + QLatin1Char('/') + alias, xml.readElementText()});
        }
    }
    return entries;
}

QStringList resources(const QString &folder, const QStringList &files)
{
    QStringList paths;
    for (const QString &file : files)
        paths.append(folder + QLatin1Char('/') + file);
    return paths;
}

int designSize(const QString &file)
{
    static const QRegularExpression suffix(QStringLiteral("_(\\d+)px\\.svg$"));
    return suffix.match(file).captured(1).toInt();
}

} // namespace

class TranslationsBundlesTest : public QObject
{
    Q_OBJECT
private slots:
    void holdsExactlyItsFilesInOrder_data();
    void holdsExactlyItsFilesInOrder();
    void storesEveryFileWithZlib_data();
    void storesEveryFileWithZlib();
    void catalogueIsReadable_data();
    void catalogueIsReadable();
    void drawingHasTheSizeOfItsName_data() { addIcons(); }
    void drawingHasTheSizeOfItsName();
    void drawingUsesOnlyPlainShapesInOneColour_data() { addIcons(); }
    void drawingUsesOnlyPlainShapesInOneColour();
    void drawingFillsItsGridWithoutTouchingTheEdge_data() { addIcons(); }
    void drawingFillsItsGridWithoutTouchingTheEdge();

private:
    void addIcons();
};

void TranslationsBundlesTest::holdsExactlyItsFilesInOrder_data()
{
    QTest::addColumn<QString>("qrc");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("voice") << "voice.qrc" << iconFolder << testsupport::bundledIconFiles();
    QTest::newRow("translation") << "translation.qrc" << catalogueFolder << catalogueFiles();
}

void TranslationsBundlesTest::holdsExactlyItsFilesInOrder()
{
    QFETCH(QString, qrc);
    QFETCH(QString, folder);
    QFETCH(QStringList, files);
    QStringList listed;
    for (const BundleEntry &entry : bundleEntries(qrc))
        listed.append(entry.resource);
    QCOMPARE(listed, resources(folder, files));

    // The toolkit keeps icons of its own in the same folder.
    const QStringList mine{QStringLiteral("zcc_nav_*"), QStringLiteral("assistant-*")};
    files.sort();
    QCOMPARE(QDir(folder).entryList(mine, QDir::NoFilter, QDir::Name), files);
}

void TranslationsBundlesTest::storesEveryFileWithZlib_data()
{
    QTest::addColumn<QString>("resource");
    QTest::addColumn<QString>("file");
    for (const auto *qrc : {"voice.qrc", "translation.qrc"})
        for (const BundleEntry &entry : bundleEntries(QLatin1String(qrc)))
            QTest::newRow(qPrintable(entry.resource)) << entry.resource << entry.file;
}

void TranslationsBundlesTest::storesEveryFileWithZlib()
{
    QFETCH(QString, resource);
    QFETCH(QString, file);
    const QByteArray original = contents(QStringLiteral(SOURCE_ROOT "/plugin/") + file);
    QVERIFY2(!original.isEmpty(), qPrintable(file));

    const QResource stored(resource);
    QVERIFY(stored.isValid());
    // Qt's own packing of zlib data; with another algorithm, or none, this yields nothing.
    QCOMPARE(qUncompress(stored.data(), int(stored.size())), original);
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    QCOMPARE(stored.compressionAlgorithm(), QResource::ZlibCompression);
#endif
    QCOMPARE(contents(resource), original);
}

void TranslationsBundlesTest::catalogueIsReadable_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : catalogueLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

void TranslationsBundlesTest::catalogueIsReadable()
{
    QFETCH(QString, language);
    const Catalogue catalogue =
        Catalogue::fromFile(catalogueFolder + QLatin1Char('/') + catalogueFileName(language));
    QVERIFY2(catalogue.error.isEmpty(), qPrintable(catalogue.error));
    QCOMPARE(catalogue.version, QStringLiteral("2.1"));
    QCOMPARE(catalogue.language, language);
    QCOMPARE(catalogue.contexts.value(0), QStringLiteral("AssistantSettingWidget"));
    QVERIFY(!catalogue
                 .translation(QStringLiteral("TavrenAIAssitantControlPlugin"),
                              QStringLiteral("Voice Wakeup"))
                 .isEmpty());
}

void TranslationsBundlesTest::addIcons()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : testsupport::bundledIconFiles())
        QTest::newRow(qPrintable(file)) << file;
}

void TranslationsBundlesTest::drawingHasTheSizeOfItsName()
{
    QFETCH(QString, file);
    const QString size = QString::number(designSize(file));
    QXmlStreamReader xml(contents(iconFolder + QLatin1Char('/') + file));
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name().toString(), QStringLiteral("svg"));
    QCOMPARE(xml.attributes().value(QLatin1String("width")).toString(), size);
    QCOMPARE(xml.attributes().value(QLatin1String("height")).toString(), size);
    QCOMPARE(xml.attributes().value(QLatin1String("viewBox")).toString(),
             QStringLiteral("0 0 %1 %1").arg(size));
}

// The toolkit gives the drawings the theme's text colour, so they have just one of their own.
void TranslationsBundlesTest::drawingUsesOnlyPlainShapesInOneColour()
{
    QFETCH(QString, file);
    static const QStringList elements{QStringLiteral("svg"), QStringLiteral("g"),
                                      QStringLiteral("path"), QStringLiteral("rect")};
    static const QStringList colours{QStringLiteral("none"), QStringLiteral("#000000")};
    QXmlStreamReader xml(contents(iconFolder + QLatin1Char('/') + file));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        QVERIFY2(elements.contains(xml.name().toString()), qPrintable(xml.name().toString()));
        QVERIFY(!xml.attributes().hasAttribute(QLatin1String("style")));
        for (const auto *paint : {"fill", "stroke"}) {
            const auto value = xml.attributes().value(QLatin1String(paint)).toString();
            QVERIFY2(value.isEmpty() || colours.contains(value), qPrintable(value));
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
}

void TranslationsBundlesTest::drawingFillsItsGridWithoutTouchingTheEdge()
{
    QFETCH(QString, file);
    const int size = designSize(file);
    const QIcon icon(iconFolder + QLatin1Char('/') + file);
    for (const int scale : {1, 2}) {
        const int pixels = size * scale;
        const QImage image = icon.pixmap(pixels, pixels).toImage();
        QCOMPARE(image.size(), QSize(pixels, pixels));
        QRect ink;
        for (int y = 0; y < pixels; ++y)
            for (int x = 0; x < pixels; ++x)
                if (qAlpha(image.pixel(x, y)) != 0)
                    ink |= QRect(x, y, 1, 1);
        const int margin = scale; // at least one pixel of the grid stays free all around
        QVERIFY(image.rect().adjusted(margin, margin, -margin, -margin).contains(ink));
        QVERIFY(ink.width() > pixels * 3 / 4);
        QVERIFY(ink.height() > pixels * 3 / 4);
    }
}

TEST_CLASS(QApplication, TranslationsBundlesTest)

// The compiled catalogues, installed for real into a folder: the module asks for exactly these
// files.

namespace {

const QString installedFolder = QStringLiteral("/usr/share/TavrenAIAssistant/translations");

} // namespace

class TranslationsInstallTest : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void installsExactlyTheFilesThatTheModuleAsksFor();
    void fileTranslates_data();
    void fileTranslates();

private:
    QString m_folder;
    QTemporaryDir m_root;
};

void TranslationsInstallTest::initTestCase()
{
    QVERIFY(m_root.isValid());
    m_folder = m_root.path() + installedFolder;
    QProcess install;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), m_root.path());
    install.setProcessEnvironment(environment);
    install.start(QStringLiteral(CMAKE_PROGRAM),
                  {QStringLiteral("-DCMAKE_INSTALL_COMPONENT=translations"), QStringLiteral("-P"),
                   QStringLiteral(BUILD_ROOT "/cmake_install.cmake")});
    QVERIFY2(install.waitForFinished(), qPrintable(install.errorString()));
    QVERIFY2(install.exitStatus() == QProcess::NormalExit && install.exitCode() == 0,
             install.readAllStandardError().constData());
}

void TranslationsInstallTest::installsExactlyTheFilesThatTheModuleAsksFor()
{
    // The English file begins with a doubled "a", and there is none for en_US.
    const QStringList expected{QStringLiteral("aassistant-control-plugin_en.qm"),
                               QStringLiteral("assistant-control-plugin_bo.qm"),
                               QStringLiteral("assistant-control-plugin_ug.qm"),
                               QStringLiteral("assistant-control-plugin_zh_CN.qm"),
                               QStringLiteral("assistant-control-plugin_zh_HK.qm"),
                               QStringLiteral("assistant-control-plugin_zh_TW.qm")};
    QCOMPARE(QDir(m_folder).entryList(QDir::Files, QDir::Name), expected);
}

void TranslationsInstallTest::fileTranslates_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("language");
    QTest::newRow("en") << "aassistant-control-plugin_en.qm"
                        << "Language";
    QTest::newRow("bo") << "assistant-control-plugin_bo.qm"
                        << "སྐད་ཡིག";
    QTest::newRow("ug") << "assistant-control-plugin_ug.qm"
                        << "تىل";
    QTest::newRow("zh_CN") << "assistant-control-plugin_zh_CN.qm"
                           << "语言";
    QTest::newRow("zh_HK") << "assistant-control-plugin_zh_HK.qm"
                           << "語言";
    QTest::newRow("zh_TW") << "assistant-control-plugin_zh_TW.qm"
                           << "語言";
}

void TranslationsInstallTest::fileTranslates()
{
    QFETCH(QString, file);
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(m_folder + QLatin1Char('/') + file));
    for (const char *context : {"AssistantSettingWidget", "TavrenAIAssitantControlPlugin",
                                "TextTranslateSettingWidget", "VoiceIatSettingWidget"})
        QCOMPARE(translator.translate(context, "Language"), language);
}

TEST_CLASS(QCoreApplication, TranslationsInstallTest)

#include "translationsbundles.moc"
