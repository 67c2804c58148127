#ifndef ROBOT_CLOCK_H
#define ROBOT_CLOCK_H

#include <QCborMap>
#include <QElapsedTimer>

#include <chrono>

namespace robot {

/// The simulation's time: 0 when the robot is built, and from then on as fast as real time,
/// whatever is done to the computer's clock.
class Clock
{
public:
    Clock();

    std::chrono::nanoseconds now() const;

    /// A time as ROS messages have it: {secs, nsecs}.
    static QCborMap stamp(std::chrono::nanoseconds time);

private:
    QElapsedTimer m_timer;
};

} // namespace robot

#endif
