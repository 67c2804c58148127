// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_REPLAY_H
#define ROBOT_RECORDING_REPLAY_H

#include "robot/simulation/LaserScan.h"

#include <QCoreApplication>

#include <optional>
#include <vector>

namespace robot::recording {

/// Gives a recording's scans in order, when they are due by the recording's own clock. It has no
/// timer: its owner says what time it is and asks.
///
/// A step of that clock that no laser makes (backwards, below a millisecond, above an hour) is
/// taken for one nominal period: the median of the steps that are left, a tenth of a second where
/// there are none.
class Replay
{
    Q_DECLARE_TR_FUNCTIONS(robot::recording::Replay)

public:
    static constexpr double minimumRate = 0.01;
    static constexpr double maximumRate = 100.0;

    struct Options
    {
        double rate = 1.0;     ///< 2 is twice as fast as it was recorded
        bool isLooping = true; ///< the first scan follows the last one, a nominal period later
    };

    /// Nothing, and in @p error (may be null) the reason, if there are no scans or the rate is out
    /// of its limits.
    static std::optional<Replay> create(std::vector<simulation::LaserScan> scans,
                                        const Options& options, QString* error);

    /// The next scan if it is due at @p now, the time since the replay began, else null; the first
    /// is due at 0. To be called until it gives null. The scan is the replay's and keeps the
    /// stamp of the recording. An owner that is more than a second late gets no burst of scans:
    /// the replay waits for it.
    const simulation::LaserScan* next(simulation::Time now);

    /// Whether all scans were given; never when looping.
    bool isFinished() const { return m_position == m_scans.size(); }

    /// The recording's nominal period.
    simulation::Time period() const { return m_period; }

private:
    Replay(std::vector<simulation::LaserScan> scans, const Options& options);

    simulation::Time stepAfter(size_t index) const;

    std::vector<simulation::LaserScan> m_scans;
    Options m_options;
    simulation::Time m_period{0};
    size_t m_position = 0; // of the next scan
    simulation::Time m_due{0};
};

} // namespace robot::recording

#endif
