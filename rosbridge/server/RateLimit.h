// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_RATELIMIT_H
#define ROSBRIDGE_SERVER_RATELIMIT_H

#include <chrono>

namespace rosbridge::server {

/// A token bucket: so many events or bytes a second for long, and a burst after a pause.
class RateLimit
{
public:
    using Time = std::chrono::milliseconds; ///< since any fixed moment

    RateLimit(int perSecond, int burst);

    /// Counts @p amount of them at @p now; false if that is too much.
    bool allow(Time now, int amount = 1);

private:
    double m_perMillisecond;
    double m_burst;
    double m_left;
    Time m_last{0};
};

} // namespace rosbridge::server

#endif
