// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_DELAYPROBE_H
#define QUANDREL_DELAYPROBE_H

#include <QObject>
#include <QThread>

#include <atomic>
#include <thread>
#include <vector>

/// How late a thread's event loop serves what it is asked. A thread of the probe's own posts an
/// event every 5 ms, like a hand on the mouse that never rests; the delay is the time from then
/// until the event's handler runs.
class DelayProbe : public QObject
{
public:
    /// Starts at once. @p asked runs an event loop and outlives the measurement.
    explicit DelayProbe(QThread& asked);
    ~DelayProbe() override;

    /// Ends the measurement. The delays so far in milliseconds, the shortest first.
    std::vector<double> finish();

private:
    void post();
    void end();

    std::vector<double> m_delays; // of the thread that is asked, until the end
    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};

#endif
