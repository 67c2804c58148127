// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "NamesFixture.h"
#include "TestCase.h"

#include <QCborArray>
#include <QtTest>

namespace offer_test {

using Fixture = NamesFixture;
using host::device::connection::Offer;
using host::device::connection::Remappings;
using host::device::connection::Timing;

namespace {

constexpr int patience = 60000;

} // namespace

/// A robot that does not have all: what is known of it, and what is said.
class OfferTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_robot_that_has_all_is_told_nothing_about();
    void a_robot_that_has_nothing_is_usable_and_that_is_said_in_one_line();
    void what_is_missing_is_said_with_the_robots_name_and_what_it_is_for();
    void what_is_missing_is_said_once_for_each_connection();
    void what_is_missing_is_said_to_a_passive_client_too();
    void a_topic_of_other_messages_is_said_with_both_types();
    void types_as_ROS_2_writes_them_are_the_same();
    void a_topic_that_nobody_publishes_is_missing();
    void a_topic_that_comes_later_is_heard();
    void a_refused_topic_is_said_only_where_the_robot_claims_to_have_it();
    void refused_topics_are_in_one_line_where_the_robot_tells_nothing();
    void a_service_that_comes_later_is_called_once_it_was_asked_for();
    void nothing_is_known_of_a_robot_that_is_gone();
    void another_name_has_another_state();
    void all_topics_that_can_be_followed_are_known_by_our_names();
    void a_robot_that_does_not_tell_may_have_all_that_is_used();
    void a_robot_that_has_all_is_asked_once();
    void what_is_missing_is_asked_for_at_growing_intervals_with_an_end();
    void what_was_not_answered_is_asked_again();
    void the_log_may_be_that_of_ROS_2();

private:
    /// The questions to rosapi, without what they are about.
    static QStringList questions(const Fixture& f)
    {
        return f.robot.calls().filter(QRegularExpression("^/rosapi/(topics|services|publishers) "));
    }

    static Timing brisk()
    {
        Timing timing = noHurry();
        timing.firstQuestion = std::chrono::milliseconds(10);
        timing.lastQuestion = std::chrono::milliseconds(40);
        return timing;
    }
};

void OfferTest::a_robot_that_has_all_is_told_nothing_about()
{
    Fixture f;
    f.offerAllBut({});
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QVERIFY(f.settle());
    QCOMPARE(f.lines(), QStringList());
    for (const Remappings::Entry& entry : Remappings::all())
        QCOMPARE(f.device.offer().state(entry.name),
                 entry.isRequired ? Offer::State::Offered : Offer::State::Missing);
    QCOMPARE(f.device.offer().state(QStringLiteral("/nobody")), Offer::State::Unknown);
}

void OfferTest::a_robot_that_has_nothing_is_usable_and_that_is_said_in_one_line()
{
    Fixture f;
    f.tell(); // empty lists
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.lines().size(), 1);
    const QString line = f.lines().first();
    for (const Remappings::Entry& entry : Remappings::all()) {
        const QString words = entry.name + " (" + entry.purpose() + ')';
        QVERIFY2(line.contains(words) == entry.isRequired, qPrintable(words));
    }
    QVERIFY2(line.startsWith("1000 ") && line.contains("Robot > Names…"), qPrintable(line));

    // Who asks for something that is missing all the same gets the robot's answer.
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.isCalled(R"(/drive/disable {"data":true})"));
    QCOMPARE(f.lines().size(), 1);
    QCOMPARE(f.device.connectionState(), 3);
    QVERIFY(f.device.disconnectDevice());
}

void OfferTest::what_is_missing_is_said_with_the_robots_name_and_what_it_is_for()
{
    Fixture f;
    f.offerAllBut({"/scan", "/arm/torque"});
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(
        f.lines(),
        QStringList(
            "1000 This robot does not offer /base_scan (the laser's scans), "
            "/arm/torque (switching the arm's torque). The functions in brackets are unavailable; "
            "if the robot has other names for them, enter them in Robot > Names…."));
    QCOMPARE(f.state("/scan"), Offer::State::Missing);
    QCOMPARE(f.state("/odom"), Offer::State::Offered);
}

void OfferTest::what_is_missing_is_said_once_for_each_connection()
{
    Fixture f;
    f.offerAllBut({"/map"});
    for (int time = 1; time <= 2; ++time) {
        QVERIFY(f.connect());
        QTRY_COMPARE_WITH_TIMEOUT(int(f.readies.count()), time, patience);
        f.device.offer().ask();
        QSignalSpy changes(&f.device.offer(), &Offer::changed);
        QVERIFY(changes.count() > 0 || changes.wait(patience));
        QVERIFY(f.settle());
        QCOMPARE(f.lines().size(), time);
        QVERIFY(f.device.disconnectDevice());
    }
    QCOMPARE(int(f.readies.count()), 2);
}

void OfferTest::what_is_missing_is_said_to_a_passive_client_too()
{
    Fixture f;
    f.offerAllBut({"/map"});
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    QVERIFY(f.isReady());
    QCOMPARE(f.lines().filter("1000 ").size(), 1);
    QVERIFY(f.lines().filter("1000 ").first().contains("/map (the map)"));
    QCOMPARE(f.robot.calls().filter("/drive/"), QStringList());
}

void OfferTest::a_topic_of_other_messages_is_said_with_both_types()
{
    Fixture f;
    f.offerAllBut({});
    f.topics["/scan"] = "sensor_msgs/PointCloud2";
    f.tell();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.state("/scan"), Offer::State::OtherType);
    QCOMPARE(f.lines().size(), 1);
    const QString words = "/scan as sensor_msgs/LaserScan, but as sensor_msgs/PointCloud2 (the "
                          "laser's scans)";
    QVERIFY2(f.lines().first().contains(words), qPrintable(f.lines().first()));
}

void OfferTest::types_as_ROS_2_writes_them_are_the_same()
{
    Fixture f;
    f.offerAllBut({});
    for (auto& topic : f.topics)
        topic.second.replace("/", "/msg/");
    f.tell();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.lines(), QStringList());
    QCOMPARE(f.state("/scan"), Offer::State::Offered);
    QCOMPARE(f.device.offer().candidates(*Remappings::find("/scan")), QStringList("/scan"));
}

void OfferTest::a_topic_that_nobody_publishes_is_missing()
{
    Fixture f;
    f.offerAllBut({});
    f.robotServices.append("/rosapi/publishers");
    f.robot.answer("/rosapi/publishers", {{"publishers", QCborArray()}});
    f.tell();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QVERIFY(f.robot.calls().contains(R"(/rosapi/publishers {"topic":"/scan"})"));
    QVERIFY(!f.robot.calls().contains(R"(/rosapi/publishers {"topic":"/tf_static"})"));
    QCOMPARE(f.state("/scan"), Offer::State::Missing);
    QCOMPARE(f.state("/drive/disable"), Offer::State::Offered);
    QCOMPARE(f.lines().size(), 1);

    f.robot.answer("/rosapi/publishers", {{"publishers", QCborArray{"/laser"}}});
    f.device.offer().ask();
    QTRY_COMPARE_WITH_TIMEOUT(f.state("/scan"), Offer::State::Offered, patience);
}

void OfferTest::a_topic_that_comes_later_is_heard()
{
    Fixture f;
    f.offerAllBut({"/joint_states"});
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.robot.publish("/joint_states", {});
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("1001 A message on the topic /joint_states").size(), 1);
}

void OfferTest::a_refused_topic_is_said_only_where_the_robot_claims_to_have_it()
{
    Fixture f;
    f.offerAllBut({"/scan", "/map"});
    for (const char* topic : {"/scan", "/odd", "/map", "/odom"})
        f.robot.refuse(topic);
    const auto ignore = [](const QCborMap&) {};
    f.device.connection().follow("/odom", "nav_msgs/Odometry", ignore);
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.lines().size(), 2);
    QVERIFY(f.lines().filter("does not offer /scan").size() == 1);
    QVERIFY(f.lines().contains("1000 Robot, error: No topic /odom"));
    f.device.connection().follow("/map", "nav_msgs/OccupancyGrid", ignore);
    f.device.connection().follow("/odd", "std_msgs/Bool", ignore);
    f.device.connection().follow("/odd", "std_msgs/Bool", ignore); // both anew
    QVERIFY(f.settle());
    QCOMPARE(f.lines().mid(2), QStringList("1000 Robot, error: No topic /odd"));
}

void OfferTest::refused_topics_are_in_one_line_where_the_robot_tells_nothing()
{
    Fixture f;
    f.robot.obey();
    for (const char* topic : {"/scan", "/joint_states"})
        f.robot.refuse(topic);
    f.robot.ignore("/rosapi/topics");
    f.robot.ignore("/rosapi/services");
    QVERIFY(f.connect());
    QTRY_COMPARE_WITH_TIMEOUT(f.followers("/scan"), 1, patience);
    QVERIFY(f.settle());
    f.robot.answerLate("/rosapi/topics", {});
    f.robot.answerLate("/rosapi/services", {});
    QVERIFY(f.isReady());
    QCOMPARE(f.lines().size(), 1);
    QVERIFY(
        f.lines().first().startsWith("1000 This robot does not offer /scan (the laser's scans), "
                                     "/joint_states ("));
    QCOMPARE(f.state("/odom"), Offer::State::Unknown);
    QCOMPARE(f.state("/drive/disable"), Offer::State::Unknown);
}

void OfferTest::a_service_that_comes_later_is_called_once_it_was_asked_for()
{
    Fixture f;
    f.offerAllBut({"/drive/disable"});
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.robotServices.append("/drive/disable");
    f.tell();
    f.device.offer().ask();
    QTRY_COMPARE_WITH_TIMEOUT(f.state("/drive/disable"), Offer::State::Offered, patience);
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.isCalled(R"(/drive/disable {"data":true})"));
}

void OfferTest::nothing_is_known_of_a_robot_that_is_gone()
{
    Fixture f;
    f.offerAllBut({"/map"});
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.device.offer().ask(); // its answers are not waited for
    QVERIFY(f.device.disconnectDevice());
    for (const Remappings::Entry& entry : Remappings::all()) {
        QCOMPARE(f.device.offer().state(entry.name), Offer::State::Unknown);
        QCOMPARE(f.device.offer().candidates(entry), QStringList());
    }
    f.device.offer().ask();
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 0, patience);
    QCOMPARE(f.device.connectionState(), -1);
}

void OfferTest::another_name_has_another_state()
{
    Fixture f;
    f.offerAllBut({"/scan"});
    f.topics["/base_scan"] = "sensor_msgs/LaserScan";
    f.topics["/points"] = "sensor_msgs/PointCloud2";
    f.tell();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.state("/scan"), Offer::State::Missing);
    QCOMPARE(f.device.offer().candidates(*Remappings::find("/scan")), QStringList("/base_scan"));
    QVERIFY(f.device.remappings().set("/scan", "/points"));
    QCOMPARE(f.state("/scan"), Offer::State::OtherType);
    QCOMPARE(f.device.offer().typeOf("/scan"), QString("sensor_msgs/PointCloud2"));
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QCOMPARE(f.state("/scan"), Offer::State::Offered);
    QVERIFY(f.settle());
    QCOMPARE(f.lines().size(), 1); // what is done in the window is seen there
}

void OfferTest::all_topics_that_can_be_followed_are_known_by_our_names()
{
    Fixture f;
    f.topics["/battery"] = "std_msgs/msg/Float32";
    f.topics["/base_scan"] = "sensor_msgs/LaserScan";
    f.topics["/odom"] = "nav_msgs/Odometry";
    f.topics["/cmd_vel"] = "geometry_msgs/Twist";
    f.topics["/tf"] = "geometry_msgs/Twist"; // not as it should be, and still there
    f.tell();
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QVERIFY(f.device.remappings().set("/odom", "/wheels"));
    QCOMPARE(f.device.offer().topics(), (QMap<QString, QString>()));
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    // The robot's own "/odom" cannot be followed while that name stands for another.
    QCOMPARE(f.device.offer().topics(), (QMap<QString, QString>{{"/battery", "std_msgs/Float32"},
                                                                {"/scan", "sensor_msgs/LaserScan"},
                                                                {"/tf", "geometry_msgs/Twist"}}));
    QVERIFY(f.device.disconnectDevice());
    QCOMPARE(f.device.offer().topics(), (QMap<QString, QString>()));
}

void OfferTest::a_robot_that_does_not_tell_may_have_all_that_is_used()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    const QMap<QString, QString> topics = f.device.offer().topics();
    QCOMPARE(topics.value("/odom"), QString("nav_msgs/Odometry"));
    QVERIFY(!topics.contains("/cmd_vel"));
    QVERIFY(!topics.contains("/control/acquire"));
}

void OfferTest::a_robot_that_has_all_is_asked_once()
{
    Fixture f(brisk());
    f.offerAllBut({});
    QSignalSpy changes(&f.device.offer(), &Offer::changed);
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    f.device.offer().askAgain();
    QVERIFY(f.settle());
    QCOMPARE(questions(f), QStringList({"/rosapi/topics {}", "/rosapi/services {}"}));
}

void OfferTest::what_is_missing_is_asked_for_at_growing_intervals_with_an_end()
{
    Fixture f(brisk());
    f.offerAllBut({"/map"});
    f.robotServices.append("/rosapi/publishers");
    f.robot.answer("/rosapi/publishers", {{"publishers", QCborArray{"/somebody"}}});
    f.tell();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    const int atFirst = int(questions(f).filter("publishers").size());
    QVERIFY(atFirst > 10); // of each topic
    // At first, and after 10, 20 and 40 ms.
    QTRY_COMPARE_WITH_TIMEOUT(questions(f).filter("topics").size(), 4, patience);
    QElapsedTimer quiet;
    quiet.start();
    QTRY_VERIFY_WITH_TIMEOUT(quiet.hasExpired(160), patience); // the time for two more
    QCOMPARE(questions(f).filter("topics").size(), 4);
    QCOMPARE(questions(f).filter("services").size(), 1);
    QCOMPARE(questions(f).filter("publishers").size(), atFirst);

    f.topics["/map"] = "nav_msgs/OccupancyGrid";
    f.tell();
    f.device.offer().askAgain();
    QTRY_COMPARE_WITH_TIMEOUT(f.state("/map"), Offer::State::Offered, patience);
    QVERIFY(f.settle());
    QCOMPARE(questions(f).filter("topics").size(), 5);
    QCOMPARE(questions(f).filter("publishers").size(), atFirst + 1);
}

void OfferTest::what_was_not_answered_is_asked_again()
{
    Fixture f(brisk());
    f.robot.obey(); // without rosapi
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.state("/scan"), Offer::State::Unknown);
    f.offerAllBut({});
    QTRY_COMPARE_WITH_TIMEOUT(f.state("/scan"), Offer::State::Offered, patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.state("/drive/disable"), Offer::State::Offered, patience);
}

void OfferTest::the_log_may_be_that_of_ROS_2()
{
    Fixture f;
    f.offerAllBut({});
    f.topics["/rosout"] = "rcl_interfaces/msg/Log";
    f.topics["/more"] = "rcl_interfaces/msg/Log";
    f.tell();
    QVERIFY(f.connect());
    QVERIFY(f.isReady());
    QCOMPARE(f.lines(), QStringList());
    QCOMPARE(f.state("/rosout"), Offer::State::Offered);
    QCOMPARE(f.device.offer().candidates(*Remappings::find("/rosout")),
             QStringList({"/more", "/rosout"}));
}

TEST_WITH_WINDOWS(OfferTest)

} // namespace offer_test

#include "OfferTest.moc"
