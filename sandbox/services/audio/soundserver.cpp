#include "sandbox/services/audio/soundserver.h"

#include <pulse/pulseaudio.h>

namespace sandbox {

namespace {

constexpr int retryMs = 500;

/** Holds the lock of the sound server's thread. */
class Lock
{
public:
    explicit Lock(pa_threaded_mainloop *loop)
        : m_loop(loop)
    {
        pa_threaded_mainloop_lock(m_loop);
    }
    ~Lock() { pa_threaded_mainloop_unlock(m_loop); }

    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

private:
    pa_threaded_mainloop *m_loop;
};

/** Answers are taken from callbacks; the operation itself is of no further use. */
void forget(pa_operation *operation)
{
    if (operation)
        pa_operation_unref(operation);
}

} // namespace

SoundServer::SoundServer(QObject *parent)
    : QObject(parent)
    , m_loop(pa_threaded_mainloop_new())
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(retryMs);
    connect(&m_retry, &QTimer::timeout, this, &SoundServer::connectToServer);
    connect(this, &SoundServer::answered, this, &SoundServer::defaultSource, Qt::QueuedConnection);
    connect(
        this, &SoundServer::lost, this,
        [this] {
            disconnectFromServer();
            Q_EMIT defaultSource(QString(), PA_INVALID_INDEX);
            m_retry.start();
        },
        Qt::QueuedConnection);
    pa_threaded_mainloop_start(m_loop);
    connectToServer();
}

SoundServer::~SoundServer()
{
    disconnectFromServer();
    pa_threaded_mainloop_stop(m_loop);
    pa_threaded_mainloop_free(m_loop);
}

void SoundServer::setDefaultSource(const QString &name)
{
    const Lock lock(m_loop);
    if (m_context) {
        forget(
            pa_context_set_default_source(m_context, name.toUtf8().constData(), nullptr, nullptr));
    }
}

void SoundServer::connectToServer()
{
    const Lock lock(m_loop);
    m_context = pa_context_new(pa_threaded_mainloop_get_api(m_loop), "sandbox-audio");
    pa_context_set_state_callback(m_context, stateChanged, this);
    if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        Q_EMIT lost();
}

void SoundServer::disconnectFromServer()
{
    const Lock lock(m_loop);
    if (m_context) {
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_set_subscribe_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
        m_context = nullptr;
    }
}

void SoundServer::stateChanged(pa_context *context, void *self)
{
    switch (pa_context_get_state(context)) {
    case PA_CONTEXT_READY:
        pa_context_set_subscribe_callback(
            context,
            [](pa_context *changed, pa_subscription_event_type_t, uint32_t, void *data) {
                ask(changed, data);
            },
            self);
        forget(pa_context_subscribe(context, PA_SUBSCRIPTION_MASK_SERVER, nullptr, nullptr));
        ask(context, self);
        break;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        Q_EMIT static_cast<SoundServer *>(self)->lost();
        break;
    default:
        break;
    }
}

void SoundServer::ask(pa_context *context, void *self)
{
    forget(pa_context_get_server_info(context, serverAnswered, self));
}

void SoundServer::serverAnswered(pa_context *context, const pa_server_info *info, void *self)
{
    const char *name = info ? info->default_source_name : nullptr;
    if (name && *name)
        forget(pa_context_get_source_info_by_name(context, name, sourceAnswered, self));
    else if (info)
        Q_EMIT static_cast<SoundServer *>(self)->answered(QString(), PA_INVALID_INDEX);
}

void SoundServer::sourceAnswered(pa_context *, const pa_source_info *info, int end, void *self)
{
    // An error means that the source has gone since; another event tells of the one after it.
    if (end == 0) {
        Q_EMIT static_cast<SoundServer *>(self)->answered(QString::fromUtf8(info->name),
                                                          info->index);
    }
}

} // namespace sandbox
