// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Watcher.h"
#include "tests/rosbridge/RosMessages.h"
#include "tests/rosbridge/TestBag.h"

#include "robot/PlayedRobot.h"
#include "robot/recording/BagPlayer.h"
#include "rosbridge/protocol/Address.h"
#include "rosbridge/protocol/Fields.h"

#include <QCborArray>
#include <QtTest>

namespace played_robot_test {

using robot::PlayedRobot;
using robot::recording::BagPlayer;
using rosbridge::client::Client;
using rosbridge::protocol::Fields;

namespace {

/// A bag that is served, and a client.
class Scene
{
public:
    bool play(TestBag& bag, const BagPlayer::Options& options = {})
    {
        bag.close();
        QString error;
        auto player = BagPlayer::open(bag.path(), options, &error);
        if (player)
            robot = std::make_unique<PlayedRobot>(std::move(player));
        if (!robot || !robot->listen({QStringLiteral("127.0.0.1"), 0}, &error)) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        return join();
    }

    bool join()
    {
        watcher = std::make_unique<Watcher>(robot->port());
        return QTest::qWaitFor([this] { return watcher->isOpen(); }, patience);
    }

    QVector<QCborMap>& messages(const char* topic) const
    {
        return watcher->messages[QLatin1String(topic)];
    }

    /// The texts of a topic.
    QStringList texts(const char* topic, const char* field = "data") const
    {
        QStringList texts;
        for (const QCborMap& message : messages(topic))
            texts.append(message.value(QLatin1String(field)).toString());
        return texts;
    }

    QCborMap call(const char* service, const QCborMap& args = {}) const
    {
        watcher->answers.clear();
        watcher->call(service, args);
        if (!QTest::qWaitFor([this] { return !watcher->answers.isEmpty(); }, patience))
            return {};
        return watcher->answers.first().values;
    }

    std::unique_ptr<PlayedRobot> robot;
    std::unique_ptr<Watcher> watcher;
};

} // namespace

/// PlayedRobot: a bag as its clients have it, over real sockets.
class PlayedRobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_subscriber_gets_the_recorded_messages();
    void it_begins_when_somebody_subscribes_and_again_for_the_next();
    void what_is_latched_is_told_to_all();
    void types_of_others_are_described();
    void what_the_robot_has_itself_is_left_out_and_said();
    void the_recorded_log_joins_the_robots_own();
    void the_clock_is_the_recordings();
    void a_clock_in_the_bag_is_played();
};

void PlayedRobotTest::a_subscriber_gets_the_recorded_messages()
{
    TestBag bag;
    bag.write("/base_scan", 0, ros_messages::scan());
    Scene scene;
    QVERIFY(scene.play(bag));
    scene.watcher->subscribe("/base_scan", "sensor_msgs/LaserScan", Client::Compression::Cbor);
    QTRY_COMPARE_WITH_TIMEOUT(scene.messages("/base_scan").size(), 1, patience);
    QString error;
    Fields scan(scene.messages("/base_scan").first(), &error);
    QCOMPARE(scan.floats("ranges").at(2), 0.1F);
    QCOMPARE(scan.object("header").object("stamp").integer("secs", 0, 2000000000),
             qint64{1600000000});
    QCOMPARE(error, QString());
}

void PlayedRobotTest::it_begins_when_somebody_subscribes_and_again_for_the_next()
{
    TestBag bag;
    bag.write("/a", 0, "first");
    bag.write("/a", 0.02, "last");
    const QStringList all{"first", "last"};
    Scene scene;
    QVERIFY(scene.play(bag));
    scene.watcher->subscribe("/rosout", "rosgraph_msgs/Log");
    scene.call("/rosapi/topics"); // by now it would have begun
    scene.watcher->subscribe("/a", "std_msgs/String");
    QTRY_COMPARE_WITH_TIMEOUT(scene.texts("/a"), all, patience);
    QTRY_VERIFY_WITH_TIMEOUT(scene.texts("/rosout", "msg").contains("the recording is over"),
                             patience);
    QVERIFY(scene.join());
    scene.watcher->subscribe("/clock", "rosgraph_msgs/Clock");
    // By now the robot has noticed that nobody hears its bag any more.
    QTRY_VERIFY_WITH_TIMEOUT(scene.messages("/clock").size() >= 3, patience);
    scene.watcher->subscribe("/a", "std_msgs/String");
    QTRY_COMPARE_WITH_TIMEOUT(scene.texts("/a"), all, patience);
}

void PlayedRobotTest::what_is_latched_is_told_to_all()
{
    TestBag bag;
    bag.writeLatched("/map", 0, "map");
    bag.write("/a", 0.01, "a");
    Scene scene;
    QVERIFY(scene.play(bag));
    scene.watcher->subscribe("/a", "std_msgs/String");
    QTRY_COMPARE_WITH_TIMEOUT(scene.texts("/a"), QStringList("a"), patience);
    scene.watcher->subscribe("/map", "std_msgs/String");
    QTRY_COMPARE_WITH_TIMEOUT(scene.texts("/map"), QStringList("map"), patience);
}

void PlayedRobotTest::types_of_others_are_described()
{
    std_msgs::UInt64MultiArray numbers;
    numbers.layout.dim.resize(1);
    numbers.data = {1, 2};
    TestBag bag;
    bag.write("/numbers", 0, numbers);
    Scene scene;
    QVERIFY(scene.play(bag));
    const QCborArray details =
        scene.call("/rosapi/message_details", {{"type", "std_msgs/UInt64MultiArray"}})
            .value("typedefs")
            .toArray();
    QCOMPARE(details.size(), 3);
    QCOMPARE(details.at(0)["fieldnames"], QCborValue(QCborArray{"layout", "data"}));
    QCOMPARE(details.at(0)["fieldarraylen"], QCborValue(QCborArray{-1, 0}));
}

void PlayedRobotTest::what_the_robot_has_itself_is_left_out_and_said()
{
    TestBag bag;
    bag.write("/stopped", 0, "yes");
    bag.writeUndefined("/secret", 0);
    bag.write("/a", 0, "a");
    Scene scene;
    QVERIFY(scene.play(bag));
    scene.watcher->subscribe("/rosout", "rosgraph_msgs/Log");
    scene.watcher->subscribe("/a", "std_msgs/String");
    QTRY_COMPARE_WITH_TIMEOUT(scene.texts("/a"), QStringList("a"), patience);
    QCOMPARE(scene.robot->problems().size(), 2);
    const QStringList log = scene.texts("/rosout", "msg");
    for (const QString& problem : scene.robot->problems())
        QVERIFY2(log.contains(problem), qPrintable(problem));
    const QCborArray topics = scene.call("/rosapi/topics").value("topics").toArray();
    QCOMPARE(topics, (QCborArray{"/a", "/clock", "/rosout", "/stopped"}));
}

void PlayedRobotTest::the_recorded_log_joins_the_robots_own()
{
    rosgraph_msgs::Log line;
    line.name = "laser";
    line.msg = "too hot";
    TestBag bag;
    bag.write("/rosout", 0, line);
    Scene scene;
    QVERIFY(scene.play(bag));
    scene.watcher->subscribe("/rosout", "rosgraph_msgs/Log");
    QTRY_VERIFY_WITH_TIMEOUT(scene.texts("/rosout", "msg").contains("too hot"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(scene.texts("/rosout", "msg").contains("the recording is over"),
                             patience);
}

void PlayedRobotTest::the_clock_is_the_recordings()
{
    TestBag bag;
    bag.write("/a", 0, "first");
    bag.write("/a", 1000, "last");
    BagPlayer::Options options;
    options.start = std::chrono::seconds(500);
    options.rate = 100.0;
    Scene scene;
    QVERIFY(scene.play(bag, options));
    scene.watcher->subscribe("/clock", "rosgraph_msgs/Clock");
    scene.watcher->subscribe("/a", "std_msgs/String");
    const auto seconds = [&scene] {
        QVector<QCborMap>& clocks = scene.messages("/clock");
        return clocks.isEmpty() ? 0 : clocks.last().value("clock")["secs"].toInteger();
    };
    QTRY_VERIFY_WITH_TIMEOUT(seconds() > 1600000505, patience);
    QVERIFY(scene.messages("/clock").first().value("clock")["secs"].toInteger() >= 1600000500);
    QCOMPARE(scene.texts("/a"), QStringList()); // both are far away
}

void PlayedRobotTest::a_clock_in_the_bag_is_played()
{
    rosgraph_msgs::Clock clock;
    clock.clock = ros::Time(5, 0);
    TestBag bag;
    bag.write("/clock", 0, clock);
    Scene scene;
    QVERIFY(scene.play(bag));
    scene.watcher->subscribe("/clock", "rosgraph_msgs/Clock");
    QTRY_COMPARE_WITH_TIMEOUT(scene.messages("/clock").size(), 1, patience);
    QCOMPARE(scene.messages("/clock").first().value("clock")["secs"], QCborValue(5));
}

TEST_WITHOUT_WINDOWS(PlayedRobotTest)

} // namespace played_robot_test

#include "PlayedRobotTest.moc"
