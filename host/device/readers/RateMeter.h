// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_RATEMETER_H
#define HOST_DEVICE_READERS_RATEMETER_H

#include <chrono>
#include <deque>

namespace host::device::readers {

/// How often something arrives, measured over the last second. It has no clock of its own.
class RateMeter
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// @p now never goes backwards.
    void arrived(TimePoint now);

    /// Arrivals a second, rounded; 0 where fewer than two came within the second before @p now.
    unsigned int rate(TimePoint now) const;

    /// Whether nothing came within the second before @p now.
    bool isSilent(TimePoint now) const;

private:
    std::deque<TimePoint> m_arrivals; // of a second, oldest first
};

} // namespace host::device::readers

#endif
