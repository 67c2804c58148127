// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "NamesFixture.h"
#include "Patience.h"
#include "TestCase.h"

#include "robot/Robot.h"
#include "rosbridge/protocol/Topics.h"

#include <QtTest>

namespace publishing_test {

using Fixture = NamesFixture;
using host::device::connection::Connection;
using ros_types::Ros;
namespace topic = rosbridge::protocol::topic;

namespace {

QCborMap twist(double x)
{
    return {{"linear", QCborMap{{"x", x}, {"y", 0.0}, {"z", 0.0}}},
            {"angular", QCborMap{{"x", 0.0}, {"y", 0.0}, {"z", 0.0}}}};
}

const QString half = R"({"angular":{"x":0,"y":0,"z":0},"linear":{"x":0.5,"y":0,"z":0}})";

/// With the types that a robot with @p ros has for the commands.
void obeyRules(Fixture& f, Ros ros)
{
    f.robot.obeyRules(ros, {{topic::velocityCommand.name, topic::velocityCommand.type},
                            {topic::armCommand.name, "std_msgs/String"}});
}

} // namespace

/// What is published to a robot.
class PublishingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_topic_is_advertised_once_for_each_link();
    void a_topic_is_published_under_the_robots_name();
    void nothing_is_published_without_a_link();
    void a_passive_device_may_publish_and_the_robot_decides();
    void robots_of_both_generations_take_it_data();
    void robots_of_both_generations_take_it();
    void a_refusal_is_in_the_log_data();
    void a_refusal_is_in_the_log();
    void our_robots_refusal_names_the_topic();
};

void PublishingTest::a_topic_is_advertised_once_for_each_link()
{
    Fixture f;
    f.robot.obey();
    for (int link = 1; link <= 2; ++link) {
        QVERIFY(f.connect());
        for (int i = 0; i < 2; ++i)
            QVERIFY(f.device.connection().publish(topic::velocityCommand, twist(0.5)));
        QTRY_COMPARE_WITH_TIMEOUT(int(f.robot.publications().size()), 2 * link, patience);
        QCOMPARE(int(f.robot.advertisements().size()), link);
        QVERIFY(f.device.disconnectDevice());
    }
    QCOMPARE(f.robot.advertisements().first(), QString("/cmd_vel geometry_msgs/Twist"));
    QCOMPARE(f.robot.publications().first(), "/cmd_vel " + half);
}

void PublishingTest::a_topic_is_published_under_the_robots_name()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QVERIFY(f.device.connection().publish(topic::velocityCommand, twist(0.5)));
    QVERIFY(f.device.remappings().set("/cmd_vel", "/base/velocity"));
    QVERIFY(f.device.connection().publish(topic::velocityCommand, twist(0.5)));
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.publications(),
                              QStringList({"/cmd_vel " + half, "/base/velocity " + half}),
                              patience);
    QCOMPARE(f.robot.advertisements(),
             QStringList({"/cmd_vel geometry_msgs/Twist", "/base/velocity geometry_msgs/Twist"}));
}

void PublishingTest::nothing_is_published_without_a_link()
{
    Fixture f;
    f.robot.obey();
    Connection& connection = f.device.connection();
    QVERIFY(!connection.publish(topic::velocityCommand, twist(0.5)));
    QVERIFY(f.device.connectDevice());
    QVERIFY(!connection.publish(topic::velocityCommand, twist(0.5))); // not yet
    QTRY_COMPARE_WITH_TIMEOUT(f.device.connectionState(), 3, patience);
    QVERIFY(f.settle());
    QCOMPARE(f.robot.advertisements(), QStringList());
    QVERIFY(f.device.disconnectDevice());
    QVERIFY(!connection.publish(topic::velocityCommand, twist(0.5)));
    QCOMPARE(f.robot.publications(), QStringList());
}

void PublishingTest::a_passive_device_may_publish_and_the_robot_decides()
{
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    QVERIFY(f.device.connection().publish(topic::velocityCommand, twist(0)));
    QTRY_COMPARE_WITH_TIMEOUT(int(f.robot.publications().size()), 1, patience);
}

void PublishingTest::robots_of_both_generations_take_it_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::newRow("ROS 1") << Ros::One;
    QTest::newRow("ROS 2") << Ros::Two;
}

void PublishingTest::robots_of_both_generations_take_it()
{
    QFETCH(const Ros, ros);
    Fixture f;
    obeyRules(f, ros);
    QVERIFY(f.connect());
    QVERIFY(f.device.connection().publish(topic::velocityCommand, twist(0.5)));
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.publications(), QStringList("/cmd_vel " + half), patience);
}

void PublishingTest::a_refusal_is_in_the_log_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    QTest::newRow("a field") << "/cmd_vel"
                             << "Message type geometry_msgs/Twist does not have a field speed";
    QTest::newRow("the type") << "/arm/command"
                              << "/arm/command has the type std_msgs/String, not "
                                 "trajectory_msgs/JointTrajectory";
}

void PublishingTest::a_refusal_is_in_the_log()
{
    QFETCH(const QString, name);
    QFETCH(const QString, words);
    Fixture f;
    obeyRules(f, Ros::Two);
    QVERIFY(f.connect());
    QSignalSpy refusals(&f.device.connection(), &Connection::publicationRefused);
    QVERIFY(f.device.connection().publish(name == topic::armCommand.name ? topic::armCommand
                                                                         : topic::velocityCommand,
                                          {{"speed", 1}}));
    QTRY_VERIFY_WITH_TIMEOUT(refusals.count() > 0, patience);
    QCOMPARE(refusals.first(), QVariantList({name, "Robot, error: " + words}));
    QTRY_VERIFY_WITH_TIMEOUT(f.lines().contains("1000 Robot, error: " + words), patience);
}

void PublishingTest::our_robots_refusal_names_the_topic()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({"127.0.0.1", 0}, &error), qPrintable(error));
    Connection connection(noHurry());
    QSignalSpy refusals(&connection, &Connection::publicationRefused);
    QVERIFY(connection.open(QStringLiteral("127.0.0.1:%1").arg(robot.port())));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), 3, patience);
    QVERIFY(connection.publish(topic::velocityCommand, {{"speed", 1}}));
    QTRY_COMPARE_WITH_TIMEOUT(int(refusals.count()), 1, patience);
    QCOMPARE(refusals.first().first().toString(), QString("/cmd_vel"));
    QVERIFY(refusals.first().last().toString().contains("speed"));
}

TEST_WITH_WINDOWS(PublishingTest)

} // namespace publishing_test

#include "PublishingTest.moc"
