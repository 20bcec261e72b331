#include "sandbox/services/common/terminationsignals.h"

#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>

namespace sandbox {

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
    sigset_t signalSet;
    sigemptyset(&signalSet);
    sigaddset(&signalSet, SIGTERM);
    sigaddset(&signalSet, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signalSet, nullptr);
    m_descriptor = signalfd(-1, &signalSet, SFD_CLOEXEC);

    auto *notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info;
        if (read(m_descriptor, &info, sizeof info) == sizeof info)
            Q_EMIT received();
    });
}

TerminationSignals::~TerminationSignals()
{
    close(m_descriptor);
}

} // namespace sandbox
