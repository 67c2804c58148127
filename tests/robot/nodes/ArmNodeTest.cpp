// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/ArmNode.h"
#include "ArmRig.h"
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

using namespace arm_rig;
using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using robot::nodes::ArmNode;
using rosbridge::client::Client;
using std::chrono::milliseconds;
using std::chrono::seconds;

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

TEST_WITHOUT_WINDOWS(ArmNodeTest)

} // namespace arm_node_test

#include "ArmNodeTest.moc"
