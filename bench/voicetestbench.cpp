#include "bench/suite.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

#include <QElapsedTimer>
#include <QProcessEnvironment>

using testsupport::ChildProcess;

namespace {

constexpr int startLimitMs = 30000;
constexpr int testLimitMs = 40000;
constexpr int captureMs = 3000; // long enough for what does the same all the time
constexpr int mixerStartMs = 1000;
constexpr double allowedShare = 0.8;
constexpr double verdictLimitMs = 100.0;

/** An X server, and programs on it. */
class Display
{
public:
    Display()
    {
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"),
                        QStringLiteral("-screen"), QStringLiteral("0"),
                        QStringLiteral("1920x1080x24"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp")});
        m_number = QString::fromLatin1(m_server.waitForLine(startLimitMs));
        if (m_number.isEmpty())
            qFatal("no X server");
    }
    ~Display()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }

    QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        environment.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + m_number);
        return environment;
    }

    qint64 server() const { return m_server.processId(); }

private:
    ChildProcess m_server;
    QString m_number;
};

/** Share of one core that processes take while something runs, in per cent. */
class Share
{
public:
    explicit Share(const QVector<qint64> &processes)
        : m_processes(processes)
        , m_before(processorTime())
    {
        m_clock.start();
    }

    double take() const
    {
        const double ms = m_clock.nsecsElapsed() / 1e6;
        return (processorTime() - m_before) / ms * 100.0;
    }

private:
    double processorTime() const
    {
        double sum = 0.0;
        for (const qint64 process : m_processes)
            sum += processorMs(process);
        return sum;
    }

    QVector<qint64> m_processes;
    double m_before;
    QElapsedTimer m_clock;
};

/** What one program took; "page" of a whole test, all else for a while. */
struct Run
{
    double share = 0.0;
    double verdictMs = 0.0; // from the end of the recording until the verdict was painted
};

Run runHost(const char *what, const Display *display)
{
    ChildProcess host;
    if (display)
        host.setProcessEnvironment(display->environment());
    host.start(QStringLiteral(VOICE_TEST_HOST), {QLatin1String(what)});
    if (host.waitForLine(startLimitMs) != "ready")
        qFatal("the host of a voice test does not start");
    QVector<qint64> processes = {host.processId()};
    if (display)
        processes << display->server();

    Run run;
    const Share share(processes);
    host.write("\n");
    if (qstrcmp(what, "page") == 0) {
        const QByteArray line = host.waitForLine(testLimitMs);
        if (line.isEmpty())
            qFatal("a voice test has no verdict");
        run.verdictMs = line.toDouble();
    } else {
        runEvents(captureMs);
    }
    run.share = share.take();
    host.kill();
    host.waitForFinished();
    return run;
}

double mixerShare(const Display &display)
{
    testsupport::RecordingStreams streams;
    if (!streams.start())
        qFatal("the sound server does not answer");
    ChildProcess mixer;
    mixer.setProcessEnvironment(display.environment());
    constexpr const char *microphones = "4";
    mixer.start(QStringLiteral("pavucontrol-qt"),
                {QStringLiteral("--tab"), QLatin1String(microphones)});
    runEvents(mixerStartMs);
    if (streams.open() == 0)
        qFatal("the mixer shows no microphone");
    const Share share({mixer.processId(), display.server()});
    runEvents(captureMs);
    const double result = share.take();
    mixer.kill();
    mixer.waitForFinished();
    return result;
}

} // namespace

void benchVoiceTest(const Report &report)
{
    Comparison what;
    what.unit = QStringLiteral("% of a core");
    what.aim = 1.0;

    QVector<double> readers;
    QVector<double> allowed;
    QVector<double> offscreen;
    QVector<double> onDisplay;
    QVector<double> waves;
    QVector<double> mixers;
    QVector<double> verdicts;
    QVector<double> verdictLimits;
    const Display display;
    for (int round = 0; round < roundsOf(what); ++round) {
        readers << runHost("reader", nullptr).share;
        allowed << readers.last() + allowedShare;
        offscreen << runHost("page", nullptr).share;
        const Run test = runHost("page", &display);
        onDisplay << test.share;
        verdicts << test.verdictMs;
        verdictLimits << verdictLimitMs;
        waves << runHost("wave", &display).share;
        mixers << mixerShare(display);
    }

    what.name = QStringLiteral("voice test, offscreen");
    what.subject = QStringLiteral("processor time of a whole voice test without a display");
    what.baseline = QStringLiteral("an empty reader of the microphone, and %1 %").arg(allowedShare);
    report(ratioOf(what, offscreen, allowed));

    what.name = QStringLiteral("voice test");
    what.subject = QStringLiteral("the same on a display, the X server's included");
    report(ratioOf(what, onDisplay, allowed));

    what.name = QStringLiteral("voice test by a mixer");
    what.baseline = QStringLiteral("a mixer that shows the same microphone there");
    report(ratioOf(what, onDisplay, mixers));

    what.name = QStringLiteral("voice test by a bare wave");
    what.baseline = QStringLiteral("a reader that fills three finished outlines as often there");
    what.aim = 1.3;
    report(ratioOf(what, onDisplay, waves));

    what.name = QStringLiteral("verdict");
    what.subject = QStringLiteral("from the end of the recording until the verdict is painted");
    what.baseline = QStringLiteral("the time in which nobody sees a wait");
    what.unit = QStringLiteral("ms");
    what.aim = 1.0;
    report(ratioOf(what, verdicts, verdictLimits));
}
