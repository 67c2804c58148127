#include "FakeRobot.h"
#include "NoHurry.h"
#include "Probe.h"
#include "Settle.h"
#include "TestCase.h"
#include "tests/host/device/readers/ScanMessage.h"

#include "host/device/Device.h"
#include "host/device/SimulationDirectExecRole.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/Vector.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace device_robot_test {

using host::device::Device;
using olm::core::LaserScanMessage;
using FloatVector = olm::core::Vector<float>;
using SizeVector = olm::core::Vector<unsigned int>;
using Kind = plugin::gui::VariableKind;

namespace {

constexpr int patience = 60000;

/// axis0 to axis8 at 10, 20, ... 90.
QCborMap jointState(int axes = 9)
{
    QCborArray names;
    QCborArray positions;
    for (int axis = 0; axis < axes; ++axis) {
        names.append(QStringLiteral("axis%1").arg(axis));
        positions.append(10.0 * (axis + 1));
    }
    return {{QStringLiteral("name"), names}, {QStringLiteral("position"), positions}};
}

/// A device with a widget on it, and a robot to connect to.
struct Fixture
{
    Fixture() { device.overrideAddress(robot.address()); }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, patience);
    }

    bool settle() { return ::settle(device, robot, *probe, patience); }

    int count(const char* call) const { return probe->count(call); }

    bool hears(const char* call)
    {
        return QTest::qWaitFor([&] { return count(call) > 0; }, patience);
    }

    bool isCalled(const char* call)
    {
        return QTest::qWaitFor([&] { return robot.calls().contains(QLatin1String(call)); },
                               patience);
    }

    void exec(unsigned int role, const olm::core::variant::Variant& value = {})
    {
        probe->simulationDirectExec(SimulationDirectExecRole(role), value);
    }

    template <class T>
    T config(const char* name) const
    {
        return device.read(Kind::Config, name).get<T>();
    }

    LaserScanMessage scan() const
    {
        return device.read(Kind::Input, "scan").get<LaserScanMessage>();
    }

    unsigned int cameraRate() const
    {
        return device.read(Kind::Input, "cameraFrequency").get<unsigned int>();
    }

    /// The robot's camera sends fifty frames a second while @p timer runs.
    void film(QTimer& timer)
    {
        QObject::connect(&timer, &QTimer::timeout,
                         [this] { robot.publish(QStringLiteral("/camera/camera_info"), {}); });
        timer.start(20);
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device{"robot", folder.path(), environment, noHurry()};
    const Factory factory{[](const char*, const char*, plugin::gui::DeviceDelegate& delegate) {
        return new Probe(delegate);
    }};
    std::unique_ptr<Probe> probe{dynamic_cast<Probe*>(device.loadWidget(factory, "dialog"))};
};

} // namespace

/// What a device makes of its robot: variables of what the robot tells, and commands of what the
/// widgets write and ask.
class DeviceRobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void two_positions_are_there_to_begin_with();
    void what_the_robot_tells_is_subscribed_with_its_type();
    void scans_become_the_input_scan();
    void a_bad_scan_is_said_once_and_the_good_one_stays();
    void the_cameras_rate_is_measured_and_ends_with_the_frames();
    void the_cameras_rate_ends_with_the_connection();
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
    void what_cannot_be_switched_unconnected_is_said();
    void the_present_pose_becomes_a_position_and_is_kept();
    void a_position_is_stored_in_one_transaction_and_counted_last();
    void the_first_position_gets_the_usual_speeds();
    void speeds_that_are_missing_are_the_usual_ones();
    void no_position_is_stored_beyond_the_last();
    void no_position_is_stored_before_all_axes_are_known();
    void a_pose_is_of_the_present_connection();
    void a_bad_joint_state_is_said_once_and_the_pose_stays();
    void bad_scans_and_joint_states_are_said_once_each();
    void a_joint_that_is_none_of_the_arms_is_ignored();
};

void DeviceRobotTest::two_positions_are_there_to_begin_with()
{
    const Fixture f;
    QCOMPARE(f.config<int>("num_pos"), 2);
    QCOMPARE(f.config<int>("num_pos_max"), 16);
    QCOMPARE(f.config<FloatVector>("pos0").size(), 18U);
    QCOMPARE(f.config<FloatVector>("pos1").size(), 18U);
    QCOMPARE(f.config<std::string>("pos0_name"), std::string("Pos1"));
    QCOMPARE(f.config<std::string>("pos1_name"), std::string("Pos2"));
    for (const char* line : {"line0_enabled", "line1_enabled", "line2_enabled"})
        QVERIFY(f.config<bool>(line));
    QVERIFY(!f.config<bool>("disableDriveSystem"));
    const SizeVector resolution = f.config<SizeVector>("camera_resolution");
    QCOMPARE(resolution.size(), 2U);
    QCOMPARE(resolution[0], 640U);
    QCOMPARE(resolution[1], 480U);
}

void DeviceRobotTest::what_the_robot_tells_is_subscribed_with_its_type()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    const std::pair<const char*, const char*> topics[] = {
        {"/scan", "sensor_msgs/LaserScan"},
        {"/joint_states", "sensor_msgs/JointState"},
        {"/camera/camera_info", "sensor_msgs/CameraInfo"},
        {"/arm/torque_enabled", "std_msgs/Bool"},
    };
    for (const auto& [topic, type] : topics)
        QTRY_COMPARE_WITH_TIMEOUT(f.robot.subscriberCount(topic, type, "cbor"), 1, patience);
}

void DeviceRobotTest::scans_become_the_input_scan()
{
    Fixture f;
    f.robot.obey();
    f.probe->onUpdate = [&](const plugin::gui::DeviceHistoryBundle& bundle) {
        if (const auto* history = bundle.getInputHistory("scan"))
            f.probe->calls.append(QStringLiteral("scan %1").arg(
                history->last().get<LaserScanMessage>().sequenceNumber));
    };
    f.device.registerInput("scan", true);
    QVERIFY(f.connect());
    f.robot.publish("/scan", scanMessage(7));
    QVERIFY(f.hears("scan 7"));
    QCOMPARE(f.scan().frameId, std::string("laser"));
    QCOMPARE(f.scan().ranges.size(), 3U);
}

void DeviceRobotTest::a_bad_scan_is_said_once_and_the_good_one_stays()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCborMap bad = scanMessage(8);
    bad.insert(QLatin1String("range_max"), QStringLiteral("far"));
    const char* const words = "1002 A message of the topic /scan is ignored: the field "
                              "\"range_max\" is text, not a number.";
    f.robot.publish("/scan", scanMessage(7));
    f.robot.publish("/scan", bad);
    f.robot.publish("/scan", bad);
    QVERIFY(f.settle());
    QCOMPARE(f.count(words), 1);
    QCOMPARE(f.scan().sequenceNumber, 7U);
    f.robot.publish("/scan", scanMessage(9));
    f.robot.publish("/scan", bad);
    QVERIFY(f.settle());
    QCOMPARE(f.count(words), 2);
    QCOMPARE(f.probe->calls.filter("1002 ").size(), 2);
    QCOMPARE(f.scan().sequenceNumber, 9U);
}

void DeviceRobotTest::the_cameras_rate_is_measured_and_ends_with_the_frames()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCOMPARE(f.cameraRate(), 0U);
    QTimer camera;
    f.film(camera);
    // How many come in time is the machine's affair, RateMeterTest has the numbers.
    QTRY_VERIFY_WITH_TIMEOUT(f.cameraRate() > 0 && f.cameraRate() <= 60, patience);
    camera.stop();
    QTRY_COMPARE_WITH_TIMEOUT(f.cameraRate(), 0U, patience);
}

void DeviceRobotTest::the_cameras_rate_ends_with_the_connection()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QTimer camera;
    f.film(camera);
    QTRY_VERIFY_WITH_TIMEOUT(f.cameraRate() > 0, patience);
    QVERIFY(f.probe->disconnectDevice());
    QCOMPARE(f.cameraRate(), 0U);
}

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

void DeviceRobotTest::what_cannot_be_switched_unconnected_is_said()
{
    Fixture f;
    f.exec(1006);
    f.exec(1008, false);
    QVERIFY(f.hears("1001 Switch torque on: not done. The device is not connected."));
    QVERIFY(f.hears("1001 Disable line 1: not done. The device is not connected."));
}

void DeviceRobotTest::the_present_pose_becomes_a_position_and_is_kept()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    FloatVector previous(18);
    previous[1] = 5.0F;
    previous[17] = 77.0F;
    f.probe->writeConfigVariable("pos1", previous);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QVERIFY(f.hears("1001 The arm's position was stored as Pos3."));

    TestEnvironment environment;
    const Device restarted("robot", f.folder.path(), environment);
    for (const Device* device : {&std::as_const(f.device), &restarted}) {
        QCOMPARE(device->read(Kind::Config, "num_pos").get<int>(), 3);
        QCOMPARE(device->read(Kind::Config, "pos2_name").get<std::string>(), std::string("Pos3"));
        const auto stored = device->read(Kind::Config, "pos2").get<FloatVector>();
        QCOMPARE(stored.size(), 18U);
        QCOMPARE(stored[0], 10.0F);
        QCOMPARE(stored[1], 5.0F);
        QCOMPARE(stored[16], 90.0F);
        QCOMPARE(stored[17], 77.0F);
    }
}

void DeviceRobotTest::a_position_is_stored_in_one_transaction_and_counted_last()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    QStringList writes;
    host::device::variables::Variables& variables = f.device.variables();
    connect(&variables, &host::device::variables::Variables::touched, &variables,
            [&](const host::device::variables::Variables::Key& key) {
                QVERIFY(variables.isInTransaction());
                writes << QString::fromStdString(key.second);
            });
    f.exec(1007);
    QVERIFY(!variables.isInTransaction());
    QCOMPARE(writes, QStringList({"pos2", "pos2_name", "num_pos"}));
}

void DeviceRobotTest::the_first_position_gets_the_usual_speeds()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("num_pos", 0);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 1);
    QCOMPARE(f.config<FloatVector>("pos0")[0], 10.0F);
    QCOMPARE(f.config<FloatVector>("pos0")[1], 30.0F);
    QCOMPARE(f.config<FloatVector>("pos0")[17], 30.0F);
}

void DeviceRobotTest::speeds_that_are_missing_are_the_usual_ones()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    FloatVector previous(3); // axis0 with its speed, and half of axis1
    previous[1] = 5.0F;
    f.probe->writeConfigVariable("pos1", previous);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    const auto stored = f.config<FloatVector>("pos2");
    QCOMPARE(stored.size(), 18U);
    QCOMPARE(stored[1], 5.0F);
    for (int speed = 3; speed < 18; speed += 2)
        QCOMPARE(stored[speed], 30.0F);
}

void DeviceRobotTest::no_position_is_stored_beyond_the_last()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("num_pos", 16);
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    f.exec(1007);
    QVERIFY(f.hears("1001 The arm's position was not stored: all 16 positions are in use. Remove "
                    "one and try again."));
    QCOMPARE(f.config<int>("num_pos"), 16);
    QVERIFY(f.device.read(Kind::Config, "pos16").isEmpty());
}

void DeviceRobotTest::no_position_is_stored_before_all_axes_are_known()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState(8));
    QVERIFY(f.settle());
    f.exec(1007);
    QVERIFY(f.hears("1001 The arm's position was not stored: the robot has not told where all "
                    "axes are. Connect to a robot with an arm and try again."));
    QCOMPARE(f.config<int>("num_pos"), 2);
}

void DeviceRobotTest::a_pose_is_of_the_present_connection()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.settle());
    QVERIFY(f.probe->disconnectDevice());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 2);
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState(1));
    QVERIFY(f.settle());
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 2);
}

void DeviceRobotTest::a_bad_joint_state_is_said_once_and_the_pose_stays()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCborMap bad = jointState();
    bad.insert(QLatin1String("position"), QCborArray{1});
    f.robot.publish("/joint_states", jointState());
    f.robot.publish("/joint_states", bad);
    f.robot.publish("/joint_states", bad);
    QVERIFY(f.settle());
    QCOMPARE(f.count("1001 A message of the topic /joint_states is ignored: the field \"position\" "
                     "has 1 numbers for 9 names."),
             1);
    f.exec(1007);
    QCOMPARE(f.config<int>("num_pos"), 3);
}

void DeviceRobotTest::bad_scans_and_joint_states_are_said_once_each()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    for (int time = 0; time < 2; ++time) {
        f.robot.publish("/scan", {});
        f.robot.publish("/joint_states", {});
    }
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("is ignored").size(), 2);
    QVERIFY(f.probe->calls.filter("is ignored")[0].startsWith("1002 "));
    QVERIFY(f.probe->calls.filter("is ignored")[1].startsWith("1001 "));
}

void DeviceRobotTest::a_joint_that_is_none_of_the_arms_is_ignored()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCborMap wheels = jointState(1);
    wheels.insert(QLatin1String("name"), QCborArray{QStringLiteral("wheel")});
    f.robot.publish("/joint_states", jointState());
    f.robot.publish("/joint_states", wheels);
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("1001 "), QStringList());
    f.exec(1007);
    QCOMPARE(f.config<FloatVector>("pos2")[0], 10.0F);
}

TEST_WITH_WINDOWS(DeviceRobotTest)

} // namespace device_robot_test

#include "DeviceRobotTest.moc"
