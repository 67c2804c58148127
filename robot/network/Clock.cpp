#include "robot/network/Clock.h"

#include <algorithm>

namespace robot::network {

Clock::Clock(std::chrono::nanoseconds longestStep) : m_longestStep(longestStep)
{
    m_sinceThen.start();
}

std::chrono::nanoseconds Clock::now() const
{
    const std::chrono::nanoseconds elapsed(m_sinceThen.nsecsElapsed());
    return m_advancedTo + std::min(elapsed, m_longestStep);
}

std::chrono::nanoseconds Clock::advance()
{
    const std::chrono::nanoseconds before = m_advancedTo;
    m_advancedTo = now();
    m_sinceThen.start();
    return m_advancedTo - before;
}

QCborMap Clock::stamp(std::chrono::nanoseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {{QStringLiteral("secs"), static_cast<qint64>(seconds.count())},
            {QStringLiteral("nsecs"), static_cast<qint64>((time - seconds).count())}};
}

} // namespace robot::network
