// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/recording/Replay.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace robot::recording {

using simulation::LaserScan;
using simulation::Time;

namespace {

constexpr Time maximumDelay = std::chrono::seconds(1);

bool isPlausible(Time step)
{
    return step >= std::chrono::milliseconds(1) && step <= std::chrono::hours(1);
}

Time medianStep(const std::vector<LaserScan>& scans)
{
    std::vector<Time> steps;
    for (size_t i = 1; i < scans.size(); ++i) {
        const Time step = scans[i].header.stamp - scans[i - 1].header.stamp;
        if (isPlausible(step))
            steps.push_back(step);
    }
    if (steps.empty())
        return std::chrono::milliseconds(100);
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return *middle;
}

} // namespace

std::optional<Replay> Replay::create(std::vector<LaserScan> scans, const Options& options,
                                     QString* error)
{
    QString reason;
    if (scans.empty())
        reason = tr("There are no scans to replay.");
    else if (!(options.rate >= minimumRate && options.rate <= maximumRate)) // NaN too
        reason = tr("The replay rate %1 is not from %2 to %3.")
                     .arg(options.rate)
                     .arg(minimumRate)
                     .arg(maximumRate);
    if (reason.isEmpty())
        return Replay(std::move(scans), options);
    if (error)
        *error = reason;
    return std::nullopt;
}

Replay::Replay(std::vector<LaserScan> scans, const Options& options)
    : m_scans(std::move(scans)),
      m_options(options),
      m_period(medianStep(m_scans))
{
}

const LaserScan* Replay::next(Time now)
{
    if (isFinished() || now < m_due)
        return nullptr;
    if (now - m_due > maximumDelay)
        m_due = now;
    const size_t given = m_position++;
    const auto step = static_cast<double>(stepAfter(given).count());
    m_due += Time(std::llround(step / m_options.rate));
    if (isFinished() && m_options.isLooping)
        m_position = 0;
    return &m_scans[given];
}

Time Replay::stepAfter(size_t index) const
{
    if (index + 1 == m_scans.size())
        return m_period;
    const Time step = m_scans[index + 1].header.stamp - m_scans[index].header.stamp;
    return isPlausible(step) ? step : m_period;
}

} // namespace robot::recording
