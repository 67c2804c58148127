// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "NamesFixture.h"
#include "TestCase.h"
#include "tests/host/device/RosTypes.h"
#include "tests/support/Patience.h"

#include <QtTest>

namespace silent_topics_test {

using ros_types::Ros;

namespace {

constexpr int driveFollowers = 2; // of /drive/disabled: what is shown, and who drives

host::device::connection::Timing bearing(std::chrono::milliseconds silence)
{
    host::device::connection::Timing timing = noHurry();
    timing.silence = silence;
    return timing;
}

/// A robot whose odometry always comes, every 10 ms, and other topics if it publishes them.
struct Fixture : NamesFixture
{
    explicit Fixture(Ros ros, std::chrono::milliseconds silence = std::chrono::milliseconds(100))
        : NamesFixture(bearing(silence)),
          fewestMessages(static_cast<int>(silence.count() / 10 * 5))
    {
        robot.obeyRules(ros, {{"/odom", "nav_msgs/Odometry"},
                              {"/scan", "sensor_msgs/LaserScan"},
                              {"/drive/disabled", "std_msgs/Bool"}});
        device.connection().follow("/odom", "nav_msgs/Odometry",
                                   [this](const QCborMap&) { ++odometry; });
        device.connection().follow("/scan", "sensor_msgs/LaserScan",
                                   [this](const QCborMap&) { ++scans; });
        QObject::connect(&timer, &QTimer::timeout, [this, ros] {
            robot.publish("/odom", ros_types::sample(ros, "nav_msgs/Odometry"));
            if (isScanning)
                robot.publish("/scan", ros_types::sample(ros, "sensor_msgs/LaserScan"));
            if (tellsDriveInCbor && form("/drive/disabled") == "cbor")
                robot.publish("/drive/disabled", {{"data", true}});
        });
        timer.start(10);
    }

    QStringList trials() const { return lines().filter("Nothing came"); }

    /// As many messages come as in five times the silence that is borne.
    bool goOn()
    {
        const int before = odometry;
        return QTest::qWaitFor([&] { return odometry > before + fewestMessages; }, patience);
    }

    QString form(const QString& topic) const
    {
        return robot.lastSubscription(topic).value(QLatin1String("compression")).toString();
    }

    const int fewestMessages;
    bool isScanning = false;
    bool tellsDriveInCbor = false;
    int odometry = 0;
    int scans = 0;
    QTimer timer;
};

} // namespace

/// Topics of which nothing comes, in the midst of others.
class SilentTopicsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_a_server_cannot_convert_to_CBOR_comes_as_JSON();
    void a_topic_that_nobody_publishes_is_tried_once_for_each_link();
    void a_topic_that_comes_in_the_other_encoding_only_stays_in_it();
    void a_topic_that_is_not_offered_is_not_tried();
    void a_robot_of_which_nothing_comes_is_asked_nothing_else();
};

void SilentTopicsTest::what_a_server_cannot_convert_to_CBOR_comes_as_JSON()
{
    Fixture f(Ros::FirstTwo);
    f.isScanning = true;
    QVERIFY(f.connect());
    QTRY_VERIFY_WITH_TIMEOUT(f.scans > 0, patience);
    QCOMPARE(f.form("/scan"), QString("none"));
    QVERIFY(f.settle());
    QVERIFY(f.trials().contains("1000 Nothing came on /scan for 0.1 s, while other topics did. It "
                                "is now requested as JSON instead of CBOR."));
}

void SilentTopicsTest::a_topic_that_nobody_publishes_is_tried_once_for_each_link()
{
    Fixture f(Ros::One);
    for (int link = 1; link <= 2; ++link) {
        QVERIFY(f.connect());
        // As JSON, as CBOR, and as JSON again.
        const int trials = 3 * link * driveFollowers;
        QTRY_COMPARE_WITH_TIMEOUT(f.robot.subscribeCount("/drive/disabled"), trials, patience);
        QVERIFY(f.goOn());
        QCOMPARE(f.robot.subscribeCount("/drive/disabled"), trials);
        QCOMPARE(f.form("/drive/disabled"), QString("none"));
        QCOMPARE(f.form("/scan"), QString("none"));
        QCOMPARE(f.robot.subscribeCount("/odom"), link);
        QVERIFY(f.settle());
        QCOMPARE(f.trials().size(), 2 * link);
        QVERIFY(f.device.disconnectDevice());
    }
    QVERIFY(f.trials().contains("1000 Nothing came on /drive/disabled for 0.1 s, while other "
                                "topics did. It is requested as CBOR instead of JSON for another "
                                "0.1 s."));
}

void SilentTopicsTest::a_topic_that_comes_in_the_other_encoding_only_stays_in_it()
{
    // A silence within which a message arrives even if the machine is busy.
    Fixture f(Ros::One, std::chrono::milliseconds(500));
    f.tellsDriveInCbor = true;
    QVERIFY(f.connect());
    QTRY_COMPARE_WITH_TIMEOUT(f.form("/drive/disabled"), QString("cbor"), patience);
    QVERIFY(f.goOn());
    QCOMPARE(f.form("/drive/disabled"), QString("cbor"));
}

void SilentTopicsTest::a_topic_that_is_not_offered_is_not_tried()
{
    Fixture f(Ros::One);
    QVERIFY(f.connect());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.subscribeCount("/drive/disabled") > driveFollowers, patience);
    QCOMPARE(f.robot.subscribeCount("/joint_states"), 1);
    QCOMPARE(f.robot.subscribeCount("/rosout"), 1);
}

void SilentTopicsTest::a_robot_of_which_nothing_comes_is_asked_nothing_else()
{
    Fixture f(Ros::One);
    f.timer.stop();
    QVERIFY(f.connect());
    QVERIFY(f.settle());
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY_WITH_TIMEOUT(time.hasExpired(300), patience); // three times the silence
    QCOMPARE(f.trials(), QStringList());
    QCOMPARE(f.robot.subscribeCount("/odom"), 1);
}

TEST_WITH_WINDOWS(SilentTopicsTest)

} // namespace silent_topics_test

#include "SilentTopicsTest.moc"
