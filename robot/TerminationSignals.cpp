#include "robot/TerminationSignals.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace robot {

namespace {

int openSignals()
{
    sigset_t signalSet;
    sigemptyset(&signalSet);
    sigaddset(&signalSet, SIGINT);
    sigaddset(&signalSet, SIGTERM);
    if (pthread_sigmask(SIG_BLOCK, &signalSet, nullptr) != 0)
        qFatal("cannot block SIGINT and SIGTERM");
    const int descriptor = signalfd(-1, &signalSet, SFD_NONBLOCK | SFD_CLOEXEC);
    if (descriptor < 0)
        qFatal("cannot receive SIGINT and SIGTERM");
    return descriptor;
}

} // namespace

TerminationSignals::TerminationSignals()
    : m_descriptor(openSignals()),
      m_notifier(m_descriptor, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo info{};
        if (read(m_descriptor, &info, sizeof(info)) == sizeof(info))
            Q_EMIT received();
    });
}

TerminationSignals::~TerminationSignals()
{
    m_notifier.setEnabled(false);
    close(m_descriptor);
}

} // namespace robot
