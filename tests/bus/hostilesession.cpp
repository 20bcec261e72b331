// Others on the session bus who mean no good: signals that they forge, names that they take over,
// and texts that are more than text.

#include "contracts/contract.h"
#include "pages/voiceiatsettingwidget.h"
#include "proxy/assistantstateproxy.h"
#include "tests/bus/voiceclients.h"
#include "tests/support/logcapture.h"
#include "tests/support/testprogram.h"
#include "voice/audiorecorder.h"

#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>

#include <QApplication>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QTextLayout>

using namespace testsupport;

namespace {

// Somebody on the session bus.
class Program
{
public:
    Program()
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                              QStringLiteral("program %1").arg(++number)))
    {
    }
    ~Program() { QDBusConnection::disconnectFromBus(m_bus.name()); }
    Q_DISABLE_COPY(Program)

    QString uniqueName() const { return m_bus.baseService(); }

    // Takes a name from whoever lets it go, or waits in line for it.
    bool own(const QString &name, bool queue = false)
    {
        using Bus = QDBusConnectionInterface;
        const auto how = queue ? Bus::QueueService : Bus::ReplaceExistingService;
        const auto answer = m_bus.interface()->registerService(name, how, Bus::AllowReplacement);
        return answer.value() == (queue ? Bus::ServiceQueued : Bus::ServiceRegistered);
    }
    bool disown(const QString &name) { return m_bus.unregisterService(name); }

    // Broadcasts a signal, or addresses it to this process; it has arrived when this returns.
    bool send(QDBusMessage signal, const QVariantList &values, bool addressed)
    {
        if (addressed)
            signal = QDBusMessage::createTargetedSignal(QDBusConnection::sessionBus().baseService(),
                                                        signal.path(), signal.interface(),
                                                        signal.member());
        signal.setArguments(values);
        return m_bus.send(signal) &&
               callProcessingEvents(m_bus, pingCall()).type() == QDBusMessage::ReplyMessage &&
               everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus"));
    }

private:
    static int number;
    QDBusConnection m_bus;
};

int Program::number = 0;

// Sent by who has no right to: the bus daemon's news of a new owner.
QDBusMessage ownerChanged()
{
    return QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/DBus"),
                                      QStringLiteral("org.freedesktop.DBus"),
                                      QStringLiteral("NameOwnerChanged"));
}

// Everything that signals can change: a page with a voice test, and a recognition of its own.
class Bed : public VoiceTestBed
{
public:
    // With the AI service's sessions open, and from then on nobody behind any name.
    bool open()
    {
        if (!VoiceTestBed::open() || !page->clickLink() || !client.iat.startIat())
            return false;
        service.recognise(iatPath, words);
        if (!QTest::qWaitFor([this] { return shown() == panel(words); }))
            return false;
        service.leaveBus();
        return everythingArrivedFrom(QStringLiteral("org.freedesktop.DBus"));
    }

    QString state() const
    {
        auto *dock = page->get()->findChildren<zcc::widgets::SwitchWidget *>().last();
        return QStringList({shown(), dock->checked() ? "dock" : "no dock",
                            AudioRecorder::getInstance()->isRecording() ? "recording" : "silent",
                            client.heard.join(QLatin1Char(','))})
            .join(QLatin1Char('|'));
    }

    RecogniserClient client;
};

} // namespace

class HostileSessionTest : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void heardFromTheService(const QString &text);
    void heardFromAnybody(const QString &text);

private Q_SLOTS:
    void whatQtDrops();
    void signalsOfStrangers_data();
    void signalsOfStrangers();
    void signalsOfFormerOwners_data() { signalsOfStrangers_data(); }
    void signalsOfFormerOwners();
    void answerOfAFormerOwner();
    void hostileWords_data();
    void hostileWords();
    void hostileShortcut_data() { hostileWords_data(); }
    void hostileShortcut();
};

void HostileSessionTest::whatQtDrops()
{
    const QString service = QStringLiteral("org.example.Service");
    const QString path = QStringLiteral("/");
    Program owner;
    Program stranger;
    QVERIFY(owner.own(service));
    QDBusConnection bus = QDBusConnection::sessionBus();
    QVERIFY(bus.connect(service, path, service, QStringLiteral("said"), this,
                        SIGNAL(heardFromTheService(QString))));
    QVERIFY(bus.connect(QString(), path, service, QStringLiteral("said"), this,
                        SIGNAL(heardFromAnybody(QString))));
    QSignalSpy named(this, &HostileSessionTest::heardFromTheService);
    QSignalSpy nameless(this, &HostileSessionTest::heardFromAnybody);
    const QDBusMessage said = QDBusMessage::createSignal(path, service, QStringLiteral("said"));
    for (const bool addressed : {false, true})
        QVERIFY(stranger.send(said, {QStringLiteral("x")}, addressed));
    QCOMPARE(named.count(), 0);
    QCOMPARE(nameless.count(), 2);
    QVERIFY(owner.send(said, {QStringLiteral("x")}, false));
    QCOMPARE(named.count(), 1);
    QCOMPARE(nameless.count(), 3);
}

void HostileSessionTest::signalsOfStrangers_data()
{
    QTest::addColumn<QString>("service");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("believed"); // the state that the signal leads to

    const auto row = [](const Contract::Signal &signal, const QString &path, const QVariant &value,
                        const QString &believed) {
        const Contract::Object &object = signal.object;
        QTest::newRow(qPrintable(signal.name))
            << object.service << (object.path.isEmpty() ? path : object.path)
            << object.interface << signal.name << value << believed;
    };
    const QString shown = panel(words);
    row(Contract::DockIcon::dockHideChange(), QString(), true, shown + "|no dock|recording|");
    row(Contract::QualityCheck::onNotify(), aqcPath, QStringLiteral("1008"),
        finishedPanel(words, QStringLiteral("Too many noises")) + "|dock|silent|");
    row(Contract::Recognition::onResult(), iatPath,
        recognised(idOf(iatPath), "rpl", QStringLiteral("forged")),
        panel(QStringLiteral("forged")) + "|dock|recording|");
    row(Contract::Recognition::onError(), secondIatPath,
        QStringLiteral(R"({"session_id":"%1","errCode":7,"errInfo":"forged"})")
            .arg(idOf(secondIatPath)),
        shown + "|dock|recording|error 7 forged");
    row(Contract::AudioDaemon::DefaultSourceChanged(), QString(),
        QVariant::fromValue(QDBusObjectPath(QStringLiteral("/s"))), shown + "|dock|silent|");
}

void HostileSessionTest::signalsOfStrangers()
{
    QFETCH(QString, service);
    QFETCH(QString, path);
    QFETCH(QString, interface);
    QFETCH(QString, member);
    QFETCH(QVariant, value);
    QFETCH(QString, believed);
    const QDBusMessage signal = QDBusMessage::createSignal(path, interface, member);
    Bed bed;
    QVERIFY(bed.open());
    const QString before = bed.state();
    QVERIFY(before != believed);

    Program nameless;
    Program named;
    QVERIFY(named.own(QStringLiteral("org.example.Other")));
    Program queued;
    Program owner;
    for (const bool owned : {false, true}) {
        if (owned) {
            QVERIFY(owner.own(service));
            QVERIFY(queued.own(service, true));
        }
        for (Program *stranger : {&nameless, &named, &queued}) {
            if (!owned && stranger == &queued)
                continue;
            for (const bool addressed : {false, true}) {
                QVERIFY(stranger->send(signal, {value}, addressed));
                QCOMPARE(bed.state(), before);
                // Even when it says that the name is its own now.
                QVERIFY(stranger->send(ownerChanged(),
                                       {service, owner.uniqueName(), stranger->uniqueName()},
                                       addressed));
                QVERIFY(stranger->send(signal, {value}, addressed));
                QCOMPARE(bed.state(), before);
            }
        }
    }

    // Nor what the owner sends in another form, or from another object.
    const QList<QVariantList> forms = {
        {}, {7}, {value, value}, {QVariant::fromValue(QDBusVariant(value))}};
    for (const QVariantList &values : forms) {
        QVERIFY(owner.send(signal, values, false));
        QCOMPARE(bed.state(), before);
    }
    QVERIFY(owner.send(QDBusMessage::createSignal(path + "/x", interface, member), {value}, false));
    QCOMPARE(bed.state(), before);
    QVERIFY(owner.send(signal, {value}, false));
    QTRY_COMPARE(bed.state(), believed);
}

void HostileSessionTest::signalsOfFormerOwners()
{
    QFETCH(QString, service);
    QFETCH(QString, path);
    QFETCH(QString, interface);
    QFETCH(QString, member);
    QFETCH(QVariant, value);
    QFETCH(QString, believed);
    const QDBusMessage signal = QDBusMessage::createSignal(path, interface, member);
    Bed bed;
    QVERIFY(bed.open());
    const QString before = bed.state();

    Program first;
    Program second;
    Program third;
    QVERIFY(first.own(service));
    QVERIFY(second.own(service));
    QVERIFY(first.send(signal, {value}, true));
    QCOMPARE(bed.state(), before);
    QVERIFY(second.disown(service));
    for (Program *former : {&first, &second}) {
        QVERIFY(former->send(signal, {value}, true));
        QCOMPARE(bed.state(), before);
    }
    QVERIFY(third.own(service));
    QVERIFY(second.send(signal, {value}, true));
    QCOMPARE(bed.state(), before);
    // Who takes a name over is the service.
    QVERIFY(third.send(signal, {value}, true));
    QTRY_COMPARE(bed.state(), believed);
}

// A question goes to who owns the name then, and its answer counts, however late it comes.
void HostileSessionTest::answerOfAFormerOwner()
{
    ServiceProcess assistant(QStringLiteral("assistant"));
    QVERIFY(assistant.start());
    assistant.setValue(QStringLiteral("iat.enabled"), true);
    assistant.script(QStringLiteral("getIatEnable"), QStringLiteral("hold"));
    Program successor;
    QTimer::singleShot(0, this, [&] {
        QVERIFY(assistant.waitForCalls(QStringLiteral("getIatEnable")));
        assistant.leaveBus();
        QVERIFY(successor.own(Contract::SpeechToText::object().service));
        QCOMPARE(assistant.release(QStringLiteral("getIatEnable")), 1);
    });
    QVERIFY(AssistantStateProxy::queryVoiceIatState());
    // The next one is the successor's, who knows of no such object.
    QVERIFY(!AssistantStateProxy::queryVoiceIatState());
}

void HostileSessionTest::hostileWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("picture") << "<img src='file:///etc/hostname' width='5000' height='5000'>";
    QTest::newRow("tags") << "<b>bold</b><h1>large</h1><br><br>";
    QTest::newRow("entity") << "&amp;&#10;&lt;";
    QTest::newRow("mnemonic") << "&File";
    QTest::newRow("placeholders") << "%1 %2 %n %L1";
    QTest::newRow("null") << QStringLiteral("a") + QChar(0) + "b";
    QTest::newRow("escape") << "\x1b[31mred\x1b[2J\a\b\x7f";
    QTest::newRow("lines") << QStringLiteral("a\nb\r\nc\u2028d\u2029e");
    QTest::newRow("override") << QStringLiteral("a\u202eb");
    QTest::newRow("embeddings") << QStringLiteral("\u202b\u202d\u202eb");
    QTest::newRow("isolates") << QStringLiteral("\u2066\u2067b");
    QTest::newRow("ends of what is not open") << QStringLiteral("\u202c\u2069b");
    QTest::newRow("right to left") << QStringLiteral("\u0645\u0631\u062d\u0628\u0627");
    QTest::newRow("no characters") << QStringLiteral("\ufeff\ufffe\uffff\u200d") + QChar(0xd800);
}

void HostileSessionTest::hostileWords()
{
    QFETCH(QString, text);
    VoiceTestBed bed;
    QVERIFY(bed.open());
    QVERIFY(bed.page->clickLink());
    const int width = bed.page->panel()->width();
    const LogCapture log;
    bed.service.recognise(iatPath, text);
    QTRY_COMPARE(bed.page->texts().at(1), text);
    auto *label = qobject_cast<QLabel *>(bed.page->layout()->itemAt(1)->widget());
    QCOMPARE(label->textFormat(), Qt::PlainText);

    // Nothing is wider, and nothing lies over anything else.
    QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
    QCOMPARE(bed.page->panel()->width(), width);
    int bottom = 0;
    for (int i = 0; i < bed.page->layout()->count(); ++i) {
        const QWidget *widget = bed.page->layout()->itemAt(i)->widget();
        if (!widget)
            continue;
        QVERIFY(widget->y() >= bottom);
        bottom = widget->geometry().bottom();
    }

    const QString onTheBus = QString(text).remove(QChar(0)); // which carries none
    bed.service.notify(aqcPath, onTheBus + "1004");
    QTRY_COMPARE(bed.shown(),
                 finishedPanel(text, QStringLiteral("Turn down the input volume and try again")));

    // A log stays one of lines.
    QVERIFY(!log.texts().isEmpty());
    for (const QString &line : log.texts())
        for (const QChar c : line)
            QVERIFY2(c.isPrint(), qPrintable(line));
}

void HostileSessionTest::hostileShortcut()
{
    QFETCH(QString, text);
    ServiceProcess keybinding(QStringLiteral("keybinding"));
    QVERIFY(keybinding.start());
    const auto hint = [&keybinding](const QString &shortcut) {
        const QJsonObject answer{{QStringLiteral("Accels"), QJsonArray{shortcut}}};
        keybinding.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"),
                          QString::fromUtf8(QJsonDocument(answer).toJson()));
        const VoiceIatSettingWidget page(nullptr);
        const auto *label = page.findChild<zcc::widgets::TipsLabel *>();
        return qMakePair(label->text(), label->textFormat());
    };
    const QString usual = hint(QStringLiteral("T")).first;
    const QString after = usual.mid(usual.indexOf('T', usual.indexOf('(')) + 1);
    const auto [shown, format] = hint(text);
    QCOMPARE(format, Qt::PlainText);
    QVERIFY2(shown.endsWith(after), qPrintable(shown));

    // What stands behind it is one line with what stands before it, from left to right.
    QTextLayout layout(shown);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1000000);
    layout.endLayout();
    QCOMPARE(line.textLength(), shown.size());
    const int begin = shown.size() - after.size();
    for (int i = begin + 1; i < shown.size(); ++i)
        QVERIFY(line.cursorToX(i) >= line.cursorToX(i - 1));
    QVERIFY(line.cursorToX(begin) >= line.cursorToX(shown.indexOf('(')));
}

ISOLATED_TEST_CLASS(QApplication, HostileSessionTest, ScriptedAudio::install())
#include "hostilesession.moc"
