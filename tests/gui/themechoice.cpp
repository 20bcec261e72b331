#include "sandbox/controlcenter/themechoice.h"

#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/options.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/support/pictures.h"
#include "tests/support/testprogram.h"

#include <QAccessible>
#include <QMenu>
#include <QPushButton>
#include <QtTest>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <memory>

using namespace controlcenter;
using testsupport::ShownRow;
using Ztk::Gui::ZGuiApplicationHelper;

/** The desktop's portal, as far as it tells which theme people prefer. */
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Portal()
        : m_bus(
              QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal")))
    {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllContents);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

    void prefer(uint changed) { set(QStringLiteral("color-scheme"), changed); }
    void preferContrast(uint changed) { set(QStringLiteral("contrast"), changed); }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        const bool known = group == QLatin1String("org.freedesktop.appearance");
        return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? m_values.value(key) : 9)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void set(const QString &key, uint value)
    {
        m_values.insert(key, value);
        Q_EMIT SettingChanged(QStringLiteral("org.freedesktop.appearance"), key,
                              QDBusVariant(value));
    }

    QHash<QString, uint> m_values;
    QDBusConnection m_bus;
};

/** The window's theme: light, dark, of high contrast, or what the desktop prefers, and the button
 * that chooses it. */
class ThemeChoiceTest : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void hearPortal() { m_heard = true; }

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void itFollowsTheDesktop();
    void highContrastIsTheDesktopsWishFirst();
    void whatIsChosenStaysWhateverTheDesktopPrefers();
    void withoutAPortalItIsLight();
    void itFollowsWhoeverChangesTheTheme();
    void theButtonListsAllThemes();
    void assistiveTechnologiesChooseInTheList();
    void whatWasChosenIsKept();

private:
    static bool isDark();
    bool showWindow();
    QPushButton *button() const;

    bool m_heard = false; ///< the portal, telling something
    testsupport::ScriptedModule m_module;
    std::unique_ptr<ControlCenterWindow> m_window;
};

void ThemeChoiceTest::initTestCase()
{
    ShownRow::setUpApplication();
    // As if somebody listened from the beginning, which no offscreen program has.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
}

bool ThemeChoiceTest::isDark()
{
    return ZGuiApplicationHelper::instance()->themeType() == ZGuiApplicationHelper::DarkType;
}

bool ThemeChoiceTest::showWindow()
{
    m_window = std::make_unique<ControlCenterWindow>(&m_module);
    m_window->show();
    return QTest::qWaitForWindowActive(m_window.get());
}

QPushButton *ThemeChoiceTest::button() const
{
    return m_window->findChild<QPushButton *>();
}

void ThemeChoiceTest::cleanup()
{
    m_window.reset();
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
}

void ThemeChoiceTest::itFollowsTheDesktop()
{
    Portal portal;
    portal.prefer(1);
    ThemeChoice theme;
    theme.choose(ThemeChoice::System);
    QTRY_VERIFY(isDark());
    portal.prefer(2);
    QTRY_VERIFY(!isDark());
    portal.prefer(1);
    QTRY_VERIFY(isDark());
    portal.prefer(0); // no preference
    QTRY_VERIFY(!isDark());
    QCOMPARE(theme.choice(), ThemeChoice::System);
}

/** Rather than light or dark, also from the start. */
void ThemeChoiceTest::highContrastIsTheDesktopsWishFirst()
{
    const auto type = [] {
        return ZGuiApplicationHelper::instance()->themeType();
    };
    Portal portal;
    portal.prefer(1);
    portal.preferContrast(1);
    ThemeChoice theme;
    theme.choose(ThemeChoice::System);
    QTRY_COMPARE(type(), ZGuiApplicationHelper::ContrastType);
    portal.preferContrast(0);
    QTRY_COMPARE(type(), ZGuiApplicationHelper::DarkType);
    portal.preferContrast(1);
    QTRY_COMPARE(type(), ZGuiApplicationHelper::ContrastType);
    QCOMPARE(theme.choice(), ThemeChoice::System);
}

void ThemeChoiceTest::whatIsChosenStaysWhateverTheDesktopPrefers()
{
    Portal portal;
    ThemeChoice theme;
    theme.choose(ThemeChoice::System);
    theme.choose(ThemeChoice::Light);
    QDBusConnection::sessionBus().connect(
        QString(), QString(), QStringLiteral("org.freedesktop.portal.Settings"),
        QStringLiteral("SettingChanged"), this, SLOT(hearPortal()));
    portal.prefer(1);
    QTRY_VERIFY(m_heard);
    QCoreApplication::processEvents();
    QVERIFY(!isDark());
    QCOMPARE(theme.choice(), ThemeChoice::Light);
    theme.choose(ThemeChoice::System);
    QVERIFY(isDark());
}

void ThemeChoiceTest::withoutAPortalItIsLight()
{
    ThemeChoice theme;
    theme.choose(ThemeChoice::Dark);
    QVERIFY(isDark());
    theme.choose(ThemeChoice::System);
    QVERIFY(!isDark());
    QCOMPARE(theme.choice(), ThemeChoice::System);
}

void ThemeChoiceTest::itFollowsWhoeverChangesTheTheme()
{
    QVERIFY(showWindow());
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    QCOMPARE(m_window->theme()->choice(), ThemeChoice::Dark);
    QCOMPARE(button()->toolTip(), QStringLiteral("Theme: Dark"));
}

void ThemeChoiceTest::theButtonListsAllThemes()
{
    QVERIFY(showWindow());
    QCOMPARE(button()->accessibleName(), QStringLiteral("Theme"));
    QCOMPARE(button()->accessibleDescription(), QStringLiteral("Light"));
    QStringList texts;
    for (QAction *action : button()->menu()->actions()) {
        texts.append(action->text());
        QCOMPARE(action->isChecked(), action->text() == QStringLiteral("Light"));
    }
    QCOMPARE(texts,
             (QStringList{QStringLiteral("Light"), QStringLiteral("Dark"),
                          QStringLiteral("High contrast"), QStringLiteral("Follow the system")}));
    for (QAction *action : button()->menu()->actions()) {
        action->trigger();
        QVERIFY(action->isChecked());
        QCOMPARE(button()->accessibleDescription(), action->text());
        QCOMPARE(isDark(), action->text() == QStringLiteral("Dark"));
    }
}

void ThemeChoiceTest::assistiveTechnologiesChooseInTheList()
{
    QVERIFY(showWindow());
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(button());
    QCOMPARE(list->role(), QAccessible::ButtonMenu);
    QCOMPARE(list->childCount(), 0);
    // Qt's own opens the list while its caller waits.
    QVERIFY(
        list->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    list->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QTimer::singleShot(0, this, [&] {
        QCOMPARE(list->childCount(), 1);
        QAccessibleInterface *menu = list->child(0);
        QCOMPARE(list->indexOfChild(menu), 0);
        QCOMPARE(menu->childCount(), 4);
        QCOMPARE(menu->child(1)->text(QAccessible::Name), QStringLiteral("Dark"));
        menu->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        button()->menu()->close();
    });
    QTRY_VERIFY(isDark());
    QTRY_COMPARE(list->childCount(), 0);
}

/** And nothing else: not what the command line or a tour has asked for. */
void ThemeChoiceTest::whatWasChosenIsKept()
{
    ThemeChoice theme;
    for (const auto choice :
         {ThemeChoice::Light, ThemeChoice::System, ThemeChoice::Contrast, ThemeChoice::Dark}) {
        theme.choose(choice);
        QCOMPARE(ThemeChoice::named(QString()), choice);
    }
    theme.use(ThemeChoice::Light);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::DarkType);
    ZGuiApplicationHelper::instance()->setThemeType(ZGuiApplicationHelper::LightType);
    QCOMPARE(ThemeChoice::named(QString()), ThemeChoice::Dark);
    QCOMPARE(ThemeChoice::named(QStringLiteral("light")), ThemeChoice::Light);
    QCOMPARE(ThemeChoice::named(QStringLiteral("system")), ThemeChoice::System);

    const QStringList program{QStringLiteral("control-center"),
                              QStringLiteral("--plugin=module.so")};
    QCOMPARE(parseOptions(program).theme, QString());
    QCOMPARE(parseOptions(program + QStringList(QStringLiteral("--tour=pictures"))).theme,
             QStringLiteral("light"));
    theme.choose(ThemeChoice::Light);
}

TEST_CLASS(QApplication, ThemeChoiceTest)
#include "themechoice.moc"
