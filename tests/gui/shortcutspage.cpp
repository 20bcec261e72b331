#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"

#include "pages/showntext.h"
#include "pages/texttranslatesettingwidget.h"
#include "tests/gui/shortcutparts.h"
#include "tests/support/modulepages.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <zcc/widgets/tipslabel.h>

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using controlcenter::ShortcutsPage;
using namespace testsupport;

namespace {

const QString speechId = modulePage(speechToTextPage).shortcut;
const QString readId = modulePage(textToSpeechPage).shortcut;
const QString translationId = modulePage(translationPage).shortcut;
const Qt::KeyboardModifiers controlAlt = Qt::ControlModifier | Qt::AltModifier;

QVector<ShortcutsPage::Shortcut> shortcuts()
{
    QVector<ShortcutsPage::Shortcut> all;
    for (const ModulePage &page : featurePages())
        all.append({page.shortcut, page.name});
    return all;
}

} // namespace

/** The sandbox's page of shortcuts: it reads from, and writes to, the keybinding service. */
class ShortcutsPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsWhatTheServiceSays();
    void asksAgainWhenShownAgain();
    void clickTakesNextCombination();
    void waitsOnForTrueCombination();
    void endsWait_data();
    void endsWait();
    void otherRowTakesOverWait();
    void windowShortcutsAreTaken();
    void editModeRemoves();
    void editModeKeepsFocus();
    void editModeChanges();
    void takenShortcutIsRefused();
    void serviceErrorIsTold();
    void absentServiceIsTold();
    void serviceThatVanishesIsTold();
    void oddRepliesShowNone();
    void mayGoWhileAwaiting();
    void featurePageShowsNewShortcut();

private:
    bool open();
    QStringList stored(const QString &id) { return m_service->value(id).toStringList(); }
    QStringList shown(const QString &id) const { return capTexts(RowParts(*m_page->row(id)).key); }
    QString visible(const QString &id) const { return RowParts(*m_page->row(id)).visible(); }
    void clickCaps(const QString &id) { clickThroughWindow(RowParts(*m_page->row(id)).key); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }
    void showAgain()
    {
        m_page->hide();
        m_page->show();
    }

    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<QWidget> m_window;
    QPointer<ShortcutsPage> m_page;
};

void ShortcutsPageTest::init()
{
    m_service = std::make_unique<ServiceProcess>(QStringLiteral("keybinding"));
    QVERIFY(m_service->start());
}

void ShortcutsPageTest::cleanup()
{
    m_window.reset();
    m_service.reset();
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

bool ShortcutsPageTest::open()
{
    m_window.reset(new QWidget);
    m_window->resize(700, 400);
    m_page = new ShortcutsPage(shortcuts());
    (new QVBoxLayout(m_window.get()))->addWidget(m_page);
    m_window->show();
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get()) ||
        !QTest::qWaitFor([this] { return !shown(translationId).isEmpty(); }))
        return false;
    QCoreApplication::processEvents(); // the rows take their places
    return true;
}

void ShortcutsPageTest::showsWhatTheServiceSays()
{
    m_service->setValue(speechId, QStringList({"<Super_L>minus", "<Alt>F1"}));
    m_service->setValue(readId, QStringList());
    m_service->reset();
    QVERIFY(open());
    QCOMPARE(shown(speechId), QStringList({"Super", "-"}));
    QCOMPARE(shown(readId), QStringList("None"));
    QCOMPARE(shown(translationId), QStringList({"Ctrl", "Alt", "T"}));
    QCOMPARE(m_page->message(), QString());

    const auto calls = m_service->calls();
    QCOMPARE(calls.size(), 3);
    for (const auto &call : calls) {
        QCOMPARE(call.member, QStringLiteral("GetShortcut"));
        QCOMPARE(call.signature, QStringLiteral("si"));
        QCOMPARE(call.arguments.at(1).toInt(), 0);
    }
}

void ShortcutsPageTest::asksAgainWhenShownAgain()
{
    QVERIFY(open());
    m_page->hide();
    m_service->setValue(speechId, QStringList("<Alt>J"));
    m_page->show();
    QTRY_COMPARE(shown(speechId), QStringList({"Alt", "J"}));
}

void ShortcutsPageTest::clickTakesNextCombination()
{
    QVERIFY(open());
    clickCaps(translationId);
    QCOMPARE(visible(translationId), QStringLiteral("line"));
    QVERIFY(m_page->message().contains(QStringLiteral("Translation")));

    press(Qt::Key_J, controlAlt);
    QCOMPARE(visible(translationId), QStringLiteral("caps"));
    QCOMPARE(m_page->message(), QString());
    QTRY_COMPARE(shown(translationId), QStringList({"Ctrl", "Alt", "J"}));
    QCOMPARE(stored(translationId), QStringList("<Control><Alt>J"));
    QCOMPARE(stored(speechId), QStringList("<Control><Alt>I"));

    press(Qt::Key_K, controlAlt); // no longer waiting
    QCOMPARE(visible(translationId), QStringLiteral("caps"));
    QCOMPARE(stored(translationId), QStringList("<Control><Alt>J"));
}

void ShortcutsPageTest::waitsOnForTrueCombination()
{
    QVERIFY(open());
    clickCaps(translationId);
    press(Qt::Key_Control, Qt::ControlModifier);
    press(Qt::Key_X);
    press(Qt::Key_X, Qt::ShiftModifier);
    QCOMPARE(visible(translationId), QStringLiteral("line"));
    press(Qt::Key_X, Qt::MetaModifier);
    QTRY_COMPARE(shown(translationId), QStringList({"Super", "X"}));
}

void ShortcutsPageTest::endsWait_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("click on its line edit") << "shortcutEdit";
    QTest::newRow("click on its title") << "title";
    QTest::newRow("click on the page") << "page";
    QTest::newRow("Escape") << "Escape";
    QTest::newRow("hiding") << "hide";
}

void ShortcutsPageTest::endsWait()
{
    QFETCH(QString, what);
    QVERIFY(open());
    clickCaps(readId);
    QCOMPARE(visible(readId), QStringLiteral("line"));
    QCoreApplication::processEvents();
    if (what == QLatin1String("page"))
        clickThroughWindow(m_page, m_page->rect().bottomLeft() + QPoint(4, -4));
    else if (what == QLatin1String("Escape"))
        press(Qt::Key_Escape);
    else if (what == QLatin1String("hide"))
        showAgain();
    else
        clickThroughWindow(m_page->row(readId)->findChild<QWidget *>(what));
    QTRY_COMPARE(m_page->message(), QString());
    QTRY_COMPARE(visible(readId), QStringLiteral("caps"));

    press(Qt::Key_J, controlAlt);
    QCOMPARE(shown(readId), QStringList({"Ctrl", "Alt", "P"}));
    QCOMPARE(stored(readId), QStringList("<Control><Alt>P"));
}

void ShortcutsPageTest::otherRowTakesOverWait()
{
    QVERIFY(open());
    clickCaps(speechId);
    clickCaps(readId);
    QCOMPARE(visible(speechId), QStringLiteral("caps"));
    QCOMPARE(visible(readId), QStringLiteral("line"));
    m_page->row(translationId)->onShortcutEdit(); // as assistive technologies press its button
    QCOMPARE(visible(readId), QStringLiteral("caps"));
    press(Qt::Key_J, controlAlt);
    QTRY_COMPARE(shown(translationId), QStringList({"Ctrl", "Alt", "J"}));
    QCOMPARE(stored(speechId), QStringList("<Control><Alt>I"));
    QCOMPARE(stored(readId), QStringList("<Control><Alt>P"));
}

void ShortcutsPageTest::windowShortcutsAreTaken()
{
    QVERIFY(open());
    QShortcut find(QKeySequence(Qt::CTRL | Qt::Key_F), m_window.get());
    const QSignalSpy found(&find, &QShortcut::activated);
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(found.count(), 1);
    clickCaps(speechId);
    press(Qt::Key_F, Qt::ControlModifier);
    QTRY_COMPARE(shown(speechId), QStringList({"Ctrl", "F"}));
    QCOMPARE(found.count(), 1);
}

void ShortcutsPageTest::editModeRemoves()
{
    QVERIFY(open());
    clickThroughWindow(m_page->editButton());
    for (const auto &shortcut : shortcuts())
        QCOMPARE(visible(shortcut.id), QStringLiteral("edit remove"));
    QCoreApplication::processEvents();
    clickThroughWindow(RowParts(*m_page->row(speechId)).remove);
    QTRY_COMPARE(shown(speechId), QStringList("None"));
    QCOMPARE(stored(speechId), QStringList());
    QCOMPARE(visible(speechId), QStringLiteral("edit remove"));

    clickThroughWindow(m_page->editButton());
    for (const auto &shortcut : shortcuts())
        QCOMPARE(visible(shortcut.id), QStringLiteral("caps"));
    QCoreApplication::processEvents();
    clickCaps(speechId);
    press(Qt::Key_F5);
    QTRY_COMPARE(shown(speechId), QStringList("F5"));
    QCOMPARE(stored(speechId), QStringList("F5"));
}

void ShortcutsPageTest::editModeKeepsFocus()
{
    QVERIFY(open());
    m_page->editButton()->setChecked(true);
    for (const char *name : {"remove", "edit"}) {
        auto *button = m_page->row(speechId)->findChild<QWidget *>(name);
        button->setFocus();
        press(Qt::Key_Space);
        if (button->objectName() == QLatin1String("edit"))
            press(Qt::Key_F5);
        const QStringList expected(button->objectName() == QLatin1String("edit") ? "F5" : "None");
        QTRY_COMPARE(shown(speechId), expected);
        QVERIFY2(button->hasFocus(), name);
    }

    // Leaving the window ends the wait, too.
    const auto *edit = RowParts(*m_page->row(speechId)).edit;
    press(Qt::Key_Space);
    QVERIFY(!m_page->message().isEmpty());
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTRY_COMPARE(m_page->message(), QString());
    QCOMPARE(m_window->focusWidget(), edit);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QVERIFY(edit->hasFocus());
}

void ShortcutsPageTest::editModeChanges()
{
    QVERIFY(open());
    clickThroughWindow(m_page->editButton());
    QCoreApplication::processEvents();
    clickThroughWindow(RowParts(*m_page->row(readId)).edit);
    QVERIFY(m_page->message().contains(QStringLiteral("Text to Speech")));
    press(Qt::Key_J, controlAlt);
    QTRY_COMPARE(shown(readId), QStringList({"Ctrl", "Alt", "J"}));
    QCOMPARE(visible(readId), QStringLiteral("edit remove"));
    QCOMPARE(stored(readId), QStringList("<Control><Alt>J"));
}

void ShortcutsPageTest::takenShortcutIsRefused()
{
    QVERIFY(open());
    clickCaps(speechId);
    press(Qt::Key_T, controlAlt);
    QCOMPARE(visible(speechId), QStringLiteral("caps"));
    QVERIFY(m_page->message().contains(QStringLiteral("Ctrl+Alt+T")));
    QVERIFY(m_page->message().contains(QStringLiteral("Translation")));
    QCOMPARE(stored(speechId), QStringList("<Control><Alt>I"));

    clickCaps(speechId); // its own is no conflict
    press(Qt::Key_I, controlAlt);
    QTRY_COMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "I"}));
    QCOMPARE(m_page->message(), QString());
}

void ShortcutsPageTest::serviceErrorIsTold()
{
    QVERIFY(open());
    m_service->script(QStringLiteral("GetShortcut"), QStringLiteral("error"),
                      QStringLiteral("no keyboard"));
    showAgain();
    QTRY_VERIFY(m_page->message().contains(QStringLiteral("no keyboard")));
    m_service->script(QStringLiteral("GetShortcut"), QStringLiteral("error"),
                      QString(1 << 20, QLatin1Char('x')));
    showAgain();
    QTRY_VERIFY(m_page->message().contains(QStringLiteral("xxx")));
    QVERIFY(m_page->message().size() < 2 * showntext::longestWords);
    m_service->reset();
    showAgain();
    QCOMPARE(m_page->message(), QString());
    clickCaps(speechId);
    press(Qt::Key_F5);
    QTRY_COMPARE(shown(speechId), QStringList("F5"));
}

void ShortcutsPageTest::absentServiceIsTold()
{
    QVERIFY(m_service->stop());
    m_window.reset(new QWidget);
    m_page = new ShortcutsPage(shortcuts(), m_window.get());
    m_window->show();
    QTRY_VERIFY(!m_page->message().isEmpty());
    QVERIFY(shown(speechId).isEmpty());
}

// When the new shortcut is to be stored: the old one stays on show.
void ShortcutsPageTest::serviceThatVanishesIsTold()
{
    QVERIFY(open());
    clickCaps(speechId);
    m_service->kill();
    press(Qt::Key_J, controlAlt);
    QTRY_VERIFY(m_page->message().contains(QStringLiteral("Speech to Text")));
    QCOMPARE(shown(speechId), QStringList({"Ctrl", "Alt", "I"}));
    QCOMPARE(visible(speechId), QStringLiteral("caps"));
}

void ShortcutsPageTest::oddRepliesShowNone()
{
    const QVariantList replies = {QString(), QStringLiteral("[]"), QStringLiteral("{\"Accels\":7}"),
                                  QStringLiteral("{\"Accels\":[7]}")};
    for (const QVariant &reply : replies) {
        m_service->script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), reply);
        QVERIFY(open());
        QCOMPARE(shown(speechId), QStringList("None"));
    }
    m_service->script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), 42);
    showAgain();
    QTRY_VERIFY(!m_page->message().isEmpty()); // not even a text
}

void ShortcutsPageTest::mayGoWhileAwaiting()
{
    for (const bool withItsWindow : {false, true}) {
        QVERIFY(open());
        clickCaps(speechId);
        if (withItsWindow) {
            m_window.reset();
        } else {
            delete m_page;
            press(Qt::Key_J, controlAlt);
        }
        QCOMPARE(stored(speechId), QStringList("<Control><Alt>I"));
    }
}

void ShortcutsPageTest::featurePageShowsNewShortcut()
{
    const auto hint = [] {
        const TextTranslateSettingWidget page(nullptr);
        return page.findChild<zcc::widgets::TipsLabel *>()->text();
    };
    QVERIFY(open());
    QVERIFY(hint().contains(QStringLiteral("(Ctrl+Alt+T)")));
    clickCaps(translationId);
    press(Qt::Key_Minus, controlAlt);
    QTRY_COMPARE(shown(translationId), QStringList({"Ctrl", "Alt", "-"}));
    QVERIFY(hint().contains(QStringLiteral("(Ctrl+Alt+minus)")));
}

TEST_CLASS(QApplication, ShortcutsPageTest)
#include "shortcutspage.moc"
