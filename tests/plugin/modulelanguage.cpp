#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/translationsreader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

using namespace testsupport;

namespace {

const QString pluginContext = QStringLiteral("TavrenAIAssitantControlPlugin");

QStringList strings(const QJsonValue &array)
{
    QStringList result;
    for (const auto &value : array.toArray())
        result.append(value.toString());
    return result;
}

// As the page shows it: without a keybinding daemon there is no key combination to fill in.
QString shown(QString translation)
{
    return translation.remove(QLatin1String("%1"));
}

/**
 * Runs the host in @p locale, in a process of its own: the system's locale is read once. False,
 * with what it has said, when it fails.
 */
bool runIn(const QString &locale, const QStringList &arguments, QJsonObject *output)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    environment.remove(QStringLiteral("LANGUAGE"));
    // The module keeps its translator for ever, on purpose.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(LOCALE_HOST), arguments);
    const bool well = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                      process.exitCode() == 0;
    if (!well)
        qWarning() << process.errorString() << process.readAllStandardError();
    *output = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    return well;
}

} // namespace

/** Which catalogue the module asks for in which locale. */
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

    QJsonObject host;
    QVERIFY(runIn(locale, {}, &host));
    const QStringList translator = strings(host.value(QLatin1String("translator")));
    if (fileName.isNull()) {
        QCOMPARE(translator, QStringList());
        return;
    }
    const QString path = QStringLiteral("/usr/share/TavrenAIAssistant/translations/") + fileName;
    // A missing file is no reason not to install the translator, which has no parent.
    QCOMPARE(translator, (QStringList{QStringLiteral("load %1|||").arg(path),
                                      QFile::exists(path) ? QStringLiteral("install FILLED")
                                                          : QStringLiteral("install EMPTY")}));
}

TEST_CLASS(QCoreApplication, ModuleLocaleTest)

/** The module in each of its languages: every text that it shows or registers is the catalogue's.
 */
class TranslatedModuleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void speaksTheLanguageOfTheLocale_data();
    void speaksTheLanguageOfTheLocale();

private:
    void checkRegistered(const QJsonObject &host, const Catalogue &catalogue);
    void checkWidgets(const QJsonObject &widgets, const Catalogue &catalogue);
};

void TranslatedModuleTest::speaksTheLanguageOfTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("language");
    QTest::newRow("simplified Chinese") << "zh_CN.UTF-8"
                                        << "zh_CN";
    QTest::newRow("Chinese of Hong Kong") << "zh_HK.UTF-8"
                                          << "zh_HK";
    QTest::newRow("Chinese of Taiwan") << "zh_TW.UTF-8"
                                       << "zh_TW";
    QTest::newRow("Tibetan") << "bo_CN.UTF-8"
                             << "bo";
    QTest::newRow("Uyghur") << "ug_CN.UTF-8"
                            << "ug";
    QTest::newRow("American English") << "en_US.UTF-8"
                                      << "en";
    QTest::newRow("British English") << "en_GB.UTF-8"
                                     << "en";
    QTest::newRow("German, which the module does not speak") << "de_DE.UTF-8"
                                                             << "en";
}

void TranslatedModuleTest::speaksTheLanguageOfTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, language);

    QJsonObject host;
    QVERIFY(runIn(locale, {QStringLiteral(CATALOGUES)}, &host));

    const Catalogue catalogue = Catalogue::fromFile(QStringLiteral(SOURCE_ROOT "/translations/") +
                                                    catalogueFileName(language));
    QVERIFY2(catalogue.error.isEmpty(), qPrintable(catalogue.error));
    checkRegistered(host, catalogue);
    if (!QTest::currentTestFailed())
        checkWidgets(host.value(QLatin1String("widgets")).toObject(), catalogue);
}

// The name in the navigation, the breadcrumb's names, and the search entries.
void TranslatedModuleTest::checkRegistered(const QJsonObject &host, const Catalogue &catalogue)
{
    const auto translated = [&](const QString &source) {
        return catalogue.translation(pluginContext, source);
    };
    const QString name = translated(QStringLiteral("Assistive Tools"));
    QVERIFY(!name.isEmpty());
    QCOMPARE(host.value(QLatin1String("name")).toString(), name);

    const QStringList pages = registeredPageNames();
    const QJsonArray pageNames = host.value(QLatin1String("pageNames")).toArray();
    QCOMPARE(pageNames.size(), pages.size());
    for (int i = 0; i < pages.size(); ++i)
        QCOMPARE(strings(pageNames.at(i)), QStringList({pages.at(i), translated(pages.at(i))}));

    QVector<QStringList> expected;
    for (const ModulePage &page : modulePages()) {
        const QString pageName = translated(page.name);
        expected.append({name, pageName, QString()});
        for (const QString &setting : page.settings)
            expected.append({name, pageName, translated(setting)});
    }
    const QJsonArray search = host.value(QLatin1String("search")).toArray();
    QCOMPARE(search.size(), expected.size());
    for (int i = 0; i < search.size(); ++i)
        QCOMPARE(strings(search.at(i)), expected.at(i));
}

// The list and the pages: each has all texts of its class, and none in another language.
void TranslatedModuleTest::checkWidgets(const QJsonObject &widgets, const Catalogue &catalogue)
{
    QStringList classes = {QStringLiteral("ThirdListWidget")};
    for (const ModulePage &page : modulePages())
        classes.append(page.className);
    classes.sort();
    QCOMPARE(widgets.keys(), classes);

    // These are on the screen only while the microphone is heard, or because of what it heard.
    const QStringList needMicrophone{QStringLiteral("It sounds good"),
                                     QStringLiteral("Service exception"),
                                     QStringLiteral("Microphone level"),
                                     QStringLiteral("Press Space or Escape to cancel the test"),
                                     QStringLiteral("Click to cancel the test")};
    QStringList faults;
    for (const QString &name : qAsConst(classes)) {
        const QStringList texts = strings(widgets.value(name));
        for (const CatalogueMessage &message : catalogue.messages) {
            const QString expected = shown(message.translation);
            if (message.context == name && !texts.contains(expected) &&
                !needMicrophone.contains(message.source))
                faults.append(name + QLatin1String(" does not show ") + expected);
            if (texts.contains(shown(message.source)) && message.translation != message.source)
                faults.append(name + QLatin1String(" shows ") + message.source);
        }
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

TEST_CLASS(QCoreApplication, TranslatedModuleTest)
#include "modulelanguage.moc"
