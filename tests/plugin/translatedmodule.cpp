#include "tests/support/modulepages.h"
#include "tests/support/testprogram.h"
#include "tests/support/translationsreader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

// The built module in each of its languages: every text that it shows or registers is the
// catalogue's.

namespace {

const QString pluginContext = QStringLiteral("TavrenAIAssitantControlPlugin");

QStringList strings(const QJsonValue &array)
{
    QStringList result;
    for (const auto &value : array.toArray())
        result.append(value.toString());
    return result;
}

/// As the page shows it: without a keybinding daemon there is no key combination to fill in.
QString shown(QString translation)
{
    return translation.remove(QLatin1String("%1"));
}

} // namespace

class TranslatedModuleTest : public QObject
{
    Q_OBJECT
private slots:
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

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    environment.remove(QStringLiteral("LANGUAGE"));
    // The module keeps its translator for ever, on purpose.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TRANSLATED_HOST), QStringList());
    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
             process.readAllStandardError().constData());
    const auto host = QJsonDocument::fromJson(process.readAllStandardOutput()).object();

    const Catalogue catalogue = Catalogue::fromFile(QStringLiteral(SOURCE_ROOT "/translations/") +
                                                    catalogueFileName(language));
    QVERIFY2(catalogue.error.isEmpty(), qPrintable(catalogue.error));
    checkRegistered(host, catalogue);
    if (!QTest::currentTestFailed())
        checkWidgets(host.value(QLatin1String("widgets")).toObject(), catalogue);
}

/// The name in the navigation, the breadcrumb's names, and the search entries.
void TranslatedModuleTest::checkRegistered(const QJsonObject &host, const Catalogue &catalogue)
{
    const auto translated = [&](const QString &source) {
        return catalogue.translation(pluginContext, source);
    };
    const QString name = translated(QStringLiteral("Assistive Tools"));
    QVERIFY(!name.isEmpty());
    QCOMPARE(host.value(QLatin1String("name")).toString(), name);

    const QStringList pages = testsupport::registeredPageNames();
    const QJsonArray pageNames = host.value(QLatin1String("pageNames")).toArray();
    QCOMPARE(pageNames.size(), pages.size());
    for (int i = 0; i < pages.size(); ++i)
        QCOMPARE(strings(pageNames.at(i)), QStringList({pages.at(i), translated(pages.at(i))}));

    QVector<QStringList> expected;
    for (const testsupport::ModulePage &page : testsupport::modulePages()) {
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

/// The list and the pages: each has all texts of its class, and none in another language.
void TranslatedModuleTest::checkWidgets(const QJsonObject &widgets, const Catalogue &catalogue)
{
    QStringList classes = {QStringLiteral("ThirdListWidget")};
    for (const testsupport::ModulePage &page : testsupport::modulePages())
        classes.append(page.className);
    classes.sort();
    QCOMPARE(widgets.keys(), classes);

    // These are on the screen only while the microphone is heard, or because of what it heard.
    const QStringList needMicrophone{QStringLiteral("It sounds good"),
                                     QStringLiteral("Service exception"),
                                     QStringLiteral("Microphone level"),
                                     QStringLiteral("Press Space or Escape to cancel the test")};
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
#include "translatedmodule.moc"
