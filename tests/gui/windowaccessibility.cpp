#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"
#include "sandbox/controlcenter/worlddrawer/drawerside.h"
#include "tests/gui/scriptedmodule.h"
#include "tests/support/pictures.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QAccessible>
#include <QPushButton>
#include <QScrollArea>
#include <QtTest>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <memory>

using namespace controlcenter;
using testsupport::ServiceProcess;
using testsupport::ShownRow;

namespace {

// Of hidden widgets: the names of which a change was told.
QStringList *unseenNames = nullptr;

void hear(QAccessibleEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(event->object());
    if (event->type() != QAccessible::NameChanged || !widget || widget->isVisible() ||
        !widget->parent())
        return;
    unseenNames->append(QStringLiteral("%1 \"%2\" in %3")
                            .arg(QLatin1String(widget->metaObject()->className()),
                                 event->accessibleInterface()->text(QAccessible::Name),
                                 QLatin1String(widget->parent()->metaObject()->className())));
}

} // namespace

/** What assistive technologies are told by the window's own pages. */
class WindowAccessibilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void whateverHasANameHasARole_data() { places(); }
    void whateverHasANameHasARole();
    void noNameIsSaidTwice_data() { places(); }
    void noNameIsSaidTwice();
    void whoAsksForAPartThatHasGoneGetsNone_data() { places(); }
    void whoAsksForAPartThatHasGoneGetsNone();
    void aServiceIsAGroupOfItsValues();
    void aShortcutsButtonsSayWhoseTheyAre();
    void theDrawersListsHaveLabels();
    void nothingIsToldOfWhatIsHidden();

private:
    static void places();
    bool open(const QString &place);
    QVector<QAccessibleInterface *> parts() const;
    static void collect(QAccessibleInterface *top, QVector<QAccessibleInterface *> *found);
    QAccessibleInterface *part(QAccessible::Role role, const QString &name) const;

    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    testsupport::ScriptedModule m_module;
    std::unique_ptr<ControlCenterWindow> m_window;
};

void WindowAccessibilityTest::initTestCase()
{
    ShownRow::setUpApplication();
    QVERIFY(m_keybinding.start());
    QVERIFY(m_dock.start());
}

void WindowAccessibilityTest::init()
{
    m_window = std::make_unique<ControlCenterWindow>(&m_module);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void WindowAccessibilityTest::cleanup()
{
    QAccessible::installUpdateHandler(nullptr); // also after a failure
    m_window.reset();
}

void WindowAccessibilityTest::places()
{
    QTest::addColumn<QString>("place");
    for (const char *place :
         {"module", "shortcuts", "edited shortcuts", "services", "world", "search"})
        QTest::newRow(place) << QString::fromLatin1(place);
}

bool WindowAccessibilityTest::open(const QString &place)
{
    if (place == QLatin1String("module") || place == QLatin1String("world"))
        m_window->openModule();
    else if (place == QLatin1String("services"))
        m_window->openServices();
    else
        m_window->openShortcuts();
    if (place == QLatin1String("world"))
        m_window->world()->openDrawer();
    if (place == QLatin1String("search")) {
        m_window->searchField()->setFocus();
        m_window->searchField()->setText(QStringLiteral("e"));
        return part(QAccessible::List, QStringLiteral("Search results"));
    }
    if (place == QLatin1String("services"))
        return QTest::qWaitFor(
            [this] { return part(QAccessible::StaticText, QStringLiteral("hidden: false")); });
    if (place.endsWith(QLatin1String("shortcuts"))) {
        if (!QTest::qWaitFor([this] {
                return part(QAccessible::Grouping, QStringLiteral("Ctrl+Alt+T")) ||
                       m_window->shortcutsPage()->editButton()->isChecked();
            }))
            return false;
        m_window->shortcutsPage()->editButton()->setChecked(
            place.startsWith(QLatin1String("edited")));
    }
    return true;
}

void WindowAccessibilityTest::collect(QAccessibleInterface *top,
                                      QVector<QAccessibleInterface *> *found)
{
    if (!top || top->state().invisible)
        return;
    found->append(top);
    for (int i = 0; i < top->childCount(); ++i)
        collect(top->child(i), found);
}

QVector<QAccessibleInterface *> WindowAccessibilityTest::parts() const
{
    QVector<QAccessibleInterface *> found;
    collect(QAccessible::queryAccessibleInterface(m_window.get()), &found);
    return found;
}

QAccessibleInterface *WindowAccessibilityTest::part(QAccessible::Role role,
                                                    const QString &name) const
{
    for (QAccessibleInterface *each : parts())
        if (each->role() == role && each->text(QAccessible::Name) == name)
            return each;
    return nullptr;
}

void WindowAccessibilityTest::whateverHasANameHasARole()
{
    QFETCH(QString, place);
    QVERIFY(open(place));
    QStringList faults;
    for (const QAccessibleInterface *each : parts())
        if (!each->text(QAccessible::Name).isEmpty() &&
            (each->role() == QAccessible::Client || each->role() == QAccessible::NoRole))
            faults.append(QStringLiteral("%1 \"%2\"")
                              .arg(QLatin1String(each->object()->metaObject()->className()),
                                   each->text(QAccessible::Name)));
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void WindowAccessibilityTest::noNameIsSaidTwice()
{
    QFETCH(QString, place);
    QVERIFY(open(place));
    QStringList faults;
    for (const QAccessibleInterface *each : parts()) {
        const QString name = each->text(QAccessible::Name);
        if (!name.isEmpty() && each->text(QAccessible::Description) == name)
            faults.append(name);
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

/** Between the questions how many there are and which, a scroll bar may go. */
void WindowAccessibilityTest::whoAsksForAPartThatHasGoneGetsNone()
{
    QFETCH(QString, place);
    QVERIFY(open(place));
    for (QScrollArea *area : m_window->findChildren<QScrollArea *>()) {
        const QAccessibleInterface *asked = QAccessible::queryAccessibleInterface(area);
        QVERIFY(asked->childCount() > 0);
        QVERIFY(!asked->child(asked->childCount()));
    }
}

void WindowAccessibilityTest::aServiceIsAGroupOfItsValues()
{
    QVERIFY(open(QStringLiteral("services")));
    QAccessibleInterface *dock = part(QAccessible::Grouping, QStringLiteral("Dock icon"));
    QVERIFY(dock);
    QVector<QAccessibleInterface *> inside;
    collect(dock, &inside);
    QVERIFY(inside.contains(part(QAccessible::StaticText, QStringLiteral("hidden: false"))));
    QCOMPARE(dock->text(QAccessible::Description), QStringLiteral("Running"));
}

void WindowAccessibilityTest::aShortcutsButtonsSayWhoseTheyAre()
{
    QVERIFY(open(QStringLiteral("edited shortcuts")));
    QVERIFY(part(QAccessible::Button, QStringLiteral("Edit the shortcut for “Translation”")));
    QVERIFY(part(QAccessible::Button, QStringLiteral("Remove the shortcut for “Translation”")));
}

/** Of a list without one, Qt's bridge on Linux tells the value in place of the name. */
void WindowAccessibilityTest::theDrawersListsHaveLabels()
{
    QVERIFY(open(QStringLiteral("world")));
    QStringList names;
    for (const QAccessibleInterface *each : parts()) {
        if (each->role() != QAccessible::ComboBox)
            continue;
        const auto labels = each->relations(QAccessible::Label);
        QVERIFY2(labels.size() == 1, qPrintable(each->text(QAccessible::Name)));
        names.append(labels.constFirst().first->text(QAccessible::Name));
    }
    QVERIFY(names.contains(QStringLiteral("Dock icon")));
    QVERIFY(names.contains(QStringLiteral("Theme")));
    QVERIFY(names.contains(QStringLiteral("Calls to")));
}

void WindowAccessibilityTest::nothingIsToldOfWhatIsHidden()
{
    // Once before: what is being built has a name before it can be seen.
    for (const char *place : {"services", "module", "shortcuts", "edited shortcuts"})
        QVERIFY(open(QString::fromLatin1(place)));
    QStringList told;
    unseenNames = &told;
    // As if somebody listened, which no offscreen program has.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(hear);
    for (const char *place : {"services", "module", "shortcuts", "edited shortcuts", "services"})
        QVERIFY(open(QString::fromLatin1(place)));
    QVERIFY(m_dock.stop());
    QTRY_VERIFY(!part(QAccessible::StaticText, QStringLiteral("hidden: false")));
    QVERIFY(m_dock.start());
    QVERIFY(open(QStringLiteral("services")));
    QAccessible::installUpdateHandler(nullptr);
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
    QVERIFY2(told.isEmpty(), qPrintable(told.join(QLatin1Char('\n'))));
}

TEST_CLASS(QApplication, WindowAccessibilityTest)
#include "windowaccessibility.moc"
