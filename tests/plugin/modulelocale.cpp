#include "tests/support/testprogram.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

// Which catalogue the module asks for in which locale. Each locale gets a process of its own: the
// system's locale is read once.

class ModuleLocaleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksForTheCatalogueOfTheLocale_data();
    void asksForTheCatalogueOfTheLocale();
};

void ModuleLocaleTest::asksForTheCatalogueOfTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("fileName"); // null: no translator is installed
    QTest::newRow("simplified Chinese") << "zh_CN.UTF-8"
                                        << "assistant-control-plugin_zh_CN.qm";
    QTest::newRow("Chinese of Hong Kong") << "zh_HK.UTF-8"
                                          << "assistant-control-plugin_zh_HK.qm";
    QTest::newRow("Chinese of Taiwan") << "zh_TW.UTF-8"
                                       << "assistant-control-plugin_zh_TW.qm";
    QTest::newRow("Chinese of Singapore has none") << "zh_SG.UTF-8" << QString();
    QTest::newRow("Tibetan of China") << "bo_CN.UTF-8"
                                      << "assistant-control-plugin_bo.qm";
    QTest::newRow("Tibetan of India") << "bo_IN.UTF-8"
                                      << "assistant-control-plugin_bo.qm";
    QTest::newRow("Uyghur") << "ug_CN.UTF-8"
                            << "assistant-control-plugin_ug.qm";
    QTest::newRow("American English, doubled a") << "en_US.UTF-8"
                                                 << "aassistant-control-plugin_en.qm";
    QTest::newRow("British English, the same") << "en_GB.UTF-8"
                                               << "aassistant-control-plugin_en.qm";
    // Anywhere in the name counts.
    QTest::newRow("Kenyang holds \"en\"") << "ken_CM.UTF-8"
                                          << "aassistant-control-plugin_en.qm";
    QTest::newRow("Lojban holds \"bo\"") << "jbo_001.UTF-8"
                                         << "assistant-control-plugin_bo.qm";
    QTest::newRow("German has none") << "de_DE.UTF-8" << QString();
    QTest::newRow("the C locale has none") << "C.UTF-8" << QString();
}

void ModuleLocaleTest::asksForTheCatalogueOfTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, fileName);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    environment.remove(QStringLiteral("LANGUAGE"));
    // The module keeps its translator for ever, on purpose.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    QProcess host;
    host.setProcessEnvironment(environment);
    host.start(QStringLiteral(LOCALE_HOST), QStringList());
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 0);

    const QString output = QString::fromUtf8(host.readAllStandardOutput());
    if (fileName.isNull()) {
        QCOMPARE(output, QString());
        return;
    }
    const QString path = QStringLiteral("/usr/share/TavrenAIAssistant/translations/") + fileName;
    const QStringList lines = output.split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3); // the last one is what follows the last line break
    QCOMPARE(lines.at(0), QStringLiteral("load %1|||").arg(path));
    // A missing file is no reason not to install the translator, which has no parent.
    QCOMPARE(lines.at(1), QFile::exists(path) ? QStringLiteral("install FILLED")
                                              : QStringLiteral("install EMPTY"));
}

TEST_CLASS(QCoreApplication, ModuleLocaleTest)
#include "modulelocale.moc"
