// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PlotsFixture.h"
#include "TestCase.h"

#include <QSignalSpy>

#include <algorithm>

namespace recorder_test {

using namespace plots_fixture;
using host::device::variables::Variables;
using ros_types::Ros;

namespace {

struct Fixture : PlottedDevice
{
    Recorder recorder{device, nullptr};

    /// Joined, with one line that records.
    void record(const Quantity& quantity)
    {
        recorder.setActive(true);
        recorder.add(quantity);
        join();
        QTRY_VERIFY_WITH_TIMEOUT(recorder.lines()[0]->follower != 0, patience);
    }

    /// The robot drives there until that is recorded.
    void driveTo(double x)
    {
        robot.driveTo(x);
        const QString end = QString::number(x);
        QTRY_VERIFY_WITH_TIMEOUT(values(recorder).split(' ').last() == end, patience);
    }
};

} // namespace

/// Recorder: what is followed while somebody looks, and what becomes of it.
class RecorderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_field_is_recorded_as_it_comes();
    void a_lost_link_is_a_gap();
    void nothing_is_followed_while_nobody_looks();
    void a_line_that_is_removed_ends_its_following();
    void a_topic_that_the_robot_does_not_have_is_not_followed();
    void a_topic_that_comes_later_is_followed();
    void a_message_without_the_field_is_a_gap();
    void an_axis_is_in_degrees();
    void a_target_comes_from_the_arms_state();
    void a_variable_is_recorded_link_or_not();
    void a_rate_is_that_of_all_messages();
    void a_foreign_robot_is_recorded_too_data();
    void a_foreign_robot_is_recorded_too();
    void it_may_go_at_any_time();
    void what_was_chosen_is_remembered_as_text();
};

void RecorderTest::a_field_is_recorded_as_it_comes()
{
    Fixture f;
    const QSignalSpy recorded(&f.recorder, &Recorder::recorded);
    f.record(place);
    const double before = Recorder::now();
    f.driveTo(1.5);
    f.driveTo(-2);
    QCOMPARE(values(f.recorder), QString("1.5 -2"));
    QCOMPARE(int(recorded.size()), 2);
    const auto& data = *f.recorder.lines()[0]->series.data();
    QVERIFY(data.at(0)->key >= before && data.at(1)->key <= Recorder::now());
    QVERIFY(std::abs(before - double(QDateTime::currentMSecsSinceEpoch()) / 1000) < 3600);
    f.recorder.clear();
    QCOMPARE(values(f.recorder), QString());
}

void RecorderTest::a_lost_link_is_a_gap()
{
    Fixture f;
    f.record(place);
    f.driveTo(1);
    f.driveTo(2);
    QVERIFY(f.device.disconnectDevice());
    QCOMPARE(f.recorder.lines()[0]->series.current(Recorder::now()), std::optional<double>());
    f.join();
    QTRY_VERIFY_WITH_TIMEOUT(f.recorder.lines()[0]->follower != 0, patience);
    f.driveTo(3);
    f.robot.drop();
    QTRY_COMPARE_WITH_TIMEOUT(f.device.connectionState(), -1, patience);
    f.join();
    QTRY_VERIFY_WITH_TIMEOUT(f.recorder.lines()[0]->follower != 0, patience);
    f.driveTo(4);
    QCOMPARE(values(f.recorder), QString("1 2 - 3 - 4"));
}

void RecorderTest::nothing_is_followed_while_nobody_looks()
{
    Fixture f;
    f.recorder.add(place);
    f.recorder.add({Kind::Rate, odometry, {}, 0});
    f.recorder.add({Kind::Variable, "speed", {}, 0});
    f.join();
    QCOMPARE(f.robot.followers(), 0);
    f.recorder.setActive(true);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 2, patience);
    f.driveTo(1);
    f.recorder.setActive(false);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 0, patience);
    f.robot.driveTo(7);
    f.device.variables().set(Variables::Kind::Input, "speed", 5.0F);
    f.waitForRobot();
    for (const QTimer* timer : f.recorder.findChildren<QTimer*>())
        QVERIFY(!timer->isActive());
    QCOMPARE(int(f.recorder.lines().size()), 3);
    f.recorder.setActive(true);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 2, patience);
    f.driveTo(2);
    QCOMPARE(values(f.recorder), QString("1 - 2"));
}

void RecorderTest::a_line_that_is_removed_ends_its_following()
{
    Fixture f;
    f.record(place);
    f.recorder.add({Kind::Field, odometry, "pose.pose.position.y", 0});
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 2, patience);
    f.recorder.remove(1);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 1, patience);
    f.driveTo(1);
    f.recorder.remove(0);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 0, patience);
    QVERIFY(f.recorder.lines().empty());
}

void RecorderTest::a_topic_that_the_robot_does_not_have_is_not_followed()
{
    Fixture f;
    f.recorder.setActive(true);
    f.recorder.add({Kind::Field, "/nothing", "data", 0});
    f.recorder.add(place);
    f.join();
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers(), 1, patience);
    QCOMPARE(f.robot.subscribeCount("/nothing"), 0);
}

void RecorderTest::a_topic_that_comes_later_is_followed()
{
    Fixture f;
    f.recorder.setActive(true);
    f.recorder.add({Kind::Field, "/battery", "data", 0});
    f.join();
    f.robot.offer({{"/battery", "std_msgs/Float32"}});
    f.device.offer().ask();
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers("/battery", "std_msgs/Float32"), 1, patience);
    f.robot.publish("/battery", {{"data", 24.5}});
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder), QString("24.5"), patience);
}

void RecorderTest::a_message_without_the_field_is_a_gap()
{
    Fixture f;
    f.record(place);
    f.driveTo(1);
    f.robot.publish(odometry, {{"pose", 5}});
    f.driveTo(2);
    QCOMPARE(values(f.recorder), QString("1 - 2"));
}

void RecorderTest::an_axis_is_in_degrees()
{
    Fixture f;
    const Quantity axis{Kind::Present, {}, {}, 1};
    f.record(axis);
    f.robot.publish("/joint_states", message::jointStates({"axis1", "axis0"}, {30, 45}));
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder), QString("30"), patience);
    QCOMPARE(axis.unit(f.device), QString("°"));
    QCOMPARE(axis.inWords(f.device), QString("Axis 2: current"));
    // One that tells of other axes only says nothing of this one.
    f.robot.publish("/joint_states", message::jointStates({"axis0"}, {45}));
    f.robot.publish("/joint_states", message::jointStates({"axis1"}, {31}));
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder), QString("30 31"), patience);
}

void RecorderTest::a_target_comes_from_the_arms_state()
{
    Fixture f;
    f.robot.offer({{"/arm/state", "control_msgs/JointTrajectoryControllerState"}});
    f.record({Kind::Target, {}, {}, 0});
    f.robot.publish("/arm/state", message::armState({"axis0"}, {60}));
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder), QString("60"), patience);
}

void RecorderTest::a_variable_is_recorded_link_or_not()
{
    Fixture f;
    f.device.variables().setProperty(Variables::Kind::Input, "speed", "unit", QString("m/s"));
    const Quantity speed{Kind::Variable, "speed", {}, static_cast<int>(Variables::Kind::Input)};
    QCOMPARE(speed.unit(f.device), QString("m/s"));
    f.recorder.add(speed);
    f.recorder.setActive(true);
    f.device.variables().set(Variables::Kind::State, "speed", 7.0F); // another of that name
    f.device.variables().set(Variables::Kind::Input, "speed", 5.0F);
    QCOMPARE(values(f.recorder), QString("5"));
    // It has its value until it gets another.
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder), QString("5 5 5"), patience);
    f.device.variables().set(Variables::Kind::Input, "speed", std::string("fast"));
    f.device.variables().set(Variables::Kind::Input, "speed", true);
    QVERIFY2(values(f.recorder).endsWith("5 - 1"), qPrintable(values(f.recorder)));
}

void RecorderTest::a_rate_is_that_of_all_messages()
{
    Fixture f;
    f.record({Kind::Rate, odometry, {}, 0});
    QCOMPARE(f.robot.lastSubscription(odometry).value(QLatin1String("throttle_rate")).toInteger(),
             0);
    const auto newest = [&f] { return values(f.recorder).section(' ', -1).toDouble(); };
    QTRY_VERIFY_WITH_TIMEOUT(f.recorder.lines()[0]->series.current(Recorder::now()), patience);
    QCOMPARE(newest(), 0.0); // nothing came
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&f] { f.robot.driveTo(0); });
    timer.start(20);
    QTRY_VERIFY_WITH_TIMEOUT(newest() > 5 && newest() <= 51, patience);
    timer.stop();
    QTRY_COMPARE_WITH_TIMEOUT(newest(), 0.0, patience);
}

void RecorderTest::a_foreign_robot_is_recorded_too_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::newRow("ROS 1") << Ros::One;
    QTest::newRow("ROS 2") << Ros::Two;
}

/// Under its own names, and what this program has no use for as well.
void RecorderTest::a_foreign_robot_is_recorded_too()
{
    QFETCH(const Ros, ros);
    Fixture f;
    f.robot.obeyRules(ros, {{"/wheels/odom", "nav_msgs/Odometry"}, {"/arm_on", "std_msgs/Bool"}});
    QVERIFY(f.device.remappings().set("/odom", "/wheels/odom"));
    f.record(place);
    f.recorder.add({Kind::Field, "/arm_on", "data", 0});
    f.recorder.add({Kind::Rate, "/arm_on", {}, 0});
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers("/wheels/odom"), 1, patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.followers("/arm_on", "std_msgs/Bool"), 2, patience);
    QCOMPARE(place.inWords(f.device), QString("/wheels/odom: pose.pose.position.x"));
    f.robot.publish("/wheels/odom", message::odometry("odom", "base_link", 4, 0, 0));
    f.robot.publish("/arm_on", {{"data", true}});
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder, 0), QString("4"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(values(f.recorder, 1), QString("1"), patience);
}

void RecorderTest::it_may_go_at_any_time()
{
    PlottedDevice device;
    {
        Recorder recorder(device.device, nullptr);
        recorder.setActive(true);
        recorder.add(place);
        device.join();
        QTRY_COMPARE_WITH_TIMEOUT(device.robot.followers(), 1, patience);
    }
    QTRY_COMPARE_WITH_TIMEOUT(device.robot.followers(), 0, patience);
}

void RecorderTest::what_was_chosen_is_remembered_as_text()
{
    for (const Quantity& quantity :
         {place, Quantity{Kind::Rate, "/tf", {}, 0}, Quantity{Kind::Variable, "a b", "[3]", 2},
          Quantity{Kind::Present, {}, {}, 8}, Quantity{Kind::Target, {}, {}, 0}}) {
        const auto read = Quantity::fromKey(quantity.key());
        QVERIFY2(read && *read == quantity, qPrintable(quantity.key()));
    }
    for (const char* key :
         {"", "[]", "{}", "[0]", R"([9,"a","",0])", R"([-1,"a","",0])", R"([0,"","",0])",
          R"([0,"a","",4])", R"([1,"","",9])", R"([4,"no name","x",0])", R"([3,"","",0])"})
        QVERIFY2(!Quantity::fromKey(key), key);
}

TEST_WITH_WINDOWS(RecorderTest)

} // namespace recorder_test

#include "RecorderTest.moc"
