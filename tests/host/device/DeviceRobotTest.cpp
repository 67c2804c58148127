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
    void settings_reach_the_robot_when_they_are_written();
    void settings_reach_the_robot_at_every_connection();
    void a_resolution_without_width_and_height_is_not_sent();
    void variables_of_other_kinds_are_no_settings();
    void settings_wait_for_a_connection_without_a_word();
    void a_passive_device_sends_nothing_and_says_why();
    void each_command_is_named_in_the_log_of_its_part();
    void what_a_robot_that_tells_of_no_services_does_not_do_is_said_in_one_line();
    void what_the_robot_refuses_is_said_with_its_reason();
    void a_line_is_switched_by_its_command();
    void torque_is_switched_to_what_it_is_not();
    void a_torque_state_of_the_wrong_shape_changes_nothing_and_is_said_once();
    void what_cannot_be_switched_unconnected_is_said();
};

void DeviceRobotTest::settings_reach_the_robot_when_they_are_written()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("disableDriveSystem", true);
    SizeVector size(2);
    size[0] = 320;
    size[1] = 240;
    f.probe->writeConfigVariable("camera_resolution", size);
    QVERIFY(f.isCalled(R"(/drive/disable {"data":true})"));
    QVERIFY(f.isCalled(
        R"(/camera/set_parameters {"config":{"strs":[{"name":"video_mode","value":"320x240"}]}})"));
}

void DeviceRobotTest::settings_reach_the_robot_at_every_connection()
{
    Fixture f;
    f.robot.obey();
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.probe->writeConfigVariable("line1_enabled", false);
    const QStringList expected{
        R"(/drive/disable {"data":true})",
        R"(/camera/set_parameters {"config":{"strs":[{"name":"video_mode","value":"640x480"}]}})",
        R"(/arm/line0 {"data":true})",
        R"(/arm/line1 {"data":false})",
        R"(/arm/line2 {"data":true})",
    };
    for (int time = 1; time <= 2; ++time) {
        QVERIFY(f.connect());
        QVERIFY(f.settle());
        for (const QString& call : expected)
            QTRY_COMPARE_WITH_TIMEOUT(int(f.robot.calls().count(call)), time, patience);
        QVERIFY(f.probe->disconnectDevice());
    }
}

void DeviceRobotTest::a_resolution_without_width_and_height_is_not_sent()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QVERIFY(f.isCalled(R"(/arm/line2 {"data":true})"));
    const auto calls = f.robot.calls().size();
    f.probe->writeConfigVariable("camera_resolution", SizeVector(1));
    f.probe->writeConfigVariable("camera_resolution", SizeVector(3));
    f.probe->writeConfigVariable("camera_resolution", 640);
    f.probe->writeConfigVariable("disableDriveSystem", false); // its call comes after theirs
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().size() > calls, patience);
    QCOMPARE(f.robot.calls().mid(calls), QStringList(R"(/drive/disable {"data":false})"));
}

void DeviceRobotTest::variables_of_other_kinds_are_no_settings()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QVERIFY(f.isCalled(R"(/arm/line2 {"data":true})"));
    const auto calls = f.robot.calls().size();
    f.probe->writeInput("disableDriveSystem", true);
    f.probe->writeOutput("disableDriveSystem", true);
    f.probe->writeStateVariable("disableDriveSystem", true);
    f.probe->writeConfigVariable("disableDriveSystem", false); // its call comes after theirs
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().size() > calls, patience);
    QCOMPARE(f.robot.calls().mid(calls), QStringList(R"(/drive/disable {"data":false})"));
}

void DeviceRobotTest::settings_wait_for_a_connection_without_a_word()
{
    Fixture f;
    f.robot.obey();
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.device.connectDevice());
    f.probe->writeConfigVariable("disableDriveSystem", false);
    QVERIFY(QTest::qWaitFor([&] { return f.device.connectionState() == 3; }, patience));
    QVERIFY(f.settle());
    QVERIFY(f.isCalled(R"(/arm/line2 {"data":true})"));
    QVERIFY(f.settle()); // after the answers to the settings
    QCOMPARE(f.probe->calls.filter("1000 "), QStringList({"1000 settled", "1000 settled"}));
    QCOMPARE(f.probe->calls.filter("1001 "), QStringList());
    QCOMPARE(f.robot.calls().filter("/drive/disable"),
             QStringList(R"(/drive/disable {"data":false})"));
}

void DeviceRobotTest::a_passive_device_sends_nothing_and_says_why()
{
    Fixture f;
    f.robot.obey();
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.exec(1006);
    QVERIFY(f.hears("1000 Disable the drive system: not done. Another client is in control of "
                    "the robot."));
    QVERIFY(f.hears("1001 Switch torque on: not done. Another client is in control of the robot."));
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
    const QString why = ": not done. Another client is in control of the robot.";
    QCOMPARE(f.probe->calls.filter(why),
             QStringList({"1000 Enable the drive system" + why,
                          "1000 Camera resolution 320x240" + why, "1001 Switch torque off" + why,
                          "1001 Enable line 1" + why, "1001 Disable line 3" + why}));
}

void DeviceRobotTest::what_a_robot_that_tells_of_no_services_does_not_do_is_said_in_one_line()
{
    Fixture f;
    f.robot.answerTrigger("/control/acquire", true);
    QVERIFY(f.connect());
    QTRY_VERIFY_WITH_TIMEOUT(!f.probe->calls.filter("not done", Qt::CaseInsensitive).isEmpty(),
                             patience);
    const QString words = "%1 (The service %2 failed: Service %2 does not exist)";
    const QString line = f.probe->calls.filter("1000 Not done: ").value(0);
    for (const auto& [what, service] :
         {std::pair{"Enable the drive system", "/drive/disable"},
          std::pair{"Camera resolution 640x480", "/camera/set_parameters"},
          std::pair{"Enable line 1", "/arm/line0"}, std::pair{"Enable line 2", "/arm/line1"},
          std::pair{"Enable line 3", "/arm/line2"}})
        QVERIFY2(line.contains(words.arg(what, service)), qPrintable(line));
    QVERIFY2(line.contains("Robot > Names"), qPrintable(line));

    f.exec(1006); // one alone is said as always
    QVERIFY(f.hears("1001 Switch torque on: not done. The service /arm/torque failed: "
                    "Service /arm/torque does not exist"));
    QCOMPARE(f.probe->calls.filter("not done", Qt::CaseInsensitive).size(), 2);
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
    QVERIFY(f.isCalled(R"(/arm/line2 {"data":true})"));
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

void DeviceRobotTest::a_torque_state_of_the_wrong_shape_changes_nothing_and_is_said_once()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/arm/torque_enabled", {{QStringLiteral("data"), true}});
    for (int time = 0; time < 2; ++time)
        f.robot.publish("/arm/torque_enabled", {{QStringLiteral("state"), 1}});
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("is ignored"),
             QStringList("1001 A message of the topic /arm/torque_enabled is ignored: the field "
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
