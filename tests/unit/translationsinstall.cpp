#include "tests/support/testprogram.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

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
#include "translationsinstall.moc"
