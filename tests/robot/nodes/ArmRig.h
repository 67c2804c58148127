// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NODES_TESTS_ARMRIG_H
#define ROBOT_NODES_TESTS_ARMRIG_H

#include "Patience.h"

#include "robot/nodes/ArmNode.h"

#include "robot/Robot.h"
#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/client/Client.h"

#include <QCborArray>
#include <QEventLoop>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace arm_rig {

using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using robot::nodes::ArmNode;
using rosbridge::client::Client;
using std::chrono::milliseconds;
using std::chrono::seconds;

inline constexpr double degree = 3.14159265358979323846 / 180; // in radians

/// A client with all that the arm tells it.
class Viewer
{
public:
    bool join(quint16 port)
    {
        QObject::connect(&client, &Client::statusReceived,
                         [this](const QString&, const QString& text) { complaints.append(text); });
        client.open({QStringLiteral("127.0.0.1"), port});
        if (!QSignalSpy(&client, &Client::opened).wait(patience))
            return false;
        follow("/joint_states", "sensor_msgs/JointState");
        follow("/arm/state", "control_msgs/JointTrajectoryControllerState");
        for (const char* const topic : {"/arm/torque_enabled", "/arm/line0_enabled",
                                        "/arm/line1_enabled", "/arm/line2_enabled"})
            follow(topic, "std_msgs/Bool");
        follow("/rosout", "rosgraph_msgs/Log");
        return catchUp();
    }

    /// Waits until the robot has done all it was asked to, and what it sent meanwhile is here.
    bool catchUp() { return call("/rosapi/topics").ok; }

    /// Waits for the answer.
    Client::Result call(const char* service, const QCborMap& args = {})
    {
        Client::Result answer;
        QEventLoop loop;
        client.callService(
            QLatin1String(service), args,
            [&](const Client::Result& result) {
                answer = result;
                loop.quit();
            },
            milliseconds(patience));
        loop.exec();
        return answer;
    }

    /// Switches; returns the message of the answer, or why it failed.
    QString set(const char* service, const QCborValue& data)
    {
        const Client::Result result = call(service, {{QStringLiteral("data"), data}});
        return result.ok ? result.values.value(QStringLiteral("message")).toString() : result.error;
    }

    void move(const QCborMap& trajectory)
    {
        client.publish(QStringLiteral("/arm/command"), trajectory);
        catchUp();
    }

    /// A field of the newest message.
    QCborValue last(const char* topic, const char* field) const
    {
        const QVector<QCborMap> messages = received.value(QLatin1String(topic));
        return messages.isEmpty() ? QCborValue() : messages.last().value(QLatin1String(field));
    }

    /// Degrees.
    double position(int axis) const
    {
        return last("/joint_states", "position").toArray().at(axis).toDouble() / degree;
    }

    /// The manipulator's lines, each after the number of its level.
    QStringList log() const
    {
        QStringList lines;
        for (const QCborMap& line : received.value(QStringLiteral("/rosout"))) {
            if (line.value(QStringLiteral("name")).toString() == QLatin1String("manipulator"))
                lines.append(QStringLiteral("%1 %2").arg(
                    QString::number(line.value(QStringLiteral("level")).toInteger()),
                    line.value(QStringLiteral("msg")).toString()));
        }
        return lines;
    }

    Client client;
    QMap<QString, QVector<QCborMap>> received;
    QStringList complaints;

private:
    void follow(const char* topic, const char* type)
    {
        const QString name = QLatin1String(topic);
        client.subscribe(name, QLatin1String(type), {},
                         [this, name](const QCborMap& msg) { received[name].append(msg); });
    }
};

/// An arm behind a socket, whose time is the test's, and the client that is in control of it.
class Rig
{
public:
    bool begin()
    {
        QString error;
        return network.listen({QStringLiteral("127.0.0.1"), 0}, &error) &&
               viewer.join(network.port()) && viewer.call("/control/acquire").ok;
    }

    void pass(milliseconds time)
    {
        for (const milliseconds end = now + time; now < end;)
            node.step(now += milliseconds(10));
        viewer.catchUp();
    }

    Clock clock;
    Network network{clock, robotLimits()};
    ArmNode node{network};
    Viewer viewer;
    milliseconds now{0};
};

/// What is no number stays as it is.
inline QCborArray inRadians(const QCborArray& degrees)
{
    QCborArray radians;
    for (const QCborValue value : degrees) {
        if (value.isInteger() || value.isDouble())
            radians.append(value.toDouble() * degree);
        else
            radians.append(value);
    }
    return radians;
}

/// Degrees, and degrees per second.
inline QCborMap trajectory(const QCborArray& names, const QCborArray& positions,
                           const QCborArray& velocities)
{
    const QCborMap point{{QStringLiteral("positions"), inRadians(positions)},
                         {QStringLiteral("velocities"), inRadians(velocities)}};
    return {{QStringLiteral("joint_names"), names}, {QStringLiteral("points"), QCborArray{point}}};
}

inline bool isNear(double value, double expected)
{
    return std::abs(value - expected) < 1e-6;
}

inline bool isNineZeros(const QCborValue& numbers)
{
    const QCborArray array = numbers.toArray();
    return array.size() == 9 && std::all_of(array.begin(), array.end(), [](const auto& number) {
               return number.toDouble(-1.0) == 0.0;
           });
}

} // namespace arm_rig

#endif
