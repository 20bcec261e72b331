#include "tests/plugin/hostedmodule.h"
#include "tests/support/modulepages.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <ztk/zguiapplicationhelper.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QListView>
#include <QRegularExpression>
#include <QResource>
#include <QtTest>

#include <memory>

using namespace testsupport;
using Ztk::Gui::ZGuiApplicationHelper;

Q_DECLARE_METATYPE(Ztk::Gui::ZGuiApplicationHelper::ColorType)

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
    QCOMPARE(testsupport::topLevelWidgetsLeft(), QStringList());
}

void ModuleResourcesTest::carriesItsIconsAndCatalogues_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("attribute");
    static const QRegularExpression suffix(QStringLiteral("_(\\d+)px\\.svg$"));
    for (const QString &file : testsupport::bundledIconFiles()) {
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
    for (const testsupport::ModulePage &page : testsupport::modulePages())
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
#include "moduleresources.moc"
