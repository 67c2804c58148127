// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "OperationFixture.h"
#include "TestCase.h"

#include <QtTest>

namespace stopping_test {

using Fixture = OperationFixture;
using host::device::operation::Stopping;
using ros_types::Ros;
using State = Stopping::State;

namespace {

const QString emptyTrajectory = R"(/arm/command {"joint_names":[],"points":[]})";

} // namespace

/// What a press on Stop does to robots of all kinds, and what it says.
class StoppingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anybody_may_stop_data();
    void anybody_may_stop();
    void only_the_device_in_control_may_release();
    void connecting_releases_nothing();
    void a_stop_that_the_robot_refuses_is_said_and_the_rest_is_tried();
    void a_link_that_ends_before_the_answer_is_said();
    void a_device_that_is_not_connected_says_so();
    void a_foreign_robot_gets_what_it_has_data();
    void a_foreign_robot_gets_what_it_has();
    void a_passive_device_stops_a_foreign_robot_too();
    void a_command_that_a_foreign_robot_refuses_is_said_once();
    void a_robot_that_has_nothing_is_said_to_have_nothing();
    void a_robot_that_does_not_tell_what_it_has_gets_all();
    void names_of_the_robots_own_are_used();
};

void StoppingTest::anybody_may_stop_data()
{
    QTest::addColumn<bool>("isInControl");
    QTest::newRow("in control") << true;
    QTest::newRow("passive") << false;
}

void StoppingTest::anybody_may_stop()
{
    QFETCH(const bool, isInControl);
    Fixture f;
    f.offerStop();
    f.robot.answerTrigger("/control/acquire", isInControl, "somebody");
    QVERIFY(f.connect(isInControl ? 3 : 4));
    QVERIFY(f.isReady());
    Stopping& stopping = f.device.stopping();
    QVERIFY(stopping.means().startsWith("Calls /stop: all motion ends"));
    QSignalSpy presses(&stopping, &Stopping::pressed);
    stopping.stop();
    QCOMPARE(int(presses.count()), 1);
    QCOMPARE(stopping.state(), State::Stopping);
    QVERIFY(f.isCalled("/stop {}"));
    QTRY_COMPARE_WITH_TIMEOUT(stopping.state(), State::Free, patience); // it was answered
    f.tellStopped(true);
    QTRY_COMPARE_WITH_TIMEOUT(stopping.state(), State::Stopped, patience);
    QVERIFY(f.settle());
    QCOMPARE(f.robot.publications(), QStringList());
    QCOMPARE(f.problems(), QStringList());
}

void StoppingTest::only_the_device_in_control_may_release()
{
    Fixture f;
    f.offerStop();
    f.robot.latch("/stopped", {{"data", true}});
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    Stopping& stopping = f.device.stopping();
    QVERIFY(f.connect(4));
    QTRY_COMPARE_WITH_TIMEOUT(stopping.state(), State::Stopped, patience);
    QVERIFY(!stopping.canRelease());
    stopping.release();
    QVERIFY(f.settle());
    QCOMPARE(f.calls("/stop/release"), 0);

    f.robot.answerTrigger("/control/acquire", true);
    f.device.control().take();
    QTRY_VERIFY_WITH_TIMEOUT(stopping.canRelease(), patience);
    QCOMPARE(f.calls("/stop/release"), 0); // by hand only
    f.robot.answerTrigger("/stop/release", false, "an axis is in its limit");
    stopping.release();
    QVERIFY(f.hasProblem("The robot stays stopped: an axis is in its limit"));
    f.robot.answerTrigger("/stop/release", true);
    stopping.release();
    QTRY_COMPARE_WITH_TIMEOUT(f.calls("/stop/release"), 2, patience);
    f.tellStopped(false);
    QTRY_COMPARE_WITH_TIMEOUT(stopping.state(), State::Free, patience);
    QVERIFY(!stopping.canRelease());
}

void StoppingTest::connecting_releases_nothing()
{
    Fixture f;
    f.offerStop();
    f.robot.latch("/stopped", {{"data", true}});
    Stopping& stopping = f.device.stopping();
    for (int link = 0; link < 2; ++link) {
        QVERIFY(f.connect());
        QTRY_COMPARE_WITH_TIMEOUT(stopping.state(), State::Stopped, patience);
        QVERIFY(f.settle());
        QVERIFY(f.device.disconnectDevice());
        QCOMPARE(stopping.state(), State::Free); // nobody knows any more
    }
    QCOMPARE(f.calls("/stop/release"), 0);
    QCOMPARE(f.calls("/stop"), 0);
    QCOMPARE(f.robot.publications(), QStringList());
}

void StoppingTest::a_stop_that_the_robot_refuses_is_said_and_the_rest_is_tried()
{
    Fixture f;
    f.offerStop();
    f.robot.answerTrigger("/stop", false, "the brake is broken");
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.device.stopping().stop();
    QVERIFY(f.hasProblem("has not confirmed the stop"));
    QVERIFY(f.hasProblem("Reason: the brake is broken"));
    QTRY_VERIFY_WITH_TIMEOUT(f.velocities().contains("0 0"), patience);
}

void StoppingTest::a_link_that_ends_before_the_answer_is_said()
{
    Fixture f;
    f.offerStop();
    f.robot.ignore("/stop");
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.device.stopping().stop();
    QVERIFY(f.isCalled("/stop {}"));
    f.robot.drop();
    QVERIFY(f.hasProblem("The link ended before the robot confirmed the stop."));
    QCOMPARE(f.device.stopping().state(), State::Free);
}

void StoppingTest::a_device_that_is_not_connected_says_so()
{
    Fixture f;
    QVERIFY(f.device.stopping().means().startsWith("Not connected"));
    f.device.stopping().stop();
    QVERIFY(f.hasProblem("Stop was not sent: the device is not connected."));
}

void StoppingTest::a_foreign_robot_gets_what_it_has_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::addColumn<bool>("hasArm");
    QTest::newRow("ROS 1") << Ros::One << true;
    QTest::newRow("ROS 2") << Ros::Two << true;
    QTest::newRow("ROS 2, no arm") << Ros::Two << false;
}

void StoppingTest::a_foreign_robot_gets_what_it_has()
{
    QFETCH(const Ros, ros);
    QFETCH(const bool, hasArm);
    Fixture f;
    QMap<QString, QString> types{{"/cmd_vel", "geometry_msgs/Twist"}};
    if (hasArm)
        types.insert("/arm/command", "trajectory_msgs/JointTrajectory");
    f.beForeign(ros, types);
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    const QString means = f.device.stopping().means();
    QVERIFY2(means.startsWith("This robot has no /stop. Sends zero velocity on /cmd_vel"),
             qPrintable(means));
    QCOMPARE(means.contains("an empty trajectory on /arm/command"), hasArm);
    QVERIFY(means.contains("does not stay stopped"));

    f.device.stopping().stop();
    QCOMPARE(f.device.stopping().state(), State::Stopping);
    QTRY_COMPARE_WITH_TIMEOUT(f.device.stopping().state(), State::Free, patience);
    QVERIFY(f.settle());
    QCOMPARE(f.velocities(), QStringList({"0 0", "0 0", "0 0", "0 0", "0 0"}));
    QCOMPARE(int(f.robot.publications().count(emptyTrajectory)), hasArm ? 5 : 0);
    QCOMPARE(f.calls("/stop"), 0);
    QCOMPARE(f.problems(), QStringList());
    QCOMPARE(f.lines().filter("1000 Stop sends zero velocity").size(), 1);
}

void StoppingTest::a_passive_device_stops_a_foreign_robot_too()
{
    Fixture f;
    f.beForeign(Ros::Two, {{"/cmd_vel", "geometry_msgs/Twist"}});
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    QVERIFY(f.isReady());
    f.device.stopping().stop();
    QTRY_VERIFY_WITH_TIMEOUT(f.velocities().contains("0 0"), patience);
}

void StoppingTest::a_command_that_a_foreign_robot_refuses_is_said_once()
{
    Fixture f;
    f.beForeign(Ros::One, {{"/cmd_vel", "geometry_msgs/Twist"},
                           {"/arm/command", "trajectory_msgs/JointTrajectory"}});
    f.robot.refuse("/cmd_vel");
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.device.stopping().stop();
    QTRY_COMPARE_WITH_TIMEOUT(int(f.robot.publications().count(emptyTrajectory)), 5, patience);
    QVERIFY(f.hasProblem("Reason: Robot, error: No topic /cmd_vel"));
    QVERIFY(f.settle());
    QCOMPARE(int(f.problems().size()), 1);
}

void StoppingTest::a_robot_that_has_nothing_is_said_to_have_nothing()
{
    Fixture f;
    f.beForeign(Ros::Two, {{"/cmd_vel", "geometry_msgs/TwistStamped"}});
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QVERIFY(f.device.stopping().means().startsWith("This robot offers nothing that stops it."));
    f.device.stopping().stop();
    QVERIFY(f.hasProblem("Stop was not sent: this robot offers nothing that stops it."));
    QVERIFY(f.settle());
    QCOMPARE(f.robot.publications(), QStringList());
}

void StoppingTest::a_robot_that_does_not_tell_what_it_has_gets_all()
{
    Fixture f; // without rosapi
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QVERIFY(
        f.device.stopping().means().startsWith("It is not known whether this robot has /stop."));
    f.device.stopping().stop();
    QVERIFY(f.isCalled("/stop {}"));
    QVERIFY(f.hasProblem("/stop does not exist"));
    QTRY_COMPARE_WITH_TIMEOUT(int(f.velocities().size()), 5, patience);
    QVERIFY(f.robot.publications().contains(emptyTrajectory));
}

void StoppingTest::names_of_the_robots_own_are_used()
{
    Fixture f;
    QVERIFY(f.device.remappings().set("/cmd_vel", "/base/velocity"));
    f.beForeign(Ros::Two, {{"/base/velocity", "geometry_msgs/Twist"}});
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QVERIFY(f.device.stopping().means().contains("zero velocity on /base/velocity"));
    f.device.stopping().stop();
    QTRY_VERIFY_WITH_TIMEOUT(!f.robot.publications().isEmpty() &&
                                 f.robot.publications().first().startsWith("/base/velocity {"),
                             patience);
}

TEST_WITH_WINDOWS(StoppingTest)

} // namespace stopping_test

#include "StoppingTest.moc"
