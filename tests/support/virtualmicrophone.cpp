#include "tests/support/virtualmicrophone.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QRegularExpression>

#include <pulse/pulseaudio.h>

#include <csignal>

namespace testsupport {

namespace {

constexpr int serverStartLimitMs = 30000;
constexpr int endLimitMs = 10000;

/** Holds the loop's lock. */
class LoopLock
{
public:
    explicit LoopLock(pa_threaded_mainloop *loop)
        : m_loop(loop)
    {
        pa_threaded_mainloop_lock(m_loop);
    }
    ~LoopLock() { pa_threaded_mainloop_unlock(m_loop); }
    Q_DISABLE_COPY(LoopLock)

private:
    pa_threaded_mainloop *m_loop;
};

} // namespace

VirtualMicrophone::~VirtualMicrophone()
{
    stop();
}

bool VirtualMicrophone::start(const QString &kind)
{
    qputenv("SANDBOX_RECORDINGS", RECORDINGS);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(MICROPHONE_SCRIPT), {kind, m_folder.path()});
    const QByteArray line = m_process.waitForLine(serverStartLimitMs);
    QFile environment(m_folder.filePath(QStringLiteral("environment")));
    if (!line.startsWith("ready ") || !environment.open(QIODevice::ReadOnly)) {
        qWarning("no virtual microphone: %s", qPrintable(m_process.errorString()));
        return false;
    }
    static const QRegularExpression assignment(QStringLiteral("(\\w+)='?([^' \n]*)'?"));
    auto match = assignment.globalMatch(QString::fromLocal8Bit(environment.readAll()));
    while (match.hasNext()) {
        const QRegularExpressionMatch variable = match.next();
        qputenv(variable.captured(1).toLatin1().constData(), variable.captured(2).toLocal8Bit());
    }
    return true;
}

bool VirtualMicrophone::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return false;
    m_process.terminate();
    return m_process.waitForFinished(endLimitMs) &&
           m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

void VirtualMicrophone::kill()
{
    for (const qint64 process : serverProcesses())
        ::kill(pid_t(process), SIGKILL);
    m_process.waitForFinished(endLimitMs);
}

QVector<qint64> VirtualMicrophone::serverProcesses() const
{
    const auto contents = [](qint64 process, const char *name) {
        QFile file(QStringLiteral("/proc/%1/").arg(process) + QLatin1String(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const qint64 script = m_process.processId();
    const QByteArray children =
        contents(script, qPrintable(QStringLiteral("task/%1/children").arg(script)));
    QVector<qint64> servers;
    for (const QByteArray &child : children.split(' ')) {
        const QByteArray program = contents(child.toLongLong(), "comm");
        if (program.startsWith("pulseaudio") || program.startsWith("pipewire"))
            servers.append(child.toLongLong());
    }
    return servers;
}

bool VirtualMicrophone::changeKind(const QString &kind)
{
    QFile file(m_folder.filePath(QStringLiteral("kind")));
    return file.open(QIODevice::WriteOnly) && file.write(kind.toLatin1() + '\n') > 0;
}

QString VirtualMicrophone::recordingFile(const QString &kind) const
{
    return m_folder.filePath(kind + QStringLiteral(".wav"));
}

RecordingStreams::~RecordingStreams()
{
    if (!m_loop)
        return;
    pa_threaded_mainloop_stop(m_loop);
    if (m_context) {
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
    }
    pa_threaded_mainloop_free(m_loop);
}

bool RecordingStreams::start()
{
    m_loop = pa_threaded_mainloop_new();
    m_context = pa_context_new(pa_threaded_mainloop_get_api(m_loop), "recording streams");
    const auto wake = [](pa_context *, void *loop) {
        pa_threaded_mainloop_signal(static_cast<pa_threaded_mainloop *>(loop), 0);
    };
    pa_context_set_state_callback(m_context, wake, m_loop);
    const auto changed = [](pa_context *, pa_subscription_event_type_t event, uint32_t index,
                            void *self) {
        static_cast<RecordingStreams *>(self)->changed(event, index);
    };
    pa_context_set_subscribe_callback(m_context, changed, this);
    if (pa_threaded_mainloop_start(m_loop) < 0)
        return false;
    {
        const LoopLock lock(m_loop);
        if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
            return false;
        while (pa_context_get_state(m_context) != PA_CONTEXT_READY) {
            if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context)))
                return false;
            pa_threaded_mainloop_wait(m_loop);
        }
        pa_operation_unref(
            pa_context_subscribe(m_context, PA_SUBSCRIPTION_MASK_SOURCE_OUTPUT, nullptr, nullptr));
    }
    roundTrip();
    return true;
}

QVector<RecordingStreams::Stream> RecordingStreams::streams()
{
    roundTrip();
    const LoopLock lock(m_loop);
    return m_streams;
}

int RecordingStreams::open()
{
    roundTrip();
    const LoopLock lock(m_loop);
    return m_openStreams.size();
}

void RecordingStreams::clear()
{
    roundTrip();
    const LoopLock lock(m_loop);
    m_streams.clear();
    m_openStreams.clear();
}

qint64 RecordingStreams::now()
{
    return QDeadlineTimer::current().deadline();
}

/** Waits for pending notifications. The server may answer once before it notifies of a change. */
void RecordingStreams::roundTrip()
{
    const LoopLock lock(m_loop);
    const auto answered = [](pa_context *, const pa_server_info *, void *loop) {
        pa_threaded_mainloop_signal(static_cast<pa_threaded_mainloop *>(loop), 0);
    };
    for (int i = 0; i < 2; ++i) {
        pa_operation *question = pa_context_get_server_info(m_context, answered, m_loop);
        while (pa_operation_get_state(question) == PA_OPERATION_RUNNING)
            pa_threaded_mainloop_wait(m_loop);
        pa_operation_unref(question);
    }
}

void RecordingStreams::changed(int event, quint32 index)
{
    switch (event & PA_SUBSCRIPTION_EVENT_TYPE_MASK) {
    case PA_SUBSCRIPTION_EVENT_NEW:
        m_openStreams.insert(index, m_streams.size());
        m_streams.append({now(), -1});
        break;
    case PA_SUBSCRIPTION_EVENT_REMOVE:
        if (m_openStreams.contains(index)) // others were there before
            m_streams[m_openStreams.take(index)].closedMs = now();
        break;
    default:
        break;
    }
}

} // namespace testsupport
