#include "pages/texttranslatesettingwidget.h"
#include "tests/gui/shortcutparts.h"
#include "tests/support/testprogram.h"

#include <zcc/widgets/tipslabel.h>

#include <QApplication>
#include <QShortcut>

using namespace testsupport;

/** The sandbox's page of shortcuts shows what the keybinding service says, and takes new ones. */
class ShortcutsPageTest : public QObject, private ShownShortcutsPage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(startService()); }
    void cleanup();
    void showsWhatTheServiceSays();
    void asksAgainWhenShownAgain();
    void clickTakesNextCombination();
    void waitsOnForTrueCombination();
    void endsWait_data();
    void endsWait();
    void otherRowTakesOverWait();
    void windowShortcutsAreTaken();
    void pencilsStandApartFromTitles_data();
    void pencilsStandApartFromTitles();
    void oddRepliesShowNone();
    void mayGoWhileAwaiting();
    void featurePageShowsNewShortcut();
};

void ShortcutsPageTest::cleanup()
{
    close();
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
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
    QShortcut find(QKeySequence(QStringLiteral("Ctrl+F")), m_window.get());
    const QSignalSpy found(&find, &QShortcut::activated);
    press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(found.count(), 1);
    clickCaps(speechId);
    press(Qt::Key_F, Qt::ControlModifier);
    QTRY_COMPARE(shown(speechId), QStringList({"Ctrl", "F"}));
    QCOMPARE(found.count(), 1);
}

void ShortcutsPageTest::pencilsStandApartFromTitles_data()
{
    QTest::addColumn<bool>("mirrored");
    QTest::newRow("left to right") << false;
    QTest::newRow("right to left") << true;
}

void ShortcutsPageTest::pencilsStandApartFromTitles()
{
    QFETCH(bool, mirrored);
    QVERIFY(open());
    m_page->setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    m_page->editButton()->click();
    QCoreApplication::processEvents();
    const ShortcutItem *row = m_page->row(translationId);
    const auto *title = row->findChild<QLabel *>(QStringLiteral("title"));
    const QRect pencil = row->findChild<QWidget *>(QStringLiteral("edit"))->geometry();
    const int text = title->fontMetrics().horizontalAdvance(title->text());
    const int apart = mirrored ? title->geometry().right() + 1 - text - pencil.right() - 1
                               : pencil.left() - title->geometry().left() - text;
    QVERIFY2(apart >= 8, qPrintable(QString::number(apart)));
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
