// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PACE_REFRESH_H
#define HOST_WORKBENCH_PACE_REFRESH_H

#include <QTimer>

#include <chrono>
#include <functional>

namespace host::workbench::pace {

/// Shows in a part of the window what has changed since it was last shown: some time after the
/// first change, when it is this one's turn.
class Refresh
{
public:
    /// @p show is called out of the event loop. It may ask for another one. The timer is a child of
    /// @p owner, of which this is a part.
    Refresh(QObject& owner, std::function<void()> show);
    Refresh(const Refresh&) = delete;
    Refresh& operator=(const Refresh&) = delete;
    ~Refresh();

    /// There is something new, to be shown after @p pause at the earliest. Nothing changes where
    /// something is waiting to be shown already.
    void request(std::chrono::milliseconds pause);
    /// What was asked for is not shown.
    void cancel();

private:
    friend class Turns;

    void show();

    const std::function<void()> m_show;
    QTimer m_pause;
    bool m_isWaiting = false; // for its turn
};

} // namespace host::workbench::pace

#endif
