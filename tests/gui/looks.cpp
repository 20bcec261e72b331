#include "sandbox/controlcenter/appearance.h"
#include "sandbox/controlcenter/contrastcheck.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/layoutcheck.h"
#include "sandbox/controlcenter/moduleloader.h"
#include "sandbox/controlcenter/searchfield.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"
#include "tests/support/widgets.h"

#include <ztk/zapplicationsetup.h>
#include <ztk/zguiapplicationhelper.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QTranslator>
#include <QtTest>

#include <memory>

using namespace controlcenter;
using testsupport::IsolatedHome;
using testsupport::ServiceProcess;
using Ztk::Gui::ZGuiApplicationHelper;

namespace {

constexpr double usualText = 10.5;  // points
constexpr double largeText = 15.75; // half as large again

const QString assistantPage = QStringLiteral("Desktop AI Assistant");

/** Every text half as long again, short ones twice as long, with long words: as in German. */
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "QGuiApplication") == 0)
            return QString(); // Qt reads the direction of the layout there
        static const QStringList words = {QStringLiteral("Spracherkennung"), QStringLiteral("und"),
                                          QStringLiteral("Tastenkombination"),
                                          QStringLiteral("mit"),
                                          QStringLiteral("Systemeinstellungen")};
        QString text = QString::fromUtf8(source);
        const int wanted = text.size() * (text.size() < 20 ? 2.0 : 1.5);
        for (int i = 0; text.size() < wanted; ++i)
            text += QLatin1Char(' ') + words.at(i % words.size());
        return text;
    }
};

} // namespace

/** Every page in every language, with usual and with large texts, seen through a ruler. */
class LooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void nothingIsCutOffOrLiesOverAnother_data();
    void nothingIsCutOffOrLiesOverAnother();
    void everythingStandsOut_data();
    void everythingStandsOut();
    void theVoiceTestKeepsItsHeight();

private:
    void useLocale(const QString &locale, double textSize);
    void open(const QSize &size);
    QString problems(const QString &where) const;
    QString paleness(const QString &where) const;
    QAbstractButton *link() const;
    void startVoiceTest();
    void endVoiceTest(const char *code);

    const IsolatedHome m_home;
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
    ServiceProcess m_ai{QStringLiteral("aiservice")};
    zccV20::ModuleInterface *m_module = nullptr;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
    std::unique_ptr<ControlCenterWindow> m_window;
};

void LooksTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_network, &m_ai})
        QVERIFY(service->start());
    m_network.setValue(QStringLiteral("state"), 70u);
    QVERIFY(m_home.writeWakeupSettings("[base]\nenable=true\nenableOneshot=true\n"));
    Ztk::Widget::ZApplicationSetup::install();
    const LoadedModule loaded = loadModule(QStringLiteral(MODULE_FILE));
    QVERIFY2(loaded.module, qPrintable(loaded.error));
    m_module = loaded.module;
}

void LooksTest::cleanup()
{
    m_window.reset();
    testsupport::flushDeferredDeletes();
    m_translators.clear();
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

/** Texts of @p locale from now on; "long" is made up. */
void LooksTest::useLocale(const QString &locale, double textSize)
{
    const QString language =
        locale.startsWith(QLatin1String("zh")) ? locale : locale.section(QLatin1Char('_'), 0, 0);
    if (locale == QLatin1String("long")) {
        m_translators.emplace_back(new LongTexts);
    } else {
        const QString file = language == QLatin1String("en")
                                 ? QStringLiteral("aassistant-control-plugin_en.qm")
                                 : QStringLiteral("assistant-control-plugin_%1.qm").arg(language);
        m_translators.emplace_back(new QTranslator);
        QVERIFY(m_translators.back()->load(QStringLiteral(CATALOGUES "/") + file));
        if (language != QLatin1String("en")) {
            m_translators.emplace_back(new QTranslator);
            QVERIFY(m_translators.back()->load(
                QStringLiteral(":/control-center/control-center_%1.qm").arg(language)));
        }
    }
    for (const auto &translator : m_translators)
        QVERIFY(QCoreApplication::installTranslator(translator.get()));
    QGuiApplication::setLayoutDirection(language == QLatin1String("ug") ? Qt::RightToLeft
                                                                        : Qt::LeftToRight);

    QFont font(fontFamily(QLocale(locale).language()));
    QVERIFY2(QFontDatabase().hasFamily(font.family()), qPrintable(font.family()));
    font.setPointSizeF(textSize);
    QApplication::setFont(font);
}

void LooksTest::open(const QSize &size)
{
    m_window = std::make_unique<ControlCenterWindow>(m_module);
    m_window->resize(size.isEmpty() ? m_window->minimumSize() : size);
    m_window->show();
    m_window->openModule();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

QString LooksTest::problems(const QString &where) const
{
    constexpr int settled = 1000; // ms, in which layouts must have settled
    QStringList found;
    const bool well = QTest::qWaitFor(
        [&] {
            testsupport::flushDeferredDeletes();
            found = textsOf(layoutProblems(m_window.get()));
            return found.isEmpty();
        },
        settled);
    return well ? QString() : where + QStringLiteral(":\n  ") + found.join(QStringLiteral("\n  "));
}

QString LooksTest::paleness(const QString &where) const
{
    testsupport::flushDeferredDeletes();
    QCoreApplication::processEvents();
    const QStringList found = textsOf(contrastProblems(m_window.get(), m_window->grab().toImage()));
    return found.isEmpty() ? QString()
                           : where + QStringLiteral(":\n  ") + found.join(QStringLiteral("\n  "));
}

QAbstractButton *LooksTest::link() const
{
    for (QAbstractButton *button : m_window->currentPage()->findChildren<QAbstractButton *>())
        if (button->inherits("Ztk::Widget::ZCommandLinkButton"))
            return button;
    return nullptr;
}

void LooksTest::startVoiceTest()
{
    m_window->openPage(assistantPage);
    testsupport::flushDeferredDeletes();
    QVERIFY(link());
    link()->click();
    testsupport::flushDeferredDeletes();
    QVERIFY(!link());
    QVERIFY(QMetaObject::invokeMethod(
        m_window->currentPage(), "slotIatResult",
        Q_ARG(QString, QStringLiteral("阿岚帮我预约明天早上10点的视频会议")), Q_ARG(int, 1),
        Q_ARG(bool, false)));
}

void LooksTest::endVoiceTest(const char *code)
{
    QVERIFY(QMetaObject::invokeMethod(m_window->currentPage(), "slotAqcResult",
                                      Q_ARG(QString, QString::fromLatin1(code))));
    testsupport::flushDeferredDeletes();
    QVERIFY(link());
}

void LooksTest::nothingIsCutOffOrLiesOverAnother_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("textSize");
    QTest::addColumn<QSize>("windowSize");

    for (const char *locale :
         {"en", "en_US", "zh_CN", "zh_HK", "zh_TW", "bo_CN", "ug_CN", "long"}) {
        for (const double textSize : {usualText, largeText}) {
            for (const QSize &size : {QSize(1100, 720), QSize()}) {
                QTest::addRow("%s, %s texts, %s window", locale,
                              textSize > usualText ? "large" : "usual",
                              size.isEmpty() ? "least" : "usual")
                    << QString::fromLatin1(locale) << textSize << size;
            }
        }
    }
}

void LooksTest::nothingIsCutOffOrLiesOverAnother()
{
    QFETCH(QString, locale);
    QFETCH(double, textSize);
    QFETCH(QSize, windowSize);
    useLocale(locale, textSize);
    open(windowSize);

    QString all;
    const QStringList pages = m_window->pageNames();
    QCOMPARE(pages.size(), 4);
    for (const QString &page : pages) {
        m_window->openPage(page);
        all += problems(page);
    }
    startVoiceTest();
    all += problems(QStringLiteral("running voice test"));
    for (const char *code : {"1000", "1003", "1004", "1005", "1008"}) {
        endVoiceTest(code);
        all += problems(QStringLiteral("voice test with code %1").arg(QLatin1String(code)));
    }
    m_window->openShortcuts();
    all += problems(QStringLiteral("shortcuts"));
    QVERIFY2(all.isEmpty(), qPrintable(all));
}

void LooksTest::everythingStandsOut_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<ZGuiApplicationHelper::ColorType>("theme");
    for (const char *locale : {"en", "zh_CN", "bo_CN", "ug_CN"}) {
        QTest::addRow("%s, light", locale)
            << QString::fromLatin1(locale) << ZGuiApplicationHelper::LightType;
        QTest::addRow("%s, dark", locale)
            << QString::fromLatin1(locale) << ZGuiApplicationHelper::DarkType;
    }
}

void LooksTest::everythingStandsOut()
{
    QFETCH(QString, locale);
    QFETCH(ZGuiApplicationHelper::ColorType, theme);
    useLocale(locale, usualText);
    ZGuiApplicationHelper::instance()->setThemeType(theme);
    open(QSize(1100, 720));

    QString all;
    for (const QString &page : m_window->pageNames()) {
        m_window->openPage(page);
        all += paleness(page);
    }
    startVoiceTest();
    all += paleness(QStringLiteral("running voice test"));
    endVoiceTest("1000");
    all += paleness(QStringLiteral("finished voice test"));
    m_window->openShortcuts();
    m_window->shortcutsPage()->editButton()->click();
    all += paleness(QStringLiteral("shortcuts"));
    m_window->openServices();
    all += paleness(QStringLiteral("services"));
    m_window->searchField()->setFocus();
    m_window->searchField()->setText(m_window->pageTitle(assistantPage));
    all += paleness(QStringLiteral("search"));
    QVERIFY2(all.isEmpty(), qPrintable(all));
}

/** Or what is below it would jump. */
void LooksTest::theVoiceTestKeepsItsHeight()
{
    useLocale(QStringLiteral("en"), usualText);
    open(QSize(1100, 720));
    m_window->openPage(assistantPage);
    testsupport::flushDeferredDeletes();
    QCoreApplication::processEvents();
    const auto height = [this] {
        testsupport::flushDeferredDeletes();
        QCoreApplication::processEvents();
        const QLabel *title =
            testsupport::labelWithText(m_window->currentPage(), QStringLiteral("Voice Test"));
        return title ? title->parentWidget()->height() : 0;
    };
    QCOMPARE(height(), 120);
    startVoiceTest();
    QCOMPARE(height(), 120);
    endVoiceTest("1000");
    QCOMPARE(height(), 120);
}

TEST_CLASS(QApplication, LooksTest)
#include "looks.moc"
