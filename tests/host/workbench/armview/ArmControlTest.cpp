// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"
#include "tests/host/workbench/robotview/RobotMessages.h"

#include "host/device/Device.h"
#include "host/workbench/armview/ArmControl.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/robotview/RobotFeed.h"

#include <QCborArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace arm_control_test {

using namespace host::workbench::armview;
using host::device::Device;
using host::device::connection::Connection;
using host::workbench::plugin::PluginEnvironment;
using host::workbench::robotview::RobotFeed;
using host::workbench::robotview::RobotState;
using ros_types::Ros;
using rosbridge::protocol::toRadians;

namespace {

constexpr double straight = 1e-5;

/// A device and the control of its robot's arm, whose axes are told by the test.
struct Fixture
{
    Fixture()
    {
        robot.obey();
        device.overrideAddress(robot.address());
        feed.setActive(true);
    }

    /// With all axes at 10 degrees.
    void join(int state = Connection::connected)
    {
        QVERIFY(device.connectDevice());
        QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), state, patience);
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/joint_states", "sensor_msgs/JointState"),
                                  2, patience);
        robot.publish("/joint_states", told("name", "position", 10));
        QTRY_VERIFY_WITH_TIMEOUT(feed.state().axis(8).present, patience);
    }

    /// All axes at or on their way to @p degrees.
    static QCborMap told(const char* names, const char* positions, double degrees)
    {
        QCborArray nameList;
        QCborArray positionList;
        for (int axis = 0; axis < axisCount; ++axis) {
            nameList.append(QString("axis%1").arg(axis));
            positionList.append(toRadians(degrees));
        }
        return {{names, nameList}, {positions, positionList}};
    }

    void tellTarget(double degrees)
    {
        const QCborMap positions = told("name", "positions", degrees);
        robot.publish("/arm/state", {{"joint_names", positions["name"]}, {"desired", positions}});
        QTRY_VERIFY_WITH_TIMEOUT(feed.state().axis(8).target &&
                                     qAbs(double(*feed.state().axis(8).target) - degrees) < 0.01,
                                 patience);
    }

    /// The robot has got all that was sent to it until now.
    void settle()
    {
        bool isAnswered = false;
        device.connection().call("/nothing", {}, [&](const auto&) { isAnswered = true; });
        QTRY_VERIFY_WITH_TIMEOUT(isAnswered, patience);
    }

    QStringList sent()
    {
        settle();
        return robot.publications();
    }

    /// The only command; empty if there are none or several.
    QJsonObject command()
    {
        const QStringList all = sent();
        const QString start = "/arm/command ";
        if (all.size() != 1 || !all.first().startsWith(start))
            return {};
        return QJsonDocument::fromJson(all.first().mid(start.size()).toUtf8()).object();
    }

    static QStringList names(const QJsonObject& command)
    {
        return command["joint_names"].toVariant().toStringList();
    }

    static double number(const QJsonObject& command, const char* list, int index)
    {
        return command["points"]
            .toArray()
            .first()[QLatin1String(list)]
            .toArray()
            .at(index)
            .toDouble();
    }

    QTemporaryDir folder;
    FakeRobot robot;
    PluginEnvironment environment;
    Device device{"robot", folder.path(), environment, noHurry()};
    RobotFeed feed{device, {RobotState::JointStates, RobotState::ArmState}, nullptr};
    ArmControl control{device, feed.state(), nullptr};
};

StoredPositions::Position position(float target, float speed)
{
    StoredPositions::Position position{"Pos1", {}};
    position.axes.fill({target, speed});
    return position;
}

} // namespace

/// What is sent to the arm, and what is not.
class ArmControlTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void to_enter_targets_sends_nothing();
    void targets_are_the_robots_until_others_are_entered();
    void what_was_entered_goes_with_the_link_and_the_joints();
    void jogging_sends_one_axis_on_by_a_step();
    void jogging_goes_on_from_the_target();
    void jogging_ends_at_the_limits();
    void go_sends_all_targets_at_the_speed();
    void a_stored_position_is_sent_with_its_speeds();
    void a_position_beyond_the_limits_is_not_sent();
    void holding_stops_all_axes_where_they_are();
    void a_foreign_arm_is_commanded_by_its_own_names_data();
    void a_foreign_arm_is_commanded_by_its_own_names();
    void what_the_robot_says_to_a_command_is_known();
    void without_control_nothing_is_sent();
    void torque_and_lines_are_switched_as_the_plugin_does();
};

void ArmControlTest::to_enter_targets_sends_nothing()
{
    Fixture f;
    f.join();
    f.control.enter(0, 90);
    f.control.enter(position(120, 30));
    f.tellTarget(50);
    f.control.refresh();
    QCOMPARE(f.sent(), QStringList());
}

void ArmControlTest::targets_are_the_robots_until_others_are_entered()
{
    Fixture f;
    QVERIFY(!f.control.target(0));
    f.join();
    QCOMPARE(f.control.target(0), std::make_optional(10.0F)); // where it is
    f.tellTarget(50);
    QCOMPARE(f.control.target(0), std::make_optional(50.0F));
    f.control.enter(0, 90);
    f.tellTarget(60);
    f.control.refresh();
    QCOMPARE(f.control.target(0), std::make_optional(90.0F));
    QCOMPARE(f.control.target(1), std::make_optional(60.0F));
    f.tellTarget(90); // it goes there now
    f.control.refresh();
    f.tellTarget(20);
    f.control.refresh();
    QCOMPARE(f.control.target(0), std::make_optional(20.0F));
    // An axis that a position does not move stays as it is.
    StoredPositions::Position stored = position(120, 30);
    stored.axes[1].speed = 0;
    f.control.enter(stored);
    QCOMPARE(f.control.target(0), std::make_optional(120.0F));
    QCOMPARE(f.control.target(1), std::make_optional(20.0F));
}

void ArmControlTest::what_was_entered_goes_with_the_link_and_the_joints()
{
    Fixture f;
    f.join();
    f.control.enter(0, 90);
    f.device.joints().set(8, {"axis8", {}, true, 0});
    QTRY_VERIFY_WITH_TIMEOUT(f.control.target(0) != std::make_optional(90.0F), patience);
    f.control.enter(0, 90);
    QVERIFY(f.device.disconnectDevice());
    QVERIFY(f.control.target(0) != std::make_optional(90.0F));
}

void ArmControlTest::jogging_sends_one_axis_on_by_a_step()
{
    Fixture f;
    f.control.jog(3, 5, 30); // nothing is known
    f.join();
    f.control.jog(3, 5, 20);
    const QJsonObject command = f.command();
    QCOMPARE(Fixture::names(command), QStringList{"axis3"});
    QVERIFY(qAbs(Fixture::number(command, "positions", 0) - toRadians(15)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "velocities", 0) - toRadians(20)) < straight);
    QCOMPARE(f.control.target(3), std::make_optional(15.0F));
    QCOMPARE(f.control.refusal(), QString());
}

void ArmControlTest::jogging_goes_on_from_the_target()
{
    Fixture f;
    f.join();
    f.tellTarget(50);
    f.control.enter(3, 200); // which was not sent
    f.control.jog(3, -5, 30);
    QVERIFY(qAbs(Fixture::number(f.command(), "positions", 0) - toRadians(45)) < straight);
}

void ArmControlTest::jogging_ends_at_the_limits()
{
    Fixture f;
    f.join();
    f.control.jog(3, -50, 30);
    const QJsonObject command = f.command();
    QCOMPARE(Fixture::names(command), QStringList{"axis3"});
    QCOMPARE(Fixture::number(command, "positions", 0), 0.0);
}

void ArmControlTest::go_sends_all_targets_at_the_speed()
{
    Fixture f;
    f.join();
    f.control.enter(0, 90);
    f.control.go(45);
    const QJsonObject command = f.command();
    QCOMPARE(int(Fixture::names(command).size()), axisCount);
    QVERIFY(qAbs(Fixture::number(command, "positions", 0) - toRadians(90)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "positions", 8) - toRadians(10)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "velocities", 8) - toRadians(45)) < straight);
}

void ArmControlTest::a_stored_position_is_sent_with_its_speeds()
{
    Fixture f;
    f.join();
    StoredPositions::Position stored = position(120, 30);
    stored.axes[7] = {60, 143};
    f.control.goTo(stored);
    const QJsonObject command = f.command();
    QCOMPARE(int(Fixture::names(command).size()), axisCount);
    QVERIFY(qAbs(Fixture::number(command, "positions", 0) - toRadians(120)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "velocities", 0) - toRadians(30)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "positions", 7) - toRadians(60)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "velocities", 7) - toRadians(143)) < straight);
    QCOMPARE(f.control.target(7), std::make_optional(60.0F)); // what is drawn
}

void ArmControlTest::a_position_beyond_the_limits_is_not_sent()
{
    Fixture f;
    f.join();
    f.control.goTo(position(400, 30));
    QCOMPARE(f.control.refusal(),
             QString("Not sent: the target of axis 1 is 400, not from 0 to 300."));
    QCOMPARE(f.sent(), QStringList());
    f.control.goTo(position(90, 30)); // the next one is
    QCOMPARE(f.control.refusal(), QString());
    QCOMPARE(int(f.sent().size()), 1);
}

void ArmControlTest::holding_stops_all_axes_where_they_are()
{
    Fixture f;
    f.join();
    f.tellTarget(50);
    f.control.enter(0, 90);
    f.control.hold();
    const QJsonObject command = f.command();
    QCOMPARE(int(Fixture::names(command).size()), axisCount);
    for (int axis = 0; axis < axisCount; ++axis) {
        QVERIFY(qAbs(Fixture::number(command, "positions", axis) - toRadians(10)) < straight);
        QCOMPARE(Fixture::number(command, "velocities", axis), 0.0);
    }
    QCOMPARE(f.control.target(0), std::make_optional(50.0F)); // until the robot tells another
}

void ArmControlTest::a_foreign_arm_is_commanded_by_its_own_names_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::newRow("ROS 1") << Ros::One;
    QTest::newRow("ROS 2") << Ros::Two;
}

void ArmControlTest::a_foreign_arm_is_commanded_by_its_own_names()
{
    QFETCH(const Ros, ros);
    Fixture f;
    f.robot.obeyRules(ros, {{"/joint_states", "sensor_msgs/JointState"},
                            {"/controller/command", "trajectory_msgs/JointTrajectory"}});
    QVERIFY(f.device.remappings().set("/arm/command", "/controller/command"));
    QVERIFY(f.device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.subscriberCount("/joint_states", "sensor_msgs/JointState"), 2,
                              patience);
    // Again and again, as a robot does: what is told before the connection stands is forgotten.
    const auto isKnown = [&f] {
        f.robot.publish("/joint_states", {{"name", QCborArray{"elbow", "left_wheel", "shoulder"}},
                                          {"position", QCborArray{0.0, 5.0, 1.0}}});
        return f.feed.state().axis(1).present.has_value();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isKnown(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.device.connectionState(), 3, patience);
    f.control.jog(0, 45, 30);
    const QStringList sent = f.sent();
    QCOMPARE(sent.size(), 1);
    const QString start = "/controller/command ";
    QVERIFY2(sent.first().startsWith(start), qPrintable(sent.first()));
    const QJsonObject command =
        QJsonDocument::fromJson(sent.first().mid(start.size()).toUtf8()).object();
    QCOMPARE(Fixture::names(command), (QStringList{"elbow", "shoulder"}));
    QVERIFY(qAbs(Fixture::number(command, "positions", 0) - toRadians(45)) < straight);
    QVERIFY(qAbs(Fixture::number(command, "positions", 1) - 1.0) < straight);
    const QJsonObject point = command["points"].toArray().first().toObject();
    QCOMPARE(point["time_from_start"].toObject(), (QJsonObject{{"secs", 1}, {"nsecs", 500000000}}));
    QVERIFY(!point.contains("velocities"));
}

void ArmControlTest::what_the_robot_says_to_a_command_is_known()
{
    Fixture f;
    f.robot.refuse("/arm/command");
    f.join();
    f.control.jog(0, 5, 30);
    QTRY_COMPARE_WITH_TIMEOUT(f.control.refusal(), QString("Robot, error: No topic /arm/command"),
                              patience);
    QVERIFY(f.device.disconnectDevice());
    QCOMPARE(f.control.refusal(), QString());
}

void ArmControlTest::without_control_nothing_is_sent()
{
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    f.join(Connection::passive);
    f.control.enter(0, 90);
    f.control.jog(0, 5, 30);
    QCOMPARE(f.control.refusal(), QString("Not sent: the robot is not under control."));
    f.control.go(30);
    f.control.goTo(position(90, 30));
    f.control.hold();
    QVERIFY(!f.control.isInControl());
    QCOMPARE(f.sent(), QStringList());
    QVERIFY(f.device.disconnectDevice());
    f.control.hold(); // of a robot that is gone
    QCOMPARE(f.control.refusal(), QString("Not sent: the robot is not under control."));
}

void ArmControlTest::torque_and_lines_are_switched_as_the_plugin_does()
{
    Fixture f;
    f.join();
    const auto commands = [&f] {
        f.settle();
        return f.robot.calls().filter("/arm/");
    };
    f.control.remedy(Hindrance::Switch::None);
    QCOMPARE(commands(), QStringList());
    f.control.remedy(Hindrance::Switch::Torque);
    QCOMPARE(commands(), QStringList{"/arm/torque {\"data\":true}"});
    f.device.write(plugin::gui::VariableKind::Config, "line1_enabled", false);
    f.control.remedy(Hindrance::Switch::SecondLine);
    QCOMPARE(commands().last(), QString("/arm/line1 {\"data\":true}"));
    QCOMPARE(int(commands().size()), 2);
    QVERIFY(f.device.read(plugin::gui::VariableKind::Config, "line1_enabled").toBool());
}

TEST_WITH_WINDOWS(ArmControlTest)

} // namespace arm_control_test

#include "ArmControlTest.moc"
