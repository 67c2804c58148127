// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DeviceFixture.h"
#include "TestCase.h"

#include "olm/core/Vector.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QtTest>

namespace settings_test {

using host::device::Device;
using Kind = plugin::gui::VariableKind;
using SizeVector = olm::core::Vector<unsigned int>;

namespace {

constexpr int patience = 60000;

SizeVector size(unsigned int width, unsigned int height)
{
    SizeVector size(2);
    size[0] = width;
    size[1] = height;
    return size;
}

QCborMap truth(bool value)
{
    return {{QStringLiteral("data"), value}};
}

struct Fixture : DeviceFixture
{
    Fixture() { robot.obey(); }

    /// What was asked of the robot that could change it.
    QStringList commands() const
    {
        return robot.calls().filter(QRegularExpression(QStringLiteral("^/(drive|arm|camera)/")));
    }

    bool becomes(const char* name, bool value)
    {
        return QTest::qWaitFor([&] { return config<bool>(name) == value; }, patience);
    }
};

} // namespace

/// Who is right about what the robot keeps: the robot. What goes out, and what comes back.
class SettingsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void connecting_asks_nothing_of_a_robot_data();
    void connecting_asks_nothing_of_a_robot();
    void what_the_robot_tells_is_taken_over_and_kept();
    void what_the_robot_tells_reaches_the_tabs();
    void what_another_client_changes_is_taken_over();
    void a_line_that_another_client_switches_is_said();
    void the_size_of_the_pictures_is_the_resolution();
    void a_state_of_the_wrong_shape_changes_nothing_and_is_said_once();
    void nothing_of_a_robot_is_known_on_the_next_link();
    void a_setting_is_sent_when_a_widget_writes_it();
    void a_resolution_without_width_and_height_is_not_sent();
    void variables_of_other_kinds_are_no_settings();
    void what_is_written_without_a_connection_is_kept_and_not_sent();
    void a_passive_device_shows_the_robots_state_data();
    void a_passive_device_shows_the_robots_state();
    void what_the_robot_refuses_is_taken_back();
    void an_old_state_does_not_undo_what_is_under_way();
};

void SettingsTest::connecting_asks_nothing_of_a_robot_data()
{
    QTest::addColumn<bool>("tells");
    QTest::addColumn<int>("state");
    QTest::newRow("that tells its state") << true << 3;
    QTest::newRow("that tells nothing") << false << 3;
    QTest::newRow("that another client controls") << true << 4;
}

/// Neither at the connection nor when control comes later.
void SettingsTest::connecting_asks_nothing_of_a_robot()
{
    QFETCH(const bool, tells);
    QFETCH(const int, state);
    Fixture f;
    f.probe->writeConfigVariable("disableDriveSystem", false);
    f.probe->writeConfigVariable("line1_enabled", true);
    f.probe->writeConfigVariable("camera_resolution", size(320, 240));
    if (tells) {
        f.robot.latch("/drive/disabled", truth(true));
        f.robot.latch("/arm/line1_enabled", truth(false));
    }
    if (state == 4)
        f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(state));
    QVERIFY(f.settle());
    f.device.faults().setOtherController(true);
    f.device.faults().setOtherController(false);
    QVERIFY(f.settle());
    QCOMPARE(f.commands(), QStringList());
    QCOMPARE(f.config<bool>("disableDriveSystem"), tells);
    QCOMPARE(f.config<bool>("line1_enabled"), !tells);
}

void SettingsTest::what_the_robot_tells_is_taken_over_and_kept()
{
    Fixture f;
    f.probe->writeConfigVariable("disableDriveSystem", false);
    f.robot.latch("/drive/disabled", truth(true));
    f.robot.latch("/arm/line0_enabled", truth(true));
    f.robot.latch("/arm/line2_enabled", truth(false));
    QVERIFY(f.connect());
    QVERIFY(f.becomes("disableDriveSystem", true));
    QVERIFY(f.becomes("line2_enabled", false));
    QVERIFY(f.config<bool>("line0_enabled"));
    QVERIFY(f.device.disconnectDevice());
    TestEnvironment environment;
    const Device later("robot", f.folder.path(), environment);
    QVERIFY(later.read(Kind::Config, "disableDriveSystem").get<bool>());
    QVERIFY(!later.read(Kind::Config, "line2_enabled").get<bool>());
}

void SettingsTest::what_the_robot_tells_reaches_the_tabs()
{
    Fixture f;
    f.device.registerConfigVariable("disableDriveSystem", true);
    f.device.registerStateVariable("connectedToSimulator", true);
    QStringList seen;
    f.probe->onUpdate = [&](const plugin::gui::DeviceHistoryBundle& bundle) {
        if (const auto* drive = bundle.getConfigVariableHistory("disableDriveSystem"))
            seen << (drive->last().get<bool>() ? "disabled" : "enabled");
        if (bundle.getStateVariableHistory("connectedToSimulator")) // the tab reads it then
            seen << QString::number(f.config<SizeVector>("camera_resolution")[0]);
    };
    f.robot.latch("/drive/disabled", truth(true));
    QVERIFY(f.connect());
    QTRY_VERIFY_WITH_TIMEOUT(seen.contains("disabled"), patience);
    f.takePicture(320, 240);
    QTRY_VERIFY_WITH_TIMEOUT(seen.contains("320"), patience);
    QVERIFY(!seen.contains("enabled"));
}

void SettingsTest::what_another_client_changes_is_taken_over()
{
    Fixture f;
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    for (const bool isDisabled : {true, false}) {
        f.robot.publish("/drive/disabled", truth(isDisabled));
        QVERIFY(f.becomes("disableDriveSystem", isDisabled));
    }
    QVERIFY(f.settle());
    QCOMPARE(f.commands(), QStringList());
}

/// Its mark stays as it was set.
void SettingsTest::a_line_that_another_client_switches_is_said()
{
    Fixture f;
    QVERIFY(f.connect());
    f.robot.publish("/arm/line1_enabled", truth(true)); // as it was
    f.robot.publish("/arm/line1_enabled", truth(false));
    f.robot.publish("/arm/line1_enabled", truth(false));
    f.robot.publish("/arm/line1_enabled", truth(true));
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("1001 "),
             QStringList({"1001 Line 2 of the robot is off.", "1001 Line 2 of the robot is on."}));
}

void SettingsTest::the_size_of_the_pictures_is_the_resolution()
{
    Fixture f;
    QVERIFY(f.connect());
    f.takePicture(1024, 768);
    QTRY_COMPARE_WITH_TIMEOUT(f.config<SizeVector>("camera_resolution"), size(1024, 768), patience);
    f.takePicture(0, 0); // a camera that does not know
    f.takePicture(1024, 0);
    QVERIFY(f.settle());
    QCOMPARE(f.config<SizeVector>("camera_resolution"), size(1024, 768));
    QCOMPARE(f.commands(), QStringList());
}

void SettingsTest::a_state_of_the_wrong_shape_changes_nothing_and_is_said_once()
{
    Fixture f;
    f.robot.latch("/drive/disabled", truth(true));
    QVERIFY(f.connect());
    QVERIFY(f.becomes("disableDriveSystem", true));
    for (int time = 0; time < 2; ++time)
        f.robot.publish("/drive/disabled", {{QStringLiteral("data"), 0}});
    QVERIFY(f.settle());
    QVERIFY(f.config<bool>("disableDriveSystem"));
    QCOMPARE(f.probe->calls.filter("was ignored"),
             QStringList("1000 A message on the topic /drive/disabled was ignored: the field "
                         "\"data\" is a number, not true or false."));
}

void SettingsTest::nothing_of_a_robot_is_known_on_the_next_link()
{
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    f.robot.latch("/drive/disabled", truth(true));
    QVERIFY(f.connect(4));
    QVERIFY(f.becomes("disableDriveSystem", true));
    QVERIFY(f.device.disconnectDevice());
    f.probe->writeConfigVariable("disableDriveSystem", false);

    FakeRobot silent; // what it is like was never told
    silent.answerTrigger("/control/acquire", false, "somebody");
    f.device.overrideAddress(silent.address());
    QVERIFY(f.connect(4));
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(!f.config<bool>("disableDriveSystem"));
}

void SettingsTest::a_setting_is_sent_when_a_widget_writes_it()
{
    Fixture f;
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.probe->writeConfigVariable("camera_resolution", size(320, 240));
    QVERIFY(f.settle());
    QCOMPARE(f.commands(),
             QStringList({R"(/drive/disable {"data":true})",
                          R"(/camera/set_parameters {"config":{"strs":[{"name":"video_mode",)"
                          R"("value":"320x240"}]}})"}));
    QVERIFY(f.config<bool>("disableDriveSystem"));
    QCOMPARE(f.config<SizeVector>("camera_resolution"), size(320, 240));
}

void SettingsTest::a_resolution_without_width_and_height_is_not_sent()
{
    Fixture f;
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("camera_resolution", SizeVector(1));
    f.probe->writeConfigVariable("camera_resolution", SizeVector(3));
    f.probe->writeConfigVariable("camera_resolution", 640);
    QVERIFY(f.settle());
    QCOMPARE(f.commands(), QStringList());
}

void SettingsTest::variables_of_other_kinds_are_no_settings()
{
    Fixture f;
    QVERIFY(f.connect());
    f.probe->writeInput("disableDriveSystem", true);
    f.probe->writeOutput("disableDriveSystem", true);
    f.probe->writeStateVariable("disableDriveSystem", true);
    QVERIFY(f.settle());
    QCOMPARE(f.commands(), QStringList());
}

void SettingsTest::what_is_written_without_a_connection_is_kept_and_not_sent()
{
    Fixture f;
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.hears("1000 Disable the drive system: not done. The device is not connected."));
    QVERIFY(f.config<bool>("disableDriveSystem"));
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    QVERIFY(f.config<bool>("disableDriveSystem"));
    QCOMPARE(f.commands(), QStringList());
}

void SettingsTest::a_passive_device_shows_the_robots_state_data()
{
    QTest::addColumn<bool>("tells");
    QTest::newRow("told") << true;
    QTest::newRow("as it was before") << false;
}

void SettingsTest::a_passive_device_shows_the_robots_state()
{
    QFETCH(const bool, tells);
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    if (tells) {
        f.robot.latch("/drive/disabled", truth(false));
        f.robot.latch("/arm/line0_enabled", truth(true));
    }
    QVERIFY(f.connect(4));
    QVERIFY(f.settle());
    f.device.registerConfigVariable("disableDriveSystem", true);
    QList<bool> seen;
    f.probe->onUpdate = [&](const plugin::gui::DeviceHistoryBundle& bundle) {
        if (const auto* drive = bundle.getConfigVariableHistory("disableDriveSystem"))
            seen << drive->last().get<bool>();
    };
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.probe->writeConfigVariable("camera_resolution", size(320, 240));
    f.probe->writeConfigVariable("line0_enabled", false);
    f.exec(1008, false);
    QTRY_COMPARE_WITH_TIMEOUT(seen, QList<bool>({false}), patience);
    QCOMPARE(f.config<SizeVector>("camera_resolution"), size(640, 480));
    QVERIFY(f.config<bool>("line0_enabled"));
    QVERIFY(f.hears("1001 Line 1 of the robot is on.")); // its mark says otherwise
    QCOMPARE(f.commands(), QStringList());
    TestEnvironment environment;
    const Device later("robot", f.folder.path(), environment);
    QVERIFY(!later.read(Kind::Config, "disableDriveSystem").get<bool>());
}

void SettingsTest::what_the_robot_refuses_is_taken_back()
{
    Fixture f;
    f.robot.latch("/drive/disabled", truth(false));
    f.robot.answerTrigger("/drive/disable", false, "The brake is stuck.");
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.hears("1000 Disable the drive system: not done. The brake is stuck."));
    QVERIFY(!f.config<bool>("disableDriveSystem"));
}

void SettingsTest::an_old_state_does_not_undo_what_is_under_way()
{
    Fixture f;
    f.robot.ignore("/drive/disable");
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.robot.publish("/drive/disabled", truth(false));
    QVERIFY(f.settle());
    QVERIFY(f.config<bool>("disableDriveSystem"));
    f.robot.answerLate("/drive/disable", {{QStringLiteral("success"), true}});
    QVERIFY(f.settle());
    QVERIFY(f.config<bool>("disableDriveSystem"));
    f.robot.publish("/drive/disabled", truth(false)); // by another hand
    QVERIFY(f.becomes("disableDriveSystem", false));
}

TEST_WITH_WINDOWS(SettingsTest)

} // namespace settings_test

#include "SettingsTest.moc"
