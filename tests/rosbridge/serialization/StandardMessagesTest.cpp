// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/rosbridge/RosMessages.h"

#include "rosbridge/serialization/StandardMessages.h"

#include <QtTest>

namespace standard_messages_test {

using rosbridge::serialization::MessageDefinition;
using rosbridge::serialization::standardDefinition;

namespace {

QByteArray checksumOf(const QString& type)
{
    QString error;
    const auto definition = MessageDefinition::parse(type, standardDefinition(type), &error);
    if (!definition)
        qWarning("%s", qPrintable(error));
    return definition ? definition->checksum() : QByteArray();
}

} // namespace

/// The definitions that are built in, beside ROS's own.
class StandardMessagesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void definitions_and_checksums_are_those_of_ros();
    void a_type_that_no_package_has_is_there();
    void the_name_may_be_that_of_ros_2();
    void an_unknown_type_has_none();
};

void StandardMessagesTest::definitions_and_checksums_are_those_of_ros()
{
    const QVector<ros_messages::Example> examples = ros_messages::all();
    for (const ros_messages::Example& example : examples)
        QCOMPARE(standardDefinition(example.type), example.definition);
    namespace traits = ros::message_traits;
    QCOMPARE(checksumOf("sensor_msgs/LaserScan"),
             QByteArray(traits::MD5Sum<sensor_msgs::LaserScan>::value()));
    QCOMPARE(checksumOf("nav_msgs/Odometry"),
             QByteArray(traits::MD5Sum<nav_msgs::Odometry>::value()));
    QCOMPARE(checksumOf("rosgraph_msgs/Log"),
             QByteArray(traits::MD5Sum<rosgraph_msgs::Log>::value())); // with constants
    QCOMPARE(checksumOf("tf2_msgs/TFMessage"),
             QByteArray(traits::MD5Sum<tf2_msgs::TFMessage>::value()));
    QCOMPARE(checksumOf("sensor_msgs/CameraInfo"),
             QByteArray(traits::MD5Sum<sensor_msgs::CameraInfo>::value()));
}

void StandardMessagesTest::a_type_that_no_package_has_is_there()
{
    QCOMPARE(checksumOf("control_msgs/JointTrajectoryControllerState"),
             QByteArray("10817c60c2486ef6b33e97dcd87f4474")); // as its packages say
    QVERIFY(!checksumOf("rcl_interfaces/Log").isEmpty());
}

void StandardMessagesTest::the_name_may_be_that_of_ros_2()
{
    QCOMPARE(standardDefinition("std_msgs/msg/Bool"), QString("bool data\n"));
}

void StandardMessagesTest::an_unknown_type_has_none()
{
    QCOMPARE(standardDefinition("secret_msgs/What"), QString());
    QCOMPARE(standardDefinition("../../etc/passwd"), QString());
    QCOMPARE(standardDefinition(""), QString());
}

TEST_WITHOUT_WINDOWS(StandardMessagesTest)

} // namespace standard_messages_test

#include "StandardMessagesTest.moc"
