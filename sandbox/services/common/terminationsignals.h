#pragma once

#include <QObject>

namespace sandbox {

/** Turns SIGTERM and SIGINT into a Qt signal, so that a service can end in order. One per process.
 */
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    /** Somebody asked the process to end. */
    void received();

private:
    int m_descriptor; // a signalfd
};

} // namespace sandbox
