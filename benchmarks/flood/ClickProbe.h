// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_CLICKPROBE_H
#define QUANDREL_CLICKPROBE_H

#include <QAbstractButton>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

/// How long a click waits for its answer. A thread of the probe's own presses and releases the
/// mouse on a button, through the event loop, and does so again a while after the button has
/// answered.
class ClickProbe
{
public:
    /// Starts at once. @p button outlives the probe.
    explicit ClickProbe(QAbstractButton& button);
    ~ClickProbe();

    /// From the press to the signal clicked(), in milliseconds, the shortest first; a click that is
    /// still waiting counts with its time so far. Of the button's thread.
    std::vector<double> delays() const;

private:
    using Clock = std::chrono::steady_clock;

    void click();

    QAbstractButton& m_button;
    std::vector<double> m_delays; // of the button's thread
    std::atomic<bool> m_isOver = false;
    std::atomic<bool> m_isWaiting = false;
    std::atomic<Clock::time_point> m_pressed{};
    QMetaObject::Connection m_connection;
    std::thread m_thread;
};

#endif
