// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_TOPICS_H
#define ROSBRIDGE_PROTOCOL_TOPICS_H

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
constexpr QLatin1String boolean("std_msgs/Bool");
constexpr QLatin1String ros2Log("rcl_interfaces/Log"); // which ROS 2 has for the log
} // namespace type

// clang-format off
constexpr Topic armCommand{QLatin1String("/arm/command"), QLatin1String("trajectory_msgs/JointTrajectory")};
constexpr std::array<Topic, 3> armLineEnabled{{
    {QLatin1String("/arm/line0_enabled"), type::boolean},
    {QLatin1String("/arm/line1_enabled"), type::boolean},
    {QLatin1String("/arm/line2_enabled"), type::boolean},
}};
constexpr Topic armState{QLatin1String("/arm/state"), QLatin1String("control_msgs/JointTrajectoryControllerState")};
constexpr Topic armTorqueEnabled{QLatin1String("/arm/torque_enabled"), type::boolean};
constexpr Topic cameraImage{QLatin1String("/camera/image_raw/compressed"), QLatin1String("sensor_msgs/CompressedImage")};
constexpr Topic cameraInfo{QLatin1String("/camera/camera_info"), QLatin1String("sensor_msgs/CameraInfo")};
constexpr Topic clock{QLatin1String("/clock"), QLatin1String("rosgraph_msgs/Clock")};
constexpr Topic driveDisabled{QLatin1String("/drive/disabled"), type::boolean};
constexpr Topic footprint{QLatin1String("/footprint"), QLatin1String("geometry_msgs/PolygonStamped")};
constexpr Topic jointStates{QLatin1String("/joint_states"), QLatin1String("sensor_msgs/JointState")};
constexpr Topic log{QLatin1String("/rosout"), QLatin1String("rosgraph_msgs/Log")};
constexpr Topic map{QLatin1String("/map"), QLatin1String("nav_msgs/OccupancyGrid")};
constexpr Topic odometry{QLatin1String("/odom"), QLatin1String("nav_msgs/Odometry")};
constexpr Topic scan{QLatin1String("/scan"), QLatin1String("sensor_msgs/LaserScan")};
constexpr Topic staticTransforms{QLatin1String("/tf_static"), QLatin1String("tf2_msgs/TFMessage")};
constexpr Topic stopped{QLatin1String("/stopped"), type::boolean};
constexpr Topic transforms{QLatin1String("/tf"), QLatin1String("tf2_msgs/TFMessage")};
constexpr Topic velocityCommand{QLatin1String("/cmd_vel"), QLatin1String("geometry_msgs/Twist")};
// clang-format on

} // namespace topic

} // namespace rosbridge::protocol

#endif
