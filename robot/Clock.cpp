#include "robot/Clock.h"

namespace robot {

Clock::Clock()
{
    m_timer.start();
}

std::chrono::nanoseconds Clock::now() const
{
    return std::chrono::nanoseconds(m_timer.nsecsElapsed());
}

QCborMap Clock::stamp(std::chrono::nanoseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {{QStringLiteral("secs"), static_cast<qint64>(seconds.count())},
            {QStringLiteral("nsecs"), static_cast<qint64>((time - seconds).count())}};
}

} // namespace robot
