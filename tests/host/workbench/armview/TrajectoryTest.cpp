// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/workbench/robotview/RobotMessages.h"

#include "host/workbench/armview/Trajectory.h"
#include "rosbridge/protocol/Angle.h"

#include <QtTest>

#include <limits>

namespace trajectory_test {

using namespace host::workbench::armview;
using host::device::readers::JointTable;
using host::workbench::robotview::RobotState;
using rosbridge::protocol::toRadians;
using Unit = JointTable::Unit;

namespace {

/// An arm of two joints, one of which slides, as foreign robots have them.
RobotState foreignRobot()
{
    JointTable joints(QStringList{"shoulder", "lift"});
    joints.setJoint(0, {"shoulder", Unit::Radians, true, 10});
    joints.setJoint(1, {"lift", Unit::Metres, false, 0});
    RobotState robot;
    robot.begin();
    robot.setJoints(joints, {});
    return robot;
}

void tell(RobotState& robot, const char* names, std::initializer_list<double> positions)
{
    QCborArray list;
    for (const double position : positions)
        list.append(position);
    robot.read(
        RobotState::JointStates,
        {{"name", QCborArray::fromStringList(QString(names).split(' '))}, {"position", list}},
        RobotState::Clock::now());
}

RobotState ownRobot()
{
    RobotState robot;
    robot.begin();
    return robot;
}

Goals goal(int axis, float target, float speed = 30)
{
    Goals goals;
    goals.at(static_cast<std::size_t>(axis)) = {target, speed};
    return goals;
}

QCborMap pointOf(const QCborMap& message)
{
    return message["points"].toArray().first().toMap();
}

QCborMap durationOf(const QCborMap& message)
{
    return pointOf(message).value(QLatin1String("time_from_start")).toMap();
}

QString faultOf(const Goals& goals, const RobotState& robot)
{
    QString fault;
    return Trajectory::to(goals, robot, &fault) ? QString("none") : fault;
}

double number(const QCborMap& point, const char* list, int index)
{
    return point[QLatin1String(list)].toArray().at(index).toDouble();
}

} // namespace

/// The messages that move an arm.
class TrajectoryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void our_robot_gets_targets_and_speeds_of_the_axes_that_are_asked_for();
    void a_reversed_joint_with_an_offset_is_told_its_own_position();
    void another_robot_gets_all_of_its_joints_and_the_time();
    void the_time_is_that_of_the_slowest_axis();
    void an_axis_without_a_speed_stays_where_it_is();
    void limits_are_those_of_the_axes();
    void what_cannot_be_sent_is_refused_with_the_reason();
    void positions_survive_the_way_there_and_back_data();
    void positions_survive_the_way_there_and_back();
};

void TrajectoryTest::our_robot_gets_targets_and_speeds_of_the_axes_that_are_asked_for()
{
    Goals goals = goal(2, 90, 143);
    goals[8] = {300, 0};
    QString fault;
    const auto message = Trajectory::to(goals, ownRobot(), &fault);
    QVERIFY2(message, qPrintable(fault));
    QCOMPARE((*message)["joint_names"].toArray(), (QCborArray{"axis2", "axis8"}));
    QCOMPARE((*message)["points"].toArray().size(), 1);
    const QCborMap point = pointOf(*message);
    QCOMPARE(number(point, "positions", 0), toRadians(90));
    QCOMPARE(number(point, "positions", 1), toRadians(300));
    QCOMPARE(number(point, "velocities", 0), toRadians(143));
    QCOMPARE(number(point, "velocities", 1), 0.0);
    QCOMPARE(point.size(), 2);
}

void TrajectoryTest::a_reversed_joint_with_an_offset_is_told_its_own_position()
{
    RobotState robot = ownRobot();
    JointTable joints;
    joints.setJoint(0, {"axis0", Unit::Radians, true, 300});
    robot.setJoints(joints, {});
    QString fault;
    const auto message = Trajectory::to(goal(0, 290, 30), robot, &fault);
    QVERIFY2(message, qPrintable(fault));
    QCOMPARE(number(pointOf(*message), "positions", 0), toRadians(10));
    QCOMPARE(number(pointOf(*message), "velocities", 0), toRadians(30)); // no direction
}

void TrajectoryTest::another_robot_gets_all_of_its_joints_and_the_time()
{
    RobotState robot = foreignRobot();
    tell(robot, "shoulder lift", {0, 0.5}); // 10 degrees, 500 mm
    QString fault;
    const auto message = Trajectory::to(goal(0, 55, 30), robot, &fault);
    QVERIFY2(message, qPrintable(fault));
    QCOMPARE((*message)["joint_names"].toArray(), (QCborArray{"shoulder", "lift"}));
    const QCborMap point = pointOf(*message);
    QCOMPARE(number(point, "positions", 0), toRadians(-45));
    QCOMPARE(number(point, "positions", 1), 0.5);
    QCOMPARE(durationOf(*message), (QCborMap{{"secs", 1}, {"nsecs", 500000000}}));
    QCOMPARE(point.size(), 2); // a velocity would be that at the end
    // What goes on, goes on.
    robot.read(RobotState::ArmState,
               {{"joint_names", QCborArray{"lift"}},
                {"desired", QCborMap{{"positions", QCborArray{0.75}}}}},
               RobotState::Clock::now());
    const auto next = Trajectory::to(goal(0, 55, 30), robot, &fault);
    QCOMPARE(number(pointOf(*next), "positions", 1), 0.75);
}

void TrajectoryTest::the_time_is_that_of_the_slowest_axis()
{
    RobotState robot = foreignRobot();
    tell(robot, "shoulder lift", {0, 0});
    Goals goals = goal(0, 40, 30); // 30 degrees on: a second
    goals[1] = {600, 100};         // six seconds
    QString fault;
    QCOMPARE(durationOf(*Trajectory::to(goals, robot, &fault)),
             (QCborMap{{"secs", 6}, {"nsecs", 0}}));
    // However near it is, it takes some time.
    QCOMPARE(durationOf(*Trajectory::to(goal(0, 10, 30), robot, &fault)),
             (QCborMap{{"secs", 0}, {"nsecs", 200000000}}));
}

void TrajectoryTest::an_axis_without_a_speed_stays_where_it_is()
{
    RobotState robot = foreignRobot();
    tell(robot, "shoulder lift", {0.25, 0.5});
    robot.read(RobotState::ArmState,
               {{"joint_names", QCborArray{"shoulder"}},
                {"desired", QCborMap{{"positions", QCborArray{1.0}}}}},
               RobotState::Clock::now());
    QString fault;
    const auto message = Trajectory::to(goal(0, 200, 0), robot, &fault);
    QVERIFY2(message, qPrintable(fault));
    QVERIFY(qAbs(number(pointOf(*message), "positions", 0) - 0.25) < 1e-5);
    QCOMPARE(durationOf(*message), (QCborMap{{"secs", 0}, {"nsecs", 200000000}}));
}

void TrajectoryTest::limits_are_those_of_the_axes()
{
    JointTable joints;
    QCOMPARE(Trajectory::limits(joints, 4).minimum, 0.0F);
    QCOMPARE(Trajectory::limits(joints, 4).maximum, 300.0F);
    joints.setJoint(4, {"axis4", Unit::Radians, true, 100});
    QCOMPARE(Trajectory::limits(joints, 4).minimum, -200.0F);
    QCOMPARE(Trajectory::limits(joints, 4).maximum, 100.0F);
    const RobotState robot = foreignRobot();
    QCOMPARE(Trajectory::limits(robot.joints(), 0).maximum, 3610.0F);
    QCOMPARE(Trajectory::limits(robot.joints(), 1).minimum, -10000.0F);
}

void TrajectoryTest::what_cannot_be_sent_is_refused_with_the_reason()
{
    const RobotState own = ownRobot();
    QCOMPARE(faultOf(goal(0, 300, 143), own), QString("none"));
    QCOMPARE(faultOf(goal(2, 300.5F), own),
             QString("the target of axis 3 is 300.5, not from 0 to 300"));
    QCOMPARE(faultOf(goal(2, -1), own), QString("the target of axis 3 is -1, not from 0 to 300"));
    QCOMPARE(faultOf(goal(0, std::numeric_limits<float>::quiet_NaN()), own),
             QString("the target of axis 1 is nan, not from 0 to 300"));
    QCOMPARE(faultOf(goal(0, 0, 144), own),
             QString("the speed of axis 1 is 144, not from 0 to 143"));
    QCOMPARE(faultOf(goal(0, 0, -1), own), QString("the speed of axis 1 is -1, not from 0 to 143"));
    QCOMPARE(faultOf({}, own), QString("no axis has a target"));
    RobotState other = foreignRobot();
    QCOMPARE(faultOf(goal(8, 90), other), QString("no axis has a target")); // which it has not
    tell(other, "shoulder", {0});
    QCOMPARE(faultOf(goal(0, 90), other), QString("the position of axis 2 is not known"));
}

void TrajectoryTest::positions_survive_the_way_there_and_back_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<bool>("isReversed");
    QTest::newRow("radians") << int(Unit::Radians) << false;
    QTest::newRow("radians, reversed") << int(Unit::Radians) << true;
    QTest::newRow("degrees, reversed") << int(Unit::Degrees) << true;
    QTest::newRow("metres") << int(Unit::Metres) << false;
}

void TrajectoryTest::positions_survive_the_way_there_and_back()
{
    QFETCH(const int, unit);
    QFETCH(const bool, isReversed);
    const JointTable::Joint joint{"joint", static_cast<Unit>(unit), isReversed, 12.5};
    for (const float place : {-90.0F, 0.0F, 12.5F, 123.4F, 300.0F})
        QCOMPARE(joint.place(joint.position(double(place))), place);
}

TEST_WITHOUT_WINDOWS(TrajectoryTest)

} // namespace trajectory_test

#include "TrajectoryTest.moc"
