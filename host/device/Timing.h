#ifndef HOST_DEVICE_TIMING_H
#define HOST_DEVICE_TIMING_H

#include "robot/link/Client.h"

#include <chrono>

namespace host::device {

/// How long a connection waits; tests are less patient than people.
struct Timing
{
    std::chrono::milliseconds frame{300};   ///< one frame of the connecting animation
    std::chrono::milliseconds answer{5000}; ///< for each answer of the robot's services
    robot::link::Client::Timeouts link;
};

} // namespace host::device

#endif
