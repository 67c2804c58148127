// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DeviceFixture.h"
#include "TestCase.h"

#include "olm/core/Vector.h"

#include <QtTest>

namespace device_robot_test {

using Fixture = DeviceFixture;
using SizeVector = olm::core::Vector<unsigned int>;

namespace {

constexpr int patience = 60000;

} // namespace

/// What a device asks of its robot: what the widgets write and ask.
class DeviceRobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_passive_device_sends_nothing_and_says_why();
    void each_command_is_named_in_the_log_of_its_part();
    void what_the_robot_refuses_is_said_with_its_reason();
    void a_line_is_switched_by_its_command();
    void torque_is_switched_to_what_it_is_not();
    void torque_is_off_as_far_as_a_robot_does_not_tell();
    void a_torque_state_of_the_wrong_shape_changes_nothing_and_is_said_once();
    void what_cannot_be_switched_unconnected_is_said();
};

void DeviceRobotTest::a_passive_device_sends_nothing_and_says_why()
{
    Fixture f;
    f.robot.obey();
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.exec(1006);
    QVERIFY(f.hears("1000 Disable the drive system: not done. The device is not in control of the "
                    "robot. To take control, choose Robot > Control."));
    QVERIFY(f.hears("1001 Switch torque on: not done. The device is not in control of the robot. "
                    "To take control, choose Robot > Control."));
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("not done").size(), 2); // the connection itself sets nothing
    QVERIFY(f.robot.calls().filter("/drive/").isEmpty());
    QVERIFY(f.robot.calls().filter("/arm/").isEmpty());
}

void DeviceRobotTest::each_command_is_named_in_the_log_of_its_part()
{
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    f.robot.publish("/arm/torque_enabled", {{QStringLiteral("data"), true}});
    QVERIFY(f.settle());
    f.probe->writeConfigVariable("disableDriveSystem", false);
    SizeVector size(2);
    size[0] = 320;
    size[1] = 240;
    f.probe->writeConfigVariable("camera_resolution", size);
    f.exec(1006);
    f.exec(1008, true);
    f.exec(1010, false);
    QVERIFY(f.settle());
    const QString why = ": not done. The device is not in control of the robot. To take control, "
                        "choose Robot > Control.";
    QCOMPARE(f.probe->calls.filter(why),
             QStringList({"1000 Enable the drive system" + why,
                          "1000 Camera resolution 320x240" + why, "1001 Switch torque off" + why,
                          "1001 Enable line 1" + why, "1001 Disable line 3" + why}));
}

void DeviceRobotTest::what_the_robot_refuses_is_said_with_its_reason()
{
    Fixture f;
    f.robot.obey();
    f.robot.answerTrigger("/arm/torque", false, "The brake is stuck.");
    QVERIFY(f.connect());
    f.exec(1006);
    QVERIFY(f.hears("1001 Switch torque on: not done. The brake is stuck."));
    f.robot.answerTrigger("/arm/torque", true);
    f.exec(1006);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.calls().filter("/arm/torque").size(), 2, patience);
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("1001 ").size(), 1);
}

void DeviceRobotTest::a_line_is_switched_by_its_command()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    const auto calls = f.robot.calls().size();
    f.probe->writeConfigVariable("line1_enabled", false);
    f.exec(1009, false);
    f.exec(1010, false);
    f.exec(1008, true);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.calls().size(), calls + 3, patience);
    QCOMPARE(f.robot.calls().mid(calls),
             QStringList({R"(/arm/line1 {"data":false})", R"(/arm/line2 {"data":false})",
                          R"(/arm/line0 {"data":true})"}));
}

void DeviceRobotTest::torque_is_switched_to_what_it_is_not()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.exec(1006);
    QVERIFY(f.isCalled(R"(/arm/torque {"data":true})"));
    f.robot.publish("/arm/torque_enabled", {{QStringLiteral("data"), true}});
    QVERIFY(f.settle());
    f.exec(1006);
    QVERIFY(f.isCalled(R"(/arm/torque {"data":false})"));
}

void DeviceRobotTest::torque_is_off_as_far_as_a_robot_does_not_tell()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/arm/torque_enabled", {{QStringLiteral("data"), true}});
    QVERIFY(f.settle());
    QVERIFY(f.device.disconnectDevice());
    QVERIFY(f.connect()); // the robot may have been started anew
    f.exec(1006);
    QVERIFY(f.isCalled(R"(/arm/torque {"data":true})"));
}

void DeviceRobotTest::a_torque_state_of_the_wrong_shape_changes_nothing_and_is_said_once()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/arm/torque_enabled", {{QStringLiteral("data"), true}});
    for (int time = 0; time < 2; ++time)
        f.robot.publish("/arm/torque_enabled", {{QStringLiteral("state"), 1}});
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("was ignored"),
             QStringList("1001 A message on the topic /arm/torque_enabled was ignored: the field "
                         "\"data\" is missing."));
    f.exec(1006);
    QVERIFY(f.isCalled(R"(/arm/torque {"data":false})"));
}

void DeviceRobotTest::what_cannot_be_switched_unconnected_is_said()
{
    Fixture f;
    f.exec(1006);
    f.exec(1008, false);
    QVERIFY(f.hears("1001 Switch torque on: not done. The device is not connected."));
    QVERIFY(f.hears("1001 Disable line 1: not done. The device is not connected."));
}

TEST_WITH_WINDOWS(DeviceRobotTest)

} // namespace device_robot_test

#include "DeviceRobotTest.moc"
