// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_TESTS_ROSBRIDGE_ROSMESSAGES_H
#define QUANDREL_TESTS_ROSBRIDGE_ROSMESSAGES_H

#include "rosbridge/serialization/MessageDefinition.h"

#include <QByteArray>
#include <QVector>

#include <geometry_msgs/TransformStamped.h>
#include <nav_msgs/OccupancyGrid.h>
#include <nav_msgs/Odometry.h>
#include <rosgraph_msgs/Log.h>
#include <sensor_msgs/CameraInfo.h>
#include <sensor_msgs/CompressedImage.h>
#include <sensor_msgs/JointState.h>
#include <sensor_msgs/LaserScan.h>
#include <std_msgs/UInt64MultiArray.h>
#include <tf2_msgs/TFMessage.h>
#include <trajectory_msgs/JointTrajectory.h>

#include <limits>

/// Messages, their definitions and how they are serialized, all of it as ROS's own generated code
/// has it.
namespace ros_messages {

struct Example
{
    QString type;
    QString definition;
    QByteArray bytes;
};

template <class Message>
QByteArray serialized(const Message& message)
{
    const auto size = ros::serialization::serializationLength(message);
    QByteArray bytes(static_cast<int>(size), '\0');
    ros::serialization::OStream stream(reinterpret_cast<std::uint8_t*>(bytes.data()), size);
    ros::serialization::serialize(stream, message);
    return bytes;
}

template <class Message>
Example example(const Message& message)
{
    return {QString::fromLatin1(ros::message_traits::DataType<Message>::value()),
            QString::fromLatin1(ros::message_traits::Definition<Message>::value()),
            serialized(message)};
}

inline rosbridge::serialization::MessageDefinition definition(const Example& example)
{
    QString error;
    auto parsed = rosbridge::serialization::MessageDefinition::parse(example.type,
                                                                     example.definition, &error);
    if (!parsed)
        qFatal("%s", qPrintable(error));
    return *parsed;
}

inline std_msgs::Header header()
{
    std_msgs::Header header;
    header.seq = 7;
    header.stamp = ros::Time(1600000000, 250000000);
    header.frame_id = "h\xc3\xa4nd";
    return header;
}

inline sensor_msgs::LaserScan scan()
{
    sensor_msgs::LaserScan scan;
    scan.header = header();
    scan.angle_min = -1.5F;
    scan.range_max = 30.0F;
    scan.ranges = {0.5F, std::numeric_limits<float>::quiet_NaN(), 0.1F};
    return scan;
}

inline trajectory_msgs::JointTrajectory trajectory()
{
    trajectory_msgs::JointTrajectory trajectory;
    trajectory.header = header();
    trajectory.joint_names = {"a", ""};
    trajectory.points.resize(2);
    trajectory.points[1].positions = {0.25, -1e300};
    trajectory.points[1].time_from_start = ros::Duration(-2, 500);
    return trajectory;
}

inline tf2_msgs::TFMessage transforms()
{
    tf2_msgs::TFMessage message;
    message.transforms.resize(2);
    message.transforms[1].header = header();
    message.transforms[1].child_frame_id = "base";
    message.transforms[1].transform.rotation.w = 1.0;
    return message;
}

inline QVector<Example> all()
{
    nav_msgs::Odometry odometry;
    odometry.header = header();
    odometry.pose.covariance[35] = 0.5;
    odometry.twist.twist.angular.z = -0.25;

    sensor_msgs::JointState joints;
    joints.name = {"one", "two"};
    joints.position = {1.0, 2.5};

    rosgraph_msgs::Log log;
    log.level = rosgraph_msgs::Log::ERROR;
    log.line = 4294967295;
    log.topics = {"/scan"};

    sensor_msgs::CompressedImage image;
    image.format = "jpeg";
    image.data = {0xff, 0xd8, 0x00};

    sensor_msgs::CameraInfo camera;
    camera.D = {0.25};
    camera.K[8] = 1.0;
    camera.roi.do_rectify = 1;

    nav_msgs::OccupancyGrid map;
    map.info.map_load_time = ros::Time(1, 2);
    map.data = {-1, 0, 100};

    std_msgs::UInt64MultiArray numbers;
    numbers.layout.dim.resize(1);
    numbers.layout.dim[0].label = "x";
    numbers.data = {0, std::numeric_limits<std::uint64_t>::max()};

    return {example(scan()),  example(odometry),    example(joints), example(transforms()),
            example(log),     example(image),       example(camera), example(map),
            example(numbers), example(trajectory())};
}

} // namespace ros_messages

#endif
