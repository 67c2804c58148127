// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "NamesFixture.h"
#include "TestCase.h"
#include "tests/host/device/RosTypes.h"

#include "robot/Robot.h"
#include "rosbridge/protocol/Topics.h"

#include <QtTest>

namespace foreign_robot_test {

using host::device::connection::Remappings;
using ros_types::Ros;

namespace {

constexpr int patience = 60000;

/// The type of a topic of ours on a robot with this ROS.
QString typeOn(Ros ros, const Remappings::Entry& entry)
{
    const bool isRos2Log = ros != Ros::One && entry.name == rosbridge::protocol::topic::log.name;
    return isRos2Log ? QString(rosbridge::protocol::topic::type::ros2Log) : entry.type;
}

/// A device that follows all topics of a robot which is not ours.
struct Fixture : NamesFixture
{
    explicit Fixture(Ros ros) : ros(ros)
    {
        for (const Remappings::Entry& entry : Remappings::all())
            if (entry.kind == Remappings::Kind::Topic)
                types.insert(entry.name, typeOn(ros, entry));
        robot.obeyRules(ros, types);
        for (auto topic = types.cbegin(); topic != types.cend(); ++topic)
            if (topic.key() != rosbridge::protocol::topic::log.name)
                device.connection().follow(
                    topic.key(), Remappings::find(topic.key())->type,
                    [this, name = topic.key()](const QCborMap&) { hear(name); });
        QObject::connect(&device.robotLog(), &host::device::connection::RobotLog::message,
                         &device.robotLog(),
                         [this] { hear(rosbridge::protocol::topic::log.name); });
        device.robotLog().showAllOfOthers(true);
    }

    void hear(const QString& topic)
    {
        const QString form =
            robot.lastSubscription(topic).value(QLatin1String("compression")).toString();
        heard.insert(topic + (form == "cbor" ? " as CBOR" : " as JSON"));
    }

    bool areAllSubscribed() const
    {
        return std::all_of(types.keyBegin(), types.keyEnd(), [this](const QString& topic) {
            return robot.subscribeCount(topic) > 0;
        });
    }

    Ros ros;
    QMap<QString, QString> types;
    QSet<QString> heard;
};

} // namespace

/// What comes of each topic of robots with the usual servers of ROS 1 and ROS 2.
class ForeignRobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_topic_arrives_data();
    void every_topic_arrives();
    void every_topic_of_our_robot_arrives();
    void what_the_conversion_to_CBOR_drops_is_known_data();
    void what_the_conversion_to_CBOR_drops_is_known();
};

void ForeignRobotTest::every_topic_arrives_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::newRow("ROS 1") << Ros::One;
    QTest::newRow("ROS 2") << Ros::Two;
}

void ForeignRobotTest::every_topic_arrives()
{
    QFETCH(const Ros, ros);
    Fixture f(ros);
    QVERIFY(f.connect());
    QTRY_VERIFY_WITH_TIMEOUT(f.areAllSubscribed(), patience);
    for (auto topic = f.types.cbegin(); topic != f.types.cend(); ++topic)
        f.robot.publish(topic.key(), ros_types::sample(ros, topic.value()));
    QTRY_COMPARE_WITH_TIMEOUT(f.heard.size(), f.types.size(), patience);
    QSet<QString> binary;
    for (const QString& topic : std::as_const(f.heard))
        if (topic.endsWith("CBOR"))
            binary.insert(topic);
    QCOMPARE(binary, QSet<QString>({"/camera/image_raw/compressed as CBOR", "/map as CBOR",
                                    "/scan as CBOR"}));
}

/// It publishes no /tf_static.
void ForeignRobotTest::every_topic_of_our_robot_arrives()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({"127.0.0.1", 0}, &error), qPrintable(error));
    host::device::connection::Connection connection(noHurry());
    QSet<QString> missing;
    for (const Remappings::Entry& entry : Remappings::all()) {
        if (entry.kind != Remappings::Kind::Topic || !entry.isRequired)
            continue;
        missing.insert(entry.name);
        connection.follow(entry.name, entry.type,
                          [&missing, name = entry.name](const QCborMap&) { missing.remove(name); });
    }
    QVERIFY(connection.open(QStringLiteral("127.0.0.1:%1").arg(robot.port())));
    QTRY_COMPARE_WITH_TIMEOUT(missing, QSet<QString>(), patience);
}

void ForeignRobotTest::what_the_conversion_to_CBOR_drops_is_known_data()
{
    QTest::addColumn<Ros>("ros");
    QTest::addColumn<QStringList>("dropped");
    QTest::newRow("ROS 1") << Ros::One
                           << QStringList({"/arm/state", "/camera/camera_info", "/joint_states",
                                           "/odom", "/rosout"});
    QTest::newRow("ROS 2") << Ros::Two << QStringList({"/camera/camera_info", "/odom"});
}

/// So that the test above is one.
void ForeignRobotTest::what_the_conversion_to_CBOR_drops_is_known()
{
    QFETCH(const Ros, ros);
    QFETCH(const QStringList, dropped);
    QStringList found;
    for (const Remappings::Entry& entry : Remappings::all()) {
        const QString type = typeOn(ros, entry);
        if (entry.kind == Remappings::Kind::Topic &&
            !ros_types::toCbor(ros, type, ros_types::sample(ros, type)))
            found += entry.name;
    }
    found.sort();
    QCOMPARE(found, dropped);
}

TEST_WITH_WINDOWS(ForeignRobotTest)

} // namespace foreign_robot_test

#include "ForeignRobotTest.moc"
