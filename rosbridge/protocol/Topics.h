// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_TOPICS_H
#define ROSBRIDGE_PROTOCOL_TOPICS_H

#include "rosbridge/protocol/Literal.h"

#include <QLatin1String>

#include <array>

namespace rosbridge::protocol {

/// A topic that the robot has and the device knows; see docs/robot-link.md.
struct Topic
{
    QLatin1String name; ///< with its slash, "/scan"
    QLatin1String type; ///< of its messages, as ROS 1 writes it
};

namespace topic {

namespace type {
constexpr auto boolean = "std_msgs/Bool"_latin1;
constexpr auto ros2Log = "rcl_interfaces/Log"_latin1; // which ROS 2 has for the log
} // namespace type

// clang-format off
constexpr Topic armCommand{"/arm/command"_latin1, "trajectory_msgs/JointTrajectory"_latin1};
constexpr std::array<Topic, 3> armLineEnabled{{
    {"/arm/line0_enabled"_latin1, type::boolean},
    {"/arm/line1_enabled"_latin1, type::boolean},
    {"/arm/line2_enabled"_latin1, type::boolean},
}};
constexpr Topic armState{"/arm/state"_latin1, "control_msgs/JointTrajectoryControllerState"_latin1};
constexpr Topic armTorqueEnabled{"/arm/torque_enabled"_latin1, type::boolean};
constexpr Topic cameraImage{"/camera/image_raw/compressed"_latin1, "sensor_msgs/CompressedImage"_latin1};
constexpr Topic cameraInfo{"/camera/camera_info"_latin1, "sensor_msgs/CameraInfo"_latin1};
constexpr Topic clock{"/clock"_latin1, "rosgraph_msgs/Clock"_latin1};
constexpr Topic driveDisabled{"/drive/disabled"_latin1, type::boolean};
constexpr Topic footprint{"/footprint"_latin1, "geometry_msgs/PolygonStamped"_latin1};
constexpr Topic jointStates{"/joint_states"_latin1, "sensor_msgs/JointState"_latin1};
constexpr Topic log{"/rosout"_latin1, "rosgraph_msgs/Log"_latin1};
constexpr Topic map{"/map"_latin1, "nav_msgs/OccupancyGrid"_latin1};
constexpr Topic odometry{"/odom"_latin1, "nav_msgs/Odometry"_latin1};
constexpr Topic scan{"/scan"_latin1, "sensor_msgs/LaserScan"_latin1};
constexpr Topic staticTransforms{"/tf_static"_latin1, "tf2_msgs/TFMessage"_latin1};
constexpr Topic stopped{"/stopped"_latin1, type::boolean};
constexpr Topic transforms{"/tf"_latin1, "tf2_msgs/TFMessage"_latin1};
constexpr Topic velocityCommand{"/cmd_vel"_latin1, "geometry_msgs/Twist"_latin1};
// clang-format on

} // namespace topic

} // namespace rosbridge::protocol

#endif
