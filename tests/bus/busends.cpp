#include "tests/support/serviceprocess.h"
#include "tests/support/testprogram.h"

#include <QtTest>

#include <map>
#include <memory>
#include <vector>

// Everything that the module does while the session bus, the system bus or both end: before it,
// unnoticed before it, instead of each single message that it sends, and after it. Each time in a
// process of its own (busendsoperation.cpp), several at once.

using testsupport::ChildProcess;
using testsupport::ServiceProcess;

namespace {

constexpr int limitMs = 20000; // a loaded machine under sanitizers, still less than the bus's limit
constexpr int atOnce = 4;

#ifdef __SANITIZE_ADDRESS__
constexpr bool everyMoment = false; // a program takes five times as long, and says the same
#else
constexpr bool everyMoment = true;
#endif

struct Run
{
    QStringList arguments;
    QString outcome; // empty: fine
};

/**
 * Of @p runs, which are those of one operation, one for each bus and each kind of moment: before,
 * unnoticed, after and instead of a message. Both states of the connection come up.
 */
std::vector<Run> oneOfEachKind(const std::vector<Run> &runs)
{
    std::vector<Run> chosen;
    QStringList kinds;
    for (const Run &run : runs) {
        const QString moment = run.arguments.at(3).section(QLatin1Char('.'), 0, 0);
        const bool message = moment.toInt() > 0;
        const QString kind = run.arguments.at(2) + (message ? QString() : moment);
        if (run.arguments.at(2) == QLatin1String("both"))
            continue;
        // Qt's own waits hang on connections that no event loop has served yet.
        const bool fresh = message || moment == QLatin1String("unnoticed");
        if (run.arguments.at(1) == QLatin1String(fresh ? "fresh" : "used") &&
            !kinds.contains(kind)) {
            kinds.append(kind);
            chosen.push_back(run);
        }
    }
    return chosen;
}

/** What is wrong with how @p process ended; empty when nothing is. */
QString outcomeOf(ChildProcess &process)
{
    if (!process.waitForFinished(limitMs)) {
        process.kill();
        process.waitForFinished();
        return QStringLiteral("does not return");
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    return QStringLiteral("exit status %1, code %2: ")
               .arg(process.exitStatus())
               .arg(process.exitCode()) +
           QString::fromLocal8Bit(process.readAllStandardError());
}

void runAll(std::vector<Run> &runs)
{
    std::map<Run *, std::unique_ptr<ChildProcess>> running;
    const auto finish = [&running](Run *run) {
        run->outcome = outcomeOf(*running.at(run));
        running.erase(run);
    };
    std::size_t oldest = 0;
    for (Run &run : runs) {
        if (running.size() == atOnce)
            finish(&runs.at(oldest++));
        auto &process = running[&run] = std::make_unique<ChildProcess>();
        process->start(QStringLiteral(BUS_ENDS_OPERATION), run.arguments);
    }
    while (oldest < runs.size())
        finish(&runs.at(oldest++));
}

/** What the program prints when it is started with @p arguments. */
QStringList linesOf(const QStringList &arguments)
{
    ChildProcess process;
    process.start(QStringLiteral(BUS_ENDS_OPERATION), arguments);
    const QString outcome = outcomeOf(process);
    if (!outcome.isEmpty())
        qWarning() << arguments << outcome;
    QString output = QString::fromLocal8Bit(process.readAllStandardOutput());
    output.chop(1);
    return output.split(QLatin1Char('\n'));
}

QStringList words(const QString &line)
{
    return line.isEmpty() ? QStringList() : line.split(QLatin1Char(' '));
}

/**
 * Whether @p method is the bus daemon's. Such calls stand around the building of a proxy, where
 * QtDBus asks for the owner of the service with a wait of its own. Until the event loop has run for
 * the first time, nothing of the module can end that when the bus does not.
 */
bool isDaemons(const QString &method)
{
    static const QStringList methods = {QStringLiteral("AddMatch"), QStringLiteral("RemoveMatch"),
                                        QStringLiteral("GetNameOwner")};
    return methods.contains(method);
}

} // namespace

class BusEndsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyOperationReturns_data();
    void everyOperationReturns();

private:
    ServiceProcess m_assistant{QStringLiteral("assistant")};
    ServiceProcess m_dock{QStringLiteral("dock")};
    ServiceProcess m_keybinding{QStringLiteral("keybinding")};
    ServiceProcess m_voice{QStringLiteral("voicescript")};
    ServiceProcess m_network{QStringLiteral("networkmanager")};
};

void BusEndsTest::initTestCase()
{
    for (ServiceProcess *service : {&m_assistant, &m_dock, &m_keybinding, &m_voice, &m_network})
        QVERIFY(service->start());
    // Nothing is what it is taken for when no answer comes.
    for (const char *key : {"iat.enabled", "tts.enabled", "tts.window", "trans.enabled"})
        m_assistant.setValue(QLatin1String(key), true);
    m_assistant.setValue(QStringLiteral("iat.language"), QStringLiteral("en_us"));
    m_assistant.setValue(QStringLiteral("trans.language"), QStringLiteral("cn|en"));
    m_assistant.setValue(QStringLiteral("tts.speaker"), QStringLiteral("x_morven"));
    m_dock.setValue(QStringLiteral("hidden"), true);
    m_keybinding.script(QStringLiteral("GetShortcut"), QStringLiteral("reply"),
                        QStringLiteral("{\"Accels\":[\"<Control><Alt>T\"]}"));
}

void BusEndsTest::everyOperationReturns_data()
{
    QTest::addColumn<QString>("operation");
    const QStringList operations = linesOf({QStringLiteral("list")});
    for (const QString &operation : operations)
        QTest::newRow(qPrintable(operation)) << operation;
}

void BusEndsTest::everyOperationReturns()
{
    QFETCH(QString, operation);
    std::vector<Run> runs;
    int leftOut = 0;
    for (const char *state : {"fresh", "used"}) {
        const QString connections = QLatin1String(state);
        const bool fresh = connections == QLatin1String("fresh");
        const QStringList lines = linesOf({QStringLiteral("calls"), operation, connections});
        QCOMPARE(lines.size(), 2);
        for (const char *ending : {"session", "system", "both"}) {
            QStringList moments = {QStringLiteral("before"), QStringLiteral("unnoticed"),
                                   QStringLiteral("after")};
            const QStringList calls = words(lines.at(qstrcmp(ending, "system") == 0));
            for (int i = 0; i < calls.size(); ++i) {
                const QString &method = calls.at(i);
                if (fresh && isDaemons(method))
                    ++leftOut;
                else
                    moments.append(QStringLiteral("%1.%2.%3")
                                       .arg(i + 1)
                                       .arg(method)
                                       .arg(calls.mid(0, i + 1).count(method)));
            }
            for (const QString &moment : qAsConst(moments))
                runs.push_back({{operation, connections, QLatin1String(ending), moment}, {}});
        }
    }
    if (!everyMoment)
        runs = oneOfEachKind(runs);
    runAll(runs);
    QStringList failures;
    for (const Run &run : runs)
        if (!run.outcome.isEmpty())
            failures.append(run.arguments.join(QStringLiteral(", ")) + QStringLiteral(": ") +
                            run.outcome.trimmed());
    qInfo() << runs.size() << "runs," << leftOut << "moments left out";
    QVERIFY2(failures.isEmpty(), qPrintable(failures.join(QLatin1Char('\n'))));
}

TEST_CLASS(QCoreApplication, BusEndsTest)
#include "busends.moc"
