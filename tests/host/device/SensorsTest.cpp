// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DeviceFixture.h"
#include "TestCase.h"
#include "tests/host/device/readers/ScanMessage.h"

#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QtTest>

namespace sensors_test {

using Fixture = DeviceFixture;
using olm::core::LaserScanMessage;

namespace {

constexpr int patience = 60000;

} // namespace

/// What a device makes of what its robot measures.
class SensorsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_the_robot_tells_is_subscribed_with_its_type();
    void scans_become_the_input_scan();
    void a_bad_scan_is_said_once_and_the_good_one_stays();
    void the_cameras_rate_is_measured_and_ends_with_the_frames();
    void the_cameras_rate_ends_with_the_connection();
    void what_is_no_picture_does_not_count_and_is_said_once();
    void bad_scans_and_joint_states_are_said_once_each();
};

void SensorsTest::what_the_robot_tells_is_subscribed_with_its_type()
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
        QTRY_COMPARE_WITH_TIMEOUT(f.robot.subscriberCount(topic, type), 1, patience);
}

void SensorsTest::scans_become_the_input_scan()
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

void SensorsTest::a_bad_scan_is_said_once_and_the_good_one_stays()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QCborMap bad = scanMessage(8);
    bad.insert(QLatin1String("range_max"), QStringLiteral("far"));
    const char* const words = "1002 A message on the topic /scan was ignored: the field "
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

void SensorsTest::the_cameras_rate_is_measured_and_ends_with_the_frames()
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

void SensorsTest::the_cameras_rate_ends_with_the_connection()
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

void SensorsTest::what_is_no_picture_does_not_count_and_is_said_once()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QTimer camera;
    const QCborMap bad{{QStringLiteral("width"), QStringLiteral("wide")},
                       {QStringLiteral("height"), 480}};
    connect(&camera, &QTimer::timeout, [&] { f.robot.publish("/camera/camera_info", bad); });
    camera.start(20);
    QTimer witness; // of a second device, whose camera tells pictures
    Fixture other;
    other.robot.obey();
    QVERIFY(other.connect());
    other.film(witness);
    QTRY_VERIFY_WITH_TIMEOUT(other.cameraRate() > 0, patience);
    QVERIFY(f.settle());
    QCOMPARE(f.cameraRate(), 0U);
    QCOMPARE(f.count("1000 A message on the topic /camera/camera_info was ignored: the field "
                     "\"width\" is text, not a number."),
             1);
}

void SensorsTest::bad_scans_and_joint_states_are_said_once_each()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    for (int time = 0; time < 2; ++time) {
        f.robot.publish("/scan", {});
        f.robot.publish("/joint_states", {});
    }
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("was ignored").size(), 2);
    QVERIFY(f.probe->calls.filter("was ignored")[0].startsWith("1002 "));
    QVERIFY(f.probe->calls.filter("was ignored")[1].startsWith("1001 "));
}

TEST_WITH_WINDOWS(SensorsTest)

} // namespace sensors_test

#include "SensorsTest.moc"
