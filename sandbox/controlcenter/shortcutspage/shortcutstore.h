#pragma once

#include <QObject>

class ComTavrenDaemonKeybindingInterface;
class QDBusPendingCall;

namespace sandbox {
class ServiceControl;
}

namespace controlcenter {

/**
 * The system shortcuts in the keybinding daemon, which is read and written without waiting.
 *
 * They are read by the daemon's contract. Changing one is not part of it, so that goes over the
 * control interface of the sandbox's daemon.
 */
class ShortcutStore : public QObject
{
    Q_OBJECT

public:
    explicit ShortcutStore(QObject *parent = nullptr);

    /** Asks for the accelerator of shortcut @p id; known() or failed() follows. */
    void read(const QString &id);

    /** Stores @p accelerator (empty: none) for shortcut @p id; known() or failed() follows. */
    void write(const QString &id, const QString &accelerator);

Q_SIGNALS:
    /** The daemon says that shortcut @p id is @p accelerator now; empty: it has none. */
    void known(const QString &id, const QString &accelerator);

    /** Shortcut @p id could not be read or stored; @p reason is the bus error's text. */
    void failed(const QString &id, const QString &reason);

private:
    template <typename Then>
    void whenAnswered(const QDBusPendingCall &call, const QString &id, Then then);

    ComTavrenDaemonKeybindingInterface *m_daemon;
    sandbox::ServiceControl *m_control;
};

} // namespace controlcenter
