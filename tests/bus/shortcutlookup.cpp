#include "proxy/assistantstateproxy.h"
#include "tests/support/busrecorder.h"
#include "tests/support/logcapture.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QtTest>

// The keybinding daemon's answers, good and bad, and what the pages show of them.

using testsupport::BusRecorder;
using testsupport::LogCapture;
using testsupport::ServiceProcess;

class ShortcutLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void asksForIdentifierAndType_data();
    void asksForIdentifierAndType();
    void rewritesTheFirstAccelerator_data();
    void rewritesTheFirstAccelerator();
    void badRepliesGiveAnEmptyText_data();
    void badRepliesGiveAnEmptyText();
    void aHugeReplyIsReadLikeAnyOther();
    void followsAChangeAtTheDaemon();
    void anUnknownIdentifierGivesAnEmptyText();

private:
    ServiceProcess m_daemon{QStringLiteral("keybinding")};
};

namespace {

QString lookup()
{
    return AssistantStateProxy::getShortCut(QStringLiteral("speech-to-text"), 0);
}

const QString noAccels = QStringLiteral("Key Accels not found in JSON.");

} // namespace

void ShortcutLookupTest::initTestCase()
{
    QVERIFY(m_daemon.start());
}

void ShortcutLookupTest::init()
{
    m_daemon.reset();
}

void ShortcutLookupTest::asksForIdentifierAndType_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("type");
    QTest::newRow("speech to text") << "speech-to-text" << 0;
    QTest::newRow("text to speech") << "text-to-speech" << 0;
    QTest::newRow("translation") << "translation" << 0;
    QTest::newRow("another type") << "translation" << 3;
    QTest::newRow("neither") << "" << -1;
}

void ShortcutLookupTest::asksForIdentifierAndType()
{
    QFETCH(QString, id);
    QFETCH(int, type);
    BusRecorder recorder;
    QVERIFY(recorder.start());
    AssistantStateProxy::getShortCut(id, type);
    QVERIFY(recorder.sync());
    QCOMPARE(recorder.callSummaries(),
             QStringList{QStringLiteral("com.tavren.daemon.Keybinding "
                                        "/com/tavren/daemon/Keybinding "
                                        "com.tavren.daemon.Keybinding.GetShortcut(si)")});
    QCOMPARE(recorder.calls().constFirst().arguments, (QJsonArray{id, type}));
}

void ShortcutLookupTest::rewritesTheFirstAccelerator_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("text");
    const auto one = [](const char *accelerator) {
        return QStringLiteral("{\"Accels\":[\"%1\"]}").arg(QLatin1String(accelerator));
    };
    QTest::newRow("three keys") << one("<Control><Alt>T") << "Ctrl+Alt+T";
    QTest::newRow("super") << one("<Super>space") << "Super+space";
    QTest::newRow("shift keeps its name") << one("<Shift><Alt>F1") << "Shift+Alt+F1";
    QTest::newRow("the first of two") << "{\"Accels\":[\"<Control><Shift>F9\",\"<Super>F9\"]}"
                                      << "Ctrl+Shift+F9";
    QTest::newRow("the word inside a key's name") << one("<Alt>Control_L") << "Alt+Ctrl_L";
    QTest::newRow("every occurrence") << one("<Control>Control_R") << "Ctrl+Ctrl_R";
    QTest::newRow("other letter case stays") << one("<control>T") << "control+T";
    QTest::newRow("Primary is not translated") << one("<Primary>T") << "Primary+T";
    QTest::newRow("no modifier") << one("F12") << "F12";
    QTest::newRow("brackets only") << one("<>") << "+";
    QTest::newRow("a word that the substitutions make") << one("Cont<rol>T") << "Ctrl+T";
    QTest::newRow("other keys of the object are ignored")
        << "{\"Id\":\"x\",\"Type\":[1,{}],\"Accels\":[\"<Alt>T\"],\"accels\":[\"no\"]}"
        << "Alt+T";
    QTest::newRow("not ASCII") << "{\"Accels\":[\"<Control>阿\"]}" << QStringLiteral("Ctrl+阿");
    QTest::newRow("escaped") << "{\"Accels\":[\"\\u003cControl\\u003eA\"]}"
                             << "Ctrl+A";
    QTest::newRow("markup is only text") << one("<b>T</b>") << "b+T/b+";
    QTest::newRow("white space around it") << " \n {\"Accels\" : [ \"<Alt>T\" ] } \n"
                                           << "Alt+T";
}

void ShortcutLookupTest::rewritesTheFirstAccelerator()
{
    QFETCH(QString, reply);
    QFETCH(QString, text);
    m_daemon.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), reply);
    const LogCapture log;
    QCOMPARE(lookup(), text);
    QCOMPARE(log.texts(), QStringList());
}

void ShortcutLookupTest::badRepliesGiveAnEmptyText_data()
{
    QTest::addColumn<QVariant>("reply");
    QTest::addColumn<bool>("logged");
    const auto add = [](const char *name, const QVariant &reply, bool logged) {
        QTest::newRow(name) << reply << logged;
    };
    // The object and its key are there: nothing is said.
    add("no accelerators", "{\"Accels\":[]}", false);
    add("accelerators are null", "{\"Accels\":null}", false);
    add("accelerators are a text", "{\"Accels\":\"<Control>T\"}", false);
    add("accelerators are a number", "{\"Accels\":5}", false);
    add("accelerators are an object", "{\"Accels\":{\"0\":\"<Control>T\"}}", false);
    add("accelerator is a number", "{\"Accels\":[5]}", false);
    add("accelerator is null", "{\"Accels\":[null,\"<Control>T\"]}", false);
    add("accelerator is a list", "{\"Accels\":[[\"<Control>T\"]]}", false);
    add("accelerator is empty", "{\"Accels\":[\"\"]}", false);

    add("empty text", "", true);
    add("not JSON", "Ctrl+Alt+T", true);
    add("cut off", "{\"Accels\":[\"<Control>T\"", true);
    add("text behind the object", "{\"Accels\":[\"<Control>T\"]} x", true);
    add("an array", "[{\"Accels\":[\"<Control>T\"]}]", true);
    add("a bare text", "\"Accels\"", true);
    add("empty object", "{}", true);
    add("key in another letter case", "{\"accels\":[\"<Control>T\"]}", true);
    add("key one level down", "{\"x\":{\"Accels\":[\"<Control>T\"]}}", true);
    add("deeper than a parser goes", QString(100000, QLatin1Char('[')), true);
    add("a number", 5, true);
    add("a bool", true, true);
    add("a list of texts", QStringList{QStringLiteral("{\"Accels\":[\"<Control>T\"]}")}, true);
}

void ShortcutLookupTest::badRepliesGiveAnEmptyText()
{
    QFETCH(QVariant, reply);
    QFETCH(bool, logged);
    m_daemon.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), reply);
    const LogCapture log;
    QCOMPARE(lookup(), QString(QLatin1String("")));
    QCOMPARE(log.texts(), logged ? QStringList{noAccels} : QStringList());
    QCOMPARE(log.texts(QtCriticalMsg), log.texts());
}

void ShortcutLookupTest::aHugeReplyIsReadLikeAnyOther()
{
    const QString padding(10 * 1024 * 1024, QLatin1Char('x'));
    m_daemon.script(
        QStringLiteral("GetShortcut"), QStringLiteral("reply"),
        QStringLiteral("{\"Padding\":\"%1\",\"Accels\":[\"<Control>T\"]}").arg(padding));
    QCOMPARE(lookup(), QStringLiteral("Ctrl+T"));
    m_daemon.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"), padding);
    const LogCapture log;
    QCOMPARE(lookup(), QString(QLatin1String("")));
    QCOMPARE(log.texts(), QStringList{noAccels});
}

void ShortcutLookupTest::followsAChangeAtTheDaemon()
{
    m_daemon.setValue(QStringLiteral("speech-to-text"), QStringList{QStringLiteral("<Super>D")});
    QCOMPARE(lookup(), QStringLiteral("Super+D"));
    m_daemon.setValue(QStringLiteral("speech-to-text"),
                      QStringList{QStringLiteral("<Control><Alt>D")});
    QCOMPARE(lookup(), QStringLiteral("Ctrl+Alt+D"));
    m_daemon.setValue(QStringLiteral("speech-to-text"), QStringList());
    QCOMPARE(lookup(), QString(QLatin1String("")));
}

void ShortcutLookupTest::anUnknownIdentifierGivesAnEmptyText()
{
    const LogCapture log;
    QCOMPARE(AssistantStateProxy::getShortCut(QStringLiteral("no-such-shortcut"), 0),
             QString(QLatin1String("")));
    QCOMPARE(log.texts(), QStringList{noAccels});
}

TEST_CLASS(QCoreApplication, ShortcutLookupTest)
#include "shortcutlookup.moc"
