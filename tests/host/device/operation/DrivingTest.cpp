// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "OperationFixture.h"
#include "TestCase.h"

#include "robot/Robot.h"

#include <QtTest>

#include <functional>
#include <map>

namespace driving_test {

using host::device::operation::Driving;
using host::device::operation::Velocity;
using ros_types::Ros;

namespace {

/// A device that could drive its robot.
struct Fixture : OperationFixture
{
    Fixture()
    {
        offerStop();
        beAlive();
        driving.setReady(true);
        driving.setLimits({0.5, 1});
    }

    bool isReadyToDrive()
    {
        return connect() && isReady() &&
               QTest::qWaitFor([this] { return driving.obstacle().isEmpty(); }, patience);
    }

    bool drives()
    {
        driving.hold({1, 0});
        return QTest::qWaitFor([this] { return velocities().contains("0.5 0"); }, patience);
    }

    /// Nothing but zeros came after the last drive, and no more than one.
    bool hasEndedWithOneZero() const
    {
        const QStringList all = velocities();
        return all.size() >= 2 && all.last() == "0 0" && all.count("0 0") == 1;
    }

    Driving& driving = device.driving();
};

/// Something that keeps the robot from being driven, and words that say so.
struct Case
{
    std::function<void(Fixture&)> happen;
    QString words;
};

const std::map<QString, Case>& ends()
{
    static const std::map<QString, Case> cases{
        {"stop is pressed", {[](Fixture& f) { f.device.stopping().stop(); }, "Stop was pressed."}},
        {"somebody else stops the robot",
         {[](Fixture& f) { f.tellStopped(true); }, "The robot is stopped."}},
        {"the drive is disabled",
         {[](Fixture& f) {
              f.robot.publish("/drive/disabled", {{"data", true}});
          },
          "The drive system is disabled."}},
        {"control is released",
         {[](Fixture& f) { f.device.control().release(); }, "not in control"}},
        {"the robot refuses it",
         {[](Fixture& f) {
              f.robot.send({{"op", "status"},
                            {"level", "error"},
                            {"id", "/cmd_vel"},
                            {"msg", "the brake is on"}});
          },
          "Robot, error: the brake is on"}},
        {"nothing is heard for a second",
         {[](Fixture& f) { f.fallSilent(); }, "Nothing has come from the robot"}},
    };
    return cases;
}

const std::map<QString, Case>& obstacles()
{
    static const std::map<QString, Case> cases{
        {"not connected", {[](Fixture&) {}, "Not connected."}},
        {"passive",
         {[](Fixture& f) {
              f.robot.answerTrigger("/control/acquire", false, "somebody");
              QVERIFY(f.connect(4));
          },
          "not in control"}},
        {"stopped",
         {[](Fixture& f) {
              f.robot.latch("/stopped", {{"data", true}});
              QVERIFY(f.connect());
          },
          "The robot is stopped."}},
        {"disabled",
         {[](Fixture& f) {
              f.robot.latch("/drive/disabled", {{"data", true}});
              QVERIFY(f.connect());
          },
          "The drive system is disabled."}},
        {"silent",
         {[](Fixture& f) {
              f.fallSilent();
              QVERIFY(f.connect());
          },
          "Nothing has come"}},
        {"no such topic",
         {[](Fixture& f) {
              f.topics.erase("/cmd_vel");
              f.tell();
              QVERIFY(f.connect());
          },
          "does not listen to /cmd_vel"}},
        {"another type",
         {[](Fixture& f) {
              f.topics["/cmd_vel"] = "geometry_msgs/msg/TwistStamped";
              f.tell();
              QVERIFY(f.connect());
          },
          "wants geometry_msgs/TwistStamped on /cmd_vel"}},
    };
    return cases;
}

void addCases(const std::map<QString, Case>& cases)
{
    QTest::addColumn<QString>("name");
    for (const auto& each : cases)
        QTest::newRow(qPrintable(each.first)) << each.first;
}

} // namespace

/// Driving by hand: when it goes, and above all when it ends.
class DrivingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_drives_while_it_is_held_and_no_longer();
    void a_whole_push_is_the_greatest_speed();
    void nothing_is_sent_when_nothing_is_held();
    void whatever_happens_ends_it_data();
    void whatever_happens_ends_it();
    void a_link_that_is_lost_ends_it_for_the_next_one_too();
    void it_does_not_begin_where_something_stands_in_the_way_data();
    void it_does_not_begin_where_something_stands_in_the_way();
    void robots_of_both_generations_are_driven_data();
    void robots_of_both_generations_are_driven();
    void the_speeds_are_remembered_for_the_device();
    void speeds_from_a_file_are_bounded_like_those_that_are_entered();
    void our_robot_is_driven();
};

void DrivingTest::it_drives_while_it_is_held_and_no_longer()
{
    Fixture f;
    QVERIFY(f.isReadyToDrive());
    QElapsedTimer time;
    time.start();
    f.driving.hold({1, 0});
    QVERIFY(f.driving.isDriving());
    QTRY_VERIFY_WITH_TIMEOUT(f.velocities().size() >= 10, patience);
    QVERIFY2(time.elapsed() >= 9 * 50 - 10, qPrintable(QString::number(time.elapsed())));
    f.driving.letGo();
    QVERIFY(!f.driving.isDriving());
    QVERIFY(f.settle());
    QVERIFY(f.hasEndedWithOneZero());
}

void DrivingTest::a_whole_push_is_the_greatest_speed()
{
    Fixture f;
    QVERIFY(f.isReadyToDrive());
    f.driving.hold({-0.5, 1});
    QTRY_VERIFY_WITH_TIMEOUT(f.velocities().contains("-0.25 1"), patience);
}

void DrivingTest::nothing_is_sent_when_nothing_is_held()
{
    Fixture f;
    QVERIFY(f.isReadyToDrive());
    f.driving.letGo();
    f.device.stopping().stop();
    QVERIFY(f.isCalled("/stop {}"));
    QVERIFY(f.settle());
    QCOMPARE(f.robot.publications(), QStringList());
    QCOMPARE(f.robot.advertisements(), QStringList());
}

void DrivingTest::whatever_happens_ends_it_data()
{
    addCases(ends());
}

void DrivingTest::whatever_happens_ends_it()
{
    QFETCH(const QString, name);
    const auto& [happen, words] = ends().at(name);
    Fixture f;
    QVERIFY(f.isReadyToDrive());
    QVERIFY(f.drives());
    happen(f);
    QTRY_VERIFY_WITH_TIMEOUT(!f.driving.isDriving(), patience);
    QVERIFY2(f.driving.obstacle().contains(words), qPrintable(f.driving.obstacle()));
    QVERIFY(f.driving.obstacle().endsWith("Let go and press again."));
    f.driving.hold({1, 0}); // still held
    QVERIFY(!f.driving.isDriving());
    f.driving.letGo();
    QVERIFY(!f.driving.obstacle().contains("Let go"));
    QVERIFY(f.settle());
    QVERIFY2(f.hasEndedWithOneZero(), qPrintable(f.velocities().join(", ")));
}

void DrivingTest::a_link_that_is_lost_ends_it_for_the_next_one_too()
{
    Fixture f;
    QVERIFY(f.isReadyToDrive());
    QVERIFY(f.drives());
    f.robot.drop();
    QTRY_VERIFY_WITH_TIMEOUT(!f.driving.isDriving(), patience);
    const int sent = int(f.velocities().size());
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    f.driving.hold({1, 0});
    QVERIFY(!f.driving.isDriving());
    QVERIFY(f.settle());
    QCOMPARE(int(f.velocities().size()), sent);
}

void DrivingTest::it_does_not_begin_where_something_stands_in_the_way_data()
{
    addCases(obstacles());
}

void DrivingTest::it_does_not_begin_where_something_stands_in_the_way()
{
    QFETCH(const QString, name);
    const auto& [prepare, words] = obstacles().at(name);
    Fixture f;
    prepare(f);
    QTRY_VERIFY_WITH_TIMEOUT(f.driving.obstacle().contains(words), patience);
    f.driving.hold({1, 0});
    QVERIFY(!f.driving.isDriving());
    f.driving.letGo();
    if (f.device.connectionState() != -1)
        QVERIFY(f.settle());
    QCOMPARE(f.robot.publications(), QStringList());
}

void DrivingTest::robots_of_both_generations_are_driven_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::newRow("ROS 1") << Ros::One;
    QTest::newRow("ROS 2") << Ros::Two;
}

void DrivingTest::robots_of_both_generations_are_driven()
{
    QFETCH(const Ros, ros);
    Fixture f;
    f.beForeign(ros, {{"/cmd_vel", "geometry_msgs/Twist"}, {"/odom", "nav_msgs/Odometry"}});
    QVERIFY(f.isReadyToDrive());
    QVERIFY(f.drives());
    f.driving.letGo();
    QVERIFY(f.settle());
    QVERIFY(f.hasEndedWithOneZero());
}

void DrivingTest::the_speeds_are_remembered_for_the_device()
{
    Fixture f;
    f.driving.setLimits({0.25, 100});
    host::device::Device later("robot", f.folder.path(), f.environment, noHurry());
    QCOMPARE(later.driving().limits().linear, 0.25);
    QCOMPARE(later.driving().limits().angular, Driving::fastest.angular);

    QFile file(f.folder.filePath("other.drive"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(R"({"linear": "fast"})") > 0);
    file.close();
    host::device::Device other("other", f.folder.path(), f.environment, noHurry());
    QSignalSpy problems(&other, &host::device::Device::problem);
    QTRY_COMPARE_WITH_TIMEOUT(int(problems.count()), 1, patience);
    QVERIFY(problems.first().first().toString().contains("\"linear\" is not a number"));
    QCOMPARE(other.driving().limits().linear, 0.3);
}

void DrivingTest::speeds_from_a_file_are_bounded_like_those_that_are_entered()
{
    Fixture f;
    QFile file(f.folder.filePath("other.drive"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(R"({"linear": 50, "angular": -1})") > 0);
    file.close();
    host::device::Device other("other", f.folder.path(), f.environment, noHurry());
    QCOMPARE(other.driving().limits().linear, Driving::fastest.linear);
    QCOMPARE(other.driving().limits().angular, Driving::slowest.angular);
}

void DrivingTest::our_robot_is_driven()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({"127.0.0.1", 0}, &error), qPrintable(error));
    Fixture f;
    f.device.overrideAddress(QStringLiteral("127.0.0.1:%1").arg(robot.port()));
    double speed = 0;
    f.device.connection().follow("/odom", "nav_msgs/Odometry", [&](const QCborMap& message) {
        const QCborMap twist = message.value(QLatin1String("twist")).toMap();
        speed = twist.value(QLatin1String("twist"))
                    .toMap()
                    .value(QLatin1String("angular"))
                    .toMap()
                    .value(QLatin1String("z"))
                    .toDouble();
    });
    f.driving.setLimits({0.1, 1.25}); // which it does not turn by itself
    QVERIFY(f.connect());
    QTRY_COMPARE_WITH_TIMEOUT(f.driving.obstacle(), QString(), patience);
    f.driving.hold({0, 1});
    QTRY_COMPARE_WITH_TIMEOUT(speed, 1.25, patience);
    f.driving.letGo();
    QTRY_VERIFY_WITH_TIMEOUT(speed < 1.25, patience);
}

TEST_WITH_WINDOWS(DrivingTest)

} // namespace driving_test

#include "DrivingTest.moc"
