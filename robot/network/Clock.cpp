// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Clock.h"

#include <algorithm>

namespace robot::network {

Clock::Clock(std::chrono::nanoseconds longestStep) : m_longestStep(longestStep)
{
    m_sinceThen.start();
}

std::chrono::nanoseconds Clock::advance()
{
    const std::chrono::nanoseconds elapsed(m_sinceThen.nsecsElapsed());
    m_sinceThen.start();
    const std::chrono::nanoseconds step = std::min(elapsed, m_longestStep);
    m_now += step;
    return step;
}

QCborMap Clock::stamp(std::chrono::nanoseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {{QStringLiteral("secs"), static_cast<qint64>(seconds.count())},
            {QStringLiteral("nsecs"), static_cast<qint64>((time - seconds).count())}};
}

} // namespace robot::network
