#include "tests/support/fakeframe.h"
#include "tests/support/modulepages.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <zcc/moduleinterface.h>
#include <ztk/zguiapplicationhelper.h>

#include <QIcon>
#include <QListView>
#include <QPluginLoader>
#include <QtTest>

#include <memory>

// What the module's icons look like in a host without an icon theme: the toolkit draws them from
// the module's own bundle.

using Ztk::Gui::ZGuiApplicationHelper;

Q_DECLARE_METATYPE(Ztk::Gui::ZGuiApplicationHelper::ColorType)

class ModuleIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyIconIsDrawnAndLikeNoOther_data();
    void everyIconIsDrawnAndLikeNoOther();
};

void ModuleIconsTest::everyIconIsDrawnAndLikeNoOther_data()
{
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    QTest::newRow("light") << ZGuiApplicationHelper::LightType;
    QTest::newRow("dark") << ZGuiApplicationHelper::DarkType;
}

void ModuleIconsTest::everyIconIsDrawnAndLikeNoOther()
{
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    ZGuiApplicationHelper::instance()->setThemeType(theme);
    QPluginLoader loader(QStringLiteral(MODULE_FILE));
    const std::unique_ptr<QObject> object(loader.instance());
    auto *module = qobject_cast<zccV20::ModuleInterface *>(object.get());
    QVERIFY2(module, qPrintable(loader.errorString()));
    testsupport::FakeFrame frame(testsupport::FakeFrame::OnDemand);
    module->setFrameProxy(&frame);
    module->active();

    QList<QIcon> icons{module->icon()};
    const QAbstractItemModel *rows = frame.pushes().at(0).widget->findChild<QListView *>()->model();
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

TEST_CLASS(QApplication, ModuleIconsTest)
#include "moduleicons.moc"
