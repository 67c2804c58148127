// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TESTS_PLOTSFIXTURE_H
#define HOST_WORKBENCH_TESTS_PLOTSFIXTURE_H

#include "Patience.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/robotview/RobotMessages.h"

#include "host/device/Device.h"
#include "host/workbench/plots/CustomPlot.h"
#include "host/workbench/plots/Recorder.h"
#include "host/workbench/plugin/PluginEnvironment.h"

#include <QCborArray>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

/// A device with a robot that has some topics, and what is plotted of them.
namespace plots_fixture {

using namespace host::workbench::plots;
using Kind = Quantity::Kind;

inline const char* const odometry = "/odom";
inline const char* const odometryType = "nav_msgs/Odometry";
inline const Quantity place{Kind::Field, odometry, "pose.pose.position.x", 0};

/// Tells its topics, and serves the device.
struct PlottedRobot : FakeRobot
{
    PlottedRobot()
    {
        obey();
        offer({{odometry, odometryType}, {"/joint_states", "sensor_msgs/JointState"}});
    }

    void offer(const QMap<QString, QString>& topics)
    {
        answer("/rosapi/topics", {{"topics", QCborArray::fromStringList(topics.keys())},
                                  {"types", QCborArray::fromStringList(topics.values())}});
    }

    void driveTo(double x) { publish(odometry, message::odometry("odom", "base_link", x, 0, 0)); }

    int followers(const char* topic = odometry, const char* type = odometryType) const
    {
        return subscriberCount(topic, type);
    }
};

struct PlottedDevice
{
    PlottedDevice() { device.overrideAddress(robot.address()); }

    void join()
    {
        QVERIFY(device.connectDevice());
        QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), 3, patience);
        QTRY_VERIFY_WITH_TIMEOUT(device.offer().isReady(), patience);
    }

    /// All that the robot sent until now has arrived.
    void waitForRobot()
    {
        bool isAnswered = false;
        device.connection().call("/nothing", {}, [&](const auto&) { isAnswered = true; });
        QTRY_VERIFY_WITH_TIMEOUT(isAnswered, patience);
    }

    PlottedRobot robot;
    QTemporaryDir folder;
    host::workbench::plugin::PluginEnvironment environment;
    host::device::connection::Timing timing = [] {
        host::device::connection::Timing timing;
        timing.frame = std::chrono::milliseconds(5);
        timing.firstQuestion = std::chrono::milliseconds(10); // as if seconds went by
        return timing;
    }();
    host::device::Device device{"robot", folder.path(), environment, timing};
};

/// The values of the line, gaps as "-".
inline QString values(const Recorder& recorder, std::size_t index = 0)
{
    QStringList words;
    const auto& data = *recorder.lines()[index]->series.data();
    for (auto point = data.constBegin(); point != data.constEnd(); ++point)
        words << (std::isnan(point->value) ? QString("-") : QString::number(point->value));
    return words.join(' ');
}

} // namespace plots_fixture

#endif
