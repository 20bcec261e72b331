#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

struct pa_context;
struct pa_server_info;
struct pa_source_info;
struct pa_threaded_mainloop;

namespace sandbox {

/**
 * Follows the default source of the sound server that this process would record from.
 *
 * The server may come and go: while it is away there is no default source, and it is looked for
 * twice a second. It is never started from here.
 */
class SoundServer : public QObject
{
    Q_OBJECT

public:
    explicit SoundServer(QObject *parent = nullptr);
    ~SoundServer() override;

    /** Makes the source called @p name the default one; the server ignores unknown names. */
    void setDefaultSource(const QString &name);

Q_SIGNALS:
    /**
     * The server's default source is the one called @p name, with the server's number @p index.
     * Without a default source, or without a server, the name is empty. Also emitted when nothing
     * has changed.
     */
    void defaultSource(const QString &name, quint32 index);

    // From the sound server's thread.
    void answered(const QString &name, quint32 index);
    void lost();

private:
    void connectToServer();
    void disconnectFromServer();

    // Run on the sound server's thread, with its lock held.
    static void stateChanged(pa_context *context, void *self);
    static void ask(pa_context *context, void *self);
    static void serverAnswered(pa_context *context, const pa_server_info *info, void *self);
    static void sourceAnswered(pa_context *context, const pa_source_info *info, int end,
                               void *self);

    pa_threaded_mainloop *m_loop;
    pa_context *m_context = nullptr; // null while the server is away
    QTimer m_retry;
};

} // namespace sandbox
