// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace robot {

namespace {

volatile std::sig_atomic_t s_writeEnd = -1;

// Only write() is safe here; the notifier on the pipe's other end does the rest.
void wake(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(s_writeEnd, &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // no descriptors left: the signals keep ending the process at once
    s_writeEnd = m_pipe[1];
    auto* notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT received();
    });
    std::signal(SIGINT, wake);
    std::signal(SIGTERM, wake);
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    for (const int end : m_pipe) {
        if (end >= 0)
            close(end);
    }
}

} // namespace robot
