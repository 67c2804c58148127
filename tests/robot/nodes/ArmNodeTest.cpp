// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/ArmNode.h"
#include "TestCase.h"

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

namespace arm_node_test {

using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using robot::nodes::ArmNode;
using rosbridge::client::Client;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

constexpr int patience = 30000; // many tests may share a slow machine

constexpr double degree = 3.14159265358979323846 / 180; // in radians

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
QCborArray inRadians(const QCborArray& degrees)
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
QCborMap trajectory(const QCborArray& names, const QCborArray& positions,
                    const QCborArray& velocities)
{
    const QCborMap point{{QStringLiteral("positions"), inRadians(positions)},
                         {QStringLiteral("velocities"), inRadians(velocities)}};
    return {{QStringLiteral("joint_names"), names}, {QStringLiteral("points"), QCborArray{point}}};
}

bool isNear(double value, double expected)
{
    return std::abs(value - expected) < 1e-6;
}

bool isNineZeros(const QCborValue& numbers)
{
    const QCborArray array = numbers.toArray();
    return array.size() == 9 && std::all_of(array.begin(), array.end(), [](const auto& number) {
               return number.toDouble(-1.0) == 0.0;
           });
}

} // namespace

class ArmNodeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_state_comes_thirty_times_a_second();
    void a_command_moves_the_axes_it_names_in_any_order();
    void the_greatest_angle_and_speed_may_come_as_float32();
    void an_axis_without_a_speed_moves_at_the_usual_one();
    void the_state_tells_where_the_axes_go();
    void an_unfit_command_is_refused_with_the_reason_data();
    void an_unfit_command_is_refused_with_the_reason();
    void a_command_that_moves_nothing_says_so();
    void switches_answer_log_and_publish_what_they_did();
    void a_new_client_gets_the_switches_at_once();
    void a_switch_takes_true_or_false_only();
    void only_the_client_in_control_moves_and_switches();
    void the_arm_stops_when_control_is_released();
    void the_arm_stops_when_the_client_in_control_is_gone();
    void giving_back_control_of_an_arm_at_rest_says_nothing();
    void the_robot_has_an_arm();
};

void ArmNodeTest::the_state_comes_thirty_times_a_second()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.pass(seconds(2));

    const QVector<QCborMap> states = rig.viewer.received.value(QStringLiteral("/joint_states"));
    QCOMPARE(states.size(), 61); // the first and the last instant count
    QCOMPARE(rig.viewer.received.value(QStringLiteral("/arm/state")).size(), 61);
    for (int i = 0; i < 61; ++i) {
        const QCborMap header = states.at(i).value(QStringLiteral("header")).toMap();
        QCOMPARE(header.value(QStringLiteral("seq")).toInteger(-1), i);
    }
    const QCborMap header = rig.viewer.last("/joint_states", "header").toMap();
    const QCborMap stamp = header.value(QStringLiteral("stamp")).toMap();
    QCOMPARE(stamp.value(QStringLiteral("secs")).toInteger(-1), 2);
    QCOMPARE(stamp.value(QStringLiteral("nsecs")).toInteger(-1), 0);
    QCOMPARE(header.value(QStringLiteral("frame_id")), QCborValue(QString()));
    const QCborArray names{"axis0", "axis1", "axis2", "axis3", "axis4",
                           "axis5", "axis6", "axis7", "axis8"};
    QCOMPARE(rig.viewer.last("/joint_states", "name").toArray(), names);
    QVERIFY(isNineZeros(rig.viewer.last("/joint_states", "position")));
    QVERIFY(isNineZeros(rig.viewer.last("/joint_states", "velocity")));
    QCOMPARE(rig.viewer.last("/joint_states", "effort"), QCborValue(QCborArray()));
}

void ArmNodeTest::a_command_moves_the_axes_it_names_in_any_order()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis7", "axis2"}, {100, 50}, {10, 5.5}));
    rig.pass(seconds(2));

    QCOMPARE(rig.viewer.complaints, QStringList());
    for (int axis = 0; axis < 9; ++axis) {
        const double expected = axis == 7 ? 20.0 : axis == 2 ? 11.0 : 0.0;
        QVERIFY2(isNear(rig.viewer.position(axis), expected), qPrintable(QString::number(axis)));
    }
    QVERIFY(isNear(rig.viewer.last("/joint_states", "velocity").toArray().at(7).toDouble(),
                   10.0 * degree));
    QCOMPARE(rig.viewer.log().last(), QStringLiteral("2 moving: axis 3, axis 8"));
}

void ArmNodeTest::the_greatest_angle_and_speed_may_come_as_float32()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    // Each a little too large, as a float32 is not that exact.
    const float angle = std::nextafter(static_cast<float>(300 * degree), 10.0F);
    const float speed = std::nextafter(static_cast<float>(143 * degree), 10.0F);
    QVERIFY(angle > 300 * degree && speed > 143 * degree);
    const QCborMap point{{QStringLiteral("positions"), QCborArray{double(angle)}},
                         {QStringLiteral("velocities"), QCborArray{double(speed)}}};
    rig.viewer.move({{QStringLiteral("joint_names"), QCborArray{"axis0"}},
                     {QStringLiteral("points"), QCborArray{point}}});
    rig.pass(seconds(3));
    QCOMPARE(rig.viewer.complaints, QStringList());
    QVERIFY(isNear(rig.viewer.position(0), 300));
}

void ArmNodeTest::an_axis_without_a_speed_moves_at_the_usual_one()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis0"}, {100}, {5}));
    rig.viewer.move(trajectory({"axis0"}, {100}, {})); // as ROS leaves it out
    QCborMap point{{QStringLiteral("positions"), inRadians({100})}};
    rig.viewer.move({{QStringLiteral("joint_names"), QCborArray{"axis1"}},
                     {QStringLiteral("points"), QCborArray{point}}});
    point.insert(QStringLiteral("velocities"), QCborValue::Null);
    rig.viewer.move({{QStringLiteral("joint_names"), QCborArray{"axis2"}},
                     {QStringLiteral("points"), QCborArray{point}}});
    rig.pass(seconds(1));

    QCOMPARE(rig.viewer.complaints, QStringList());
    for (int axis = 0; axis < 3; ++axis)
        QVERIFY2(isNear(rig.viewer.position(axis), 30.0), qPrintable(QString::number(axis)));
}

void ArmNodeTest::the_state_tells_where_the_axes_go()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis4"}, {100}, {10}));
    rig.pass(seconds(1));

    const auto number = [&rig](const char* point, const char* field) {
        const QCborMap message = rig.viewer.last("/arm/state", point).toMap();
        return message.value(QLatin1String(field)).toArray().at(4).toDouble() / degree;
    };
    QCOMPARE(rig.viewer.last("/arm/state", "joint_names").toArray().at(4).toString(),
             QStringLiteral("axis4"));
    QVERIFY(isNear(number("desired", "positions"), 100.0));
    QVERIFY(isNear(number("desired", "velocities"), 10.0));
    QVERIFY(isNear(number("actual", "positions"), 10.0));
    QVERIFY(isNear(number("actual", "velocities"), 10.0));
    QVERIFY(isNear(number("error", "positions"), 90.0));
}

void ArmNodeTest::an_unfit_command_is_refused_with_the_reason_data()
{
    const QCborArray names{"axis0", "axis1"};
    const QCborMap fit = trajectory(names, {1, 2}, {3, 4});
    const QCborValue point = fit.value(QStringLiteral("points")).toArray().first();
    const auto with = [&fit](const char* field, const QCborValue& value) {
        QCborMap msg = fit;
        msg.insert(QLatin1String(field), value);
        return msg;
    };
    const char* const joints = "joint_names must be a list of text";
    const char* const points = "points must be a list of one point";
    QTest::addColumn<QCborMap>("msg");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QCborMap() << joints;
    QTest::newRow("names no list") << with("joint_names", QStringLiteral("axis0")) << joints;
    QTest::newRow("names no text") << with("joint_names", QCborArray{"axis0", 1}) << joints;
    QTest::newRow("no names") << trajectory({}, {}, {}) << "the command names no axis";
    QTest::newRow("no points") << with("points", QCborArray()) << points;
    QTest::newRow("points no list") << with("points", point) << points;
    QTest::newRow("points of text") << with("points", QCborArray{"point"}) << points;
    QTest::newRow("two points") << with("points", QCborArray{point, point}) << points;
    QTest::newRow("too few positions") << trajectory(names, {1}, {3, 4})
                                       << "points[0].positions must have a number for each of "
                                          "the 2 joint_names, not 1";
    QTest::newRow("too many velocities") << trajectory(names, {1, 2}, {3, 4, 5})
                                         << "points[0].velocities must have a number for each of "
                                            "the 2 joint_names, not 3";
    QTest::newRow("a position of text")
        << trajectory(names, {1, "2"}, {3, 4}) << "points[0].positions: element 1 is ";
    QTest::newRow("a velocity of truth")
        << trajectory(names, {1, 2}, {false, 4}) << "points[0].velocities: element 0 is ";
    QTest::newRow("positions missing")
        << with("points", QCborArray{QCborMap()}) << "points[0].positions: found ";
    QTest::newRow("a position not finite") << trajectory(names, {1, QCborValue::Null}, {3, 4})
                                           << "the target nan° of axis 2 is refused";
    QTest::newRow("a position too large")
        << trajectory(names, {1, 301}, {3, 4}) << "the target 301° of axis 2 is refused";
    QTest::newRow("a velocity too large")
        << trajectory(names, {1, 2}, {143.5, 4}) << "the speed 143.5°/s of axis 1 is refused";
}

void ArmNodeTest::an_unfit_command_is_refused_with_the_reason()
{
    QFETCH(QCborMap, msg);
    QFETCH(QString, reason);
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(msg);

    QCOMPARE(rig.viewer.complaints.size(), 1);
    QVERIFY2(rig.viewer.complaints.first().contains(reason),
             qPrintable(rig.viewer.complaints.first()));
    QVERIFY2(rig.viewer.log().last().startsWith(QStringLiteral("4 ") + reason),
             qPrintable(rig.viewer.log().last()));
    rig.pass(seconds(1));
    QVERIFY(isNineZeros(rig.viewer.last("/joint_states", "position")));
}

void ArmNodeTest::a_command_that_moves_nothing_says_so()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.move(trajectory({"axis0"}, {100}, {10}));
    QCOMPARE(rig.viewer.complaints.size(), 1);
    QVERIFY(rig.viewer.complaints.first().contains(QStringLiteral("the torque is off")));
    QCOMPARE(rig.viewer.log(),
             QStringList(
                 QStringLiteral("4 the torque is off: the arm does not move; switch it on first")));
}

void ArmNodeTest::switches_answer_log_and_publish_what_they_did()
{
    Rig rig;
    QVERIFY(rig.begin());
    QCOMPARE(rig.viewer.set("/arm/torque", true), QStringLiteral("torque on"));
    QCOMPARE(rig.viewer.set("/arm/line1", false),
             QStringLiteral("line 2 off: axes 4 to 6 do not move"));
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.last("/arm/line0_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.last("/arm/line1_enabled", "data"), QCborValue(false));
    QCOMPARE(rig.viewer.last("/arm/line2_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.set("/arm/line1", true), QStringLiteral("line 2 on"));
    QCOMPARE(rig.viewer.last("/arm/line1_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.set("/arm/torque", false),
             QStringLiteral("torque off: the arm does not move"));
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(false));
    QCOMPARE(rig.viewer.log(),
             (QStringList{QStringLiteral("2 torque on"),
                          QStringLiteral("2 line 2 off: axes 4 to 6 do not move"),
                          QStringLiteral("2 line 2 on"),
                          QStringLiteral("2 torque off: the arm does not move")}));
}

void ArmNodeTest::a_new_client_gets_the_switches_at_once()
{
    Rig rig;
    QVERIFY(rig.begin());
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(false));
    for (const char* const topic :
         {"/arm/line0_enabled", "/arm/line1_enabled", "/arm/line2_enabled"})
        QCOMPARE(rig.viewer.last(topic, "data"), QCborValue(true));
    rig.viewer.set("/arm/torque", true);
    rig.viewer.set("/arm/line2", false);

    Viewer late;
    QVERIFY(late.join(rig.network.port()));
    QCOMPARE(late.last("/arm/torque_enabled", "data"), QCborValue(true));
    QCOMPARE(late.last("/arm/line2_enabled", "data"), QCborValue(false));
}

void ArmNodeTest::a_switch_takes_true_or_false_only()
{
    Rig rig;
    QVERIFY(rig.begin());
    const QString reason = QStringLiteral("data must be true or false");
    QVERIFY(rig.viewer.set("/arm/torque", 1).contains(reason));
    QVERIFY(rig.viewer.set("/arm/line0", QStringLiteral("true")).contains(reason));
    QVERIFY(rig.viewer.call("/arm/line0").error.contains(reason));
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(false));
    QCOMPARE(rig.viewer.log(), QStringList());
}

void ArmNodeTest::only_the_client_in_control_moves_and_switches()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    Viewer other;
    QVERIFY(other.join(rig.network.port()));
    other.move(trajectory({"axis0"}, {100}, {10}));
    QCOMPARE(other.complaints.size(), 1);
    QVERIFY(other.complaints.first().contains(QStringLiteral("in control")));
    for (const char* const service : {"/arm/torque", "/arm/line0", "/arm/line1", "/arm/line2"})
        QVERIFY(other.set(service, false).contains(QStringLiteral("in control")));

    rig.pass(seconds(1));
    QVERIFY(isNineZeros(rig.viewer.last("/joint_states", "position")));
    QCOMPARE(rig.viewer.log(), QStringList(QStringLiteral("2 torque on")));
}

void ArmNodeTest::the_arm_stops_when_control_is_released()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis0"}, {100}, {10}));
    rig.pass(seconds(1));
    QVERIFY(rig.viewer.call("/control/release").ok);
    rig.pass(seconds(1));
    QVERIFY(isNear(rig.viewer.position(0), 10.0));
    QCOMPARE(rig.viewer.log().last(), QStringLiteral("2 control was released: the arm stops"));
}

void ArmNodeTest::the_arm_stops_when_the_client_in_control_is_gone()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis0"}, {100}, {10}));
    rig.pass(seconds(1));
    Viewer other;
    QVERIFY(other.join(rig.network.port()));
    rig.viewer.client.close();
    QTRY_COMPARE_WITH_TIMEOUT(other.log(),
                              QStringList(QStringLiteral("2 control was released: the arm stops")),
                              patience);
    rig.node.step(rig.now += seconds(1));
    QVERIFY(other.catchUp());
    QVERIFY(isNear(other.position(0), 10.0));
}

void ArmNodeTest::giving_back_control_of_an_arm_at_rest_says_nothing()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    QVERIFY(rig.viewer.call("/control/release").ok);
    QCOMPARE(rig.viewer.log(), QStringList(QStringLiteral("2 torque on")));
}

void ArmNodeTest::the_robot_has_an_arm()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Viewer viewer;
    QVERIFY(viewer.join(robot.port()));
    QVERIFY(viewer.call("/control/acquire").ok);
    viewer.set("/arm/torque", true);
    viewer.move(trajectory({"axis3"}, {20}, {100}));
    QTRY_COMPARE_WITH_TIMEOUT(viewer.position(3), 20.0, patience);
    QCOMPARE(viewer.complaints, QStringList());
}

TEST_WITHOUT_WINDOWS(ArmNodeTest)

} // namespace arm_node_test

#include "ArmNodeTest.moc"
