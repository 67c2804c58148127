// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Watcher.h"

#include "robot/Robot.h"
#include "rosbridge/protocol/Address.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QDir>
#include <QTemporaryFile>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace robot_test {

using robot::Robot;
using rosbridge::client::Client;

namespace {

/// A robot that listens, and a client that is let in.
class Scene
{
public:
    bool open()
    {
        QString error;
        if (!robot.listen({QStringLiteral("127.0.0.1"), 0}, &error)) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        watcher = std::make_unique<Watcher>(robot.port());
        return QTest::qWaitFor([this] { return watcher->isOpen(); }, patience);
    }

    /// The answer to a call; not ok if there is none.
    Client::Result call(const char* service, const QCborMap& args = {})
    {
        watcher->answers.clear();
        watcher->call(service, args);
        if (!QTest::qWaitFor([this] { return !watcher->answers.isEmpty(); }, patience))
            return {};
        return watcher->answers.first();
    }

    /// The messages of a topic since it was subscribed, as soon as there are @p count; fewer if
    /// they do not come.
    QVector<QCborMap> messages(const char* topic, int count)
    {
        QVector<QCborMap>& received = watcher->messages[QLatin1String(topic)];
        if (!QTest::qWaitFor([&] { return received.size() >= count; }, patience))
            qWarning("%s does not come", topic);
        return received;
    }

    /// Metres, as the last message of /odom has it.
    double wayFromStart()
    {
        const QVector<QCborMap> odometry = messages("/odom", 1);
        const QCborMap last = odometry.value(odometry.size() - 1);
        const QCborValue pose = last.value(QLatin1String("pose"));
        const QCborValue position = pose[QLatin1String("pose")][QLatin1String("position")];
        return std::hypot(position[QLatin1String("x")].toDouble(),
                          position[QLatin1String("y")].toDouble());
    }

    Robot robot{1};
    std::unique_ptr<Watcher> watcher;
};

/// The value at the end of a path of field names, "header.stamp".
QCborValue at(const QCborMap& message, const char* path)
{
    QCborValue value = message;
    const QStringList names = QString::fromLatin1(path).split(QLatin1Char('.'));
    for (const QString& name : names)
        value = value.toMap().value(name);
    return value;
}

/// Nanoseconds.
qint64 stampOf(const QCborMap& message)
{
    return at(message, "header.stamp.secs").toInteger() * 1000000000 +
           at(message, "header.stamp.nsecs").toInteger();
}

QVector<float> rangesOf(const QCborMap& scan)
{
    return rosbridge::protocol::toFloats(scan.value(QLatin1String("ranges")), nullptr)
        .value_or(QVector<float>());
}

struct Point
{
    double x = 0.0;
    double y = 0.0;
};

/// Where a point of the frame "laser" is in the frame "map", as /tf has it.
Point inMap(const QCborMap& frames, Point point)
{
    QString frame = QStringLiteral("laser");
    while (frame != QLatin1String("map")) {
        const QCborArray transforms = frames.value(QLatin1String("transforms")).toArray();
        const auto found =
            std::find_if(transforms.begin(), transforms.end(), [&frame](const QCborValue& one) {
                return at(one.toMap(), "child_frame_id").toString() == frame;
            });
        if (found == transforms.end())
            return {-1.0, -1.0};
        const QCborMap transform = (*found).toMap();
        const double angle = 2.0 * std::atan2(at(transform, "transform.rotation.z").toDouble(),
                                              at(transform, "transform.rotation.w").toDouble());
        point = {at(transform, "transform.translation.x").toDouble() + std::cos(angle) * point.x -
                     std::sin(angle) * point.y,
                 at(transform, "transform.translation.y").toDouble() + std::sin(angle) * point.x +
                     std::cos(angle) * point.y};
        frame = at(transform, "header.frame_id").toString();
    }
    return point;
}

bool isOccupied(const QCborMap& map, Point point)
{
    const double resolution = at(map, "info.resolution").toDouble();
    const qint64 width = at(map, "info.width").toInteger();
    const auto column = static_cast<qint64>(std::floor(point.x / resolution));
    const auto row = static_cast<qint64>(std::floor(point.y / resolution));
    const QCborArray cells = map.value(QLatin1String("data")).toArray();
    return column >= 0 && column < width && row >= 0 && row * width + column < cells.size() &&
           cells.at(row * width + column).toInteger() == 100;
}

QCborMap videoMode(const QCborValue& value)
{
    const QCborMap parameter{{QStringLiteral("name"), QStringLiteral("video_mode")},
                             {QStringLiteral("value"), value}};
    return {{QStringLiteral("config"), QCborMap{{QStringLiteral("strs"), QCborArray{parameter}}}}};
}

/// A recording of the table kind: one scan for each of @p ranges, all rays of it that long, ten
/// scans a second.
void writeTable(QIODevice& file, const QVector<int>& ranges)
{
    int time = 5000000; // microseconds
    for (const int range : ranges) {
        time += 100000;
        const QByteArray other = QByteArray(" 0").repeated(23); // columns that do not matter
        const QByteArray rays = (' ' + QByteArray::number(range)).repeated(683);
        file.write(QByteArray::number(time) + other + rays + '\n');
    }
}

} // namespace

/// Robot: what a client sees of its world.
class RobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void scans_come_as_text_and_binary();
    void the_robot_wanders_and_tells_where_it_is();
    void what_the_laser_sees_lies_on_the_walls_of_the_map();
    void the_map_comes_at_once_to_whoever_subscribes();
    void disabling_the_drive_is_published_and_logged();
    void the_camera_takes_the_resolution_that_was_picked();
    void an_unfit_camera_parameter_is_named_data();
    void an_unfit_camera_parameter_is_named();
    void a_recording_takes_the_lasers_place();
    void a_recording_that_cannot_be_replayed_is_an_error_that_names_it();
    void real_recordings_are_replayed();
};

void RobotTest::scans_come_as_text_and_binary()
{
    Scene scene;
    QVERIFY(scene.open());
    Watcher binary(scene.robot.port());
    QTRY_VERIFY_WITH_TIMEOUT(binary.isOpen(), patience);
    const QString type = QStringLiteral("sensor_msgs/LaserScan");
    binary.subscribe(QStringLiteral("/scan"), type, Client::Compression::Cbor);
    scene.watcher->subscribe(QStringLiteral("/scan"), type);
    QTRY_VERIFY_WITH_TIMEOUT(binary.messages[QStringLiteral("/scan")].size() >= 3, patience);

    const QVector<QCborMap> scans = scene.messages("/scan", 3);
    QVERIFY(scans.size() >= 3);
    QVERIFY(
        binary.messages[QStringLiteral("/scan")].first().value(QLatin1String("ranges")).isTag());
    for (int i = 0; i < 3; ++i) {
        const QVector<float> ranges = rangesOf(scans.at(i));
        QCOMPARE(ranges.size(), 683);
        QVERIFY(std::any_of(ranges.begin(), ranges.end(), [](float range) { return range > 0; }));
        QCOMPARE(at(scans.at(i), "header.frame_id").toString(), QStringLiteral("laser"));
        QCOMPARE(stampOf(scans.at(i)), stampOf(scans.first()) + i * 100000000);
        QCOMPARE(at(scans.at(i), "header.seq").toInteger(),
                 at(scans.first(), "header.seq").toInteger() + i);
    }
    // Both clients get the same measurement.
    const QCborMap twin = binary.messages[QStringLiteral("/scan")].last();
    const auto isTwin = [&twin](const QCborMap& scan) { return stampOf(scan) == stampOf(twin); };
    QVector<QCborMap>& texts = scene.watcher->messages[QStringLiteral("/scan")];
    QTRY_VERIFY_WITH_TIMEOUT(std::any_of(texts.begin(), texts.end(), isTwin), patience);
    QCOMPARE(rangesOf(*std::find_if(texts.begin(), texts.end(), isTwin)), rangesOf(twin));
}

void RobotTest::the_robot_wanders_and_tells_where_it_is()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.watcher->subscribe(QStringLiteral("/odom"), QStringLiteral("nav_msgs/Odometry"));
    const QCborMap first = scene.messages("/odom", 1).value(0);
    QCOMPARE(at(first, "header.frame_id").toString(), QStringLiteral("odom"));
    QCOMPARE(at(first, "child_frame_id").toString(), QStringLiteral("base_link"));
    QCOMPARE(at(first, "pose.covariance").toArray().size(), 36);
    QTRY_VERIFY_WITH_TIMEOUT(scene.wayFromStart() > 0.3, patience);
}

void RobotTest::what_the_laser_sees_lies_on_the_walls_of_the_map()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.watcher->subscribe(QStringLiteral("/odom"), QStringLiteral("nav_msgs/Odometry"));
    QTRY_VERIFY_WITH_TIMEOUT(scene.wayFromStart() > 0.3, patience);
    QVERIFY(scene.call("/control/acquire").ok);
    QVERIFY(scene.call("/drive/disable", {{QStringLiteral("data"), true}}).ok);
    scene.watcher->subscribe(QStringLiteral("/map"), QStringLiteral("nav_msgs/OccupancyGrid"));
    scene.watcher->subscribe(QStringLiteral("/tf"), QStringLiteral("tf2_msgs/TFMessage"));
    scene.watcher->subscribe(QStringLiteral("/scan"), QStringLiteral("sensor_msgs/LaserScan"));
    const QCborMap map = scene.messages("/map", 1).value(0);
    const QCborMap frames = scene.messages("/tf", 2).value(1);
    const QCborMap scan = scene.messages("/scan", 1).value(0);

    int seen = 0;
    int onWalls = 0;
    const QVector<float> ranges = rangesOf(scan);
    for (int i = 0; i < ranges.size(); ++i) {
        if (ranges.at(i) <= 0.0F)
            continue;
        // As far behind the surface as the noise and the cells are coarse.
        const double range = ranges.at(i) + 0.04;
        const double angle =
            at(scan, "angle_min").toDouble() + i * at(scan, "angle_increment").toDouble();
        ++seen;
        if (isOccupied(map, inMap(frames, {range * std::cos(angle), range * std::sin(angle)})))
            ++onWalls;
    }
    QVERIFY(seen > 400);
    QVERIFY2(onWalls > seen * 8 / 10,
             qPrintable(QStringLiteral("%1 of %2").arg(onWalls).arg(seen))); // the rest are people

    const QCborArray transforms = frames.value(QLatin1String("transforms")).toArray();
    QVERIFY(std::any_of(transforms.begin(), transforms.end(), [](const QCborValue& one) {
        return at(one.toMap(), "header.frame_id").toString() == QLatin1String("base_link") &&
               at(one.toMap(), "child_frame_id").toString() ==
                   QLatin1String("camera_optical_frame");
    }));
}

void RobotTest::the_map_comes_at_once_to_whoever_subscribes()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.watcher->subscribe(QStringLiteral("/map"), QStringLiteral("nav_msgs/OccupancyGrid"));
    QCOMPARE(scene.messages("/map", 1).size(), 1);
    Watcher late(scene.robot.port());
    QTRY_VERIFY_WITH_TIMEOUT(late.isOpen(), patience);
    late.subscribe(QStringLiteral("/map"), QStringLiteral("nav_msgs/OccupancyGrid"),
                   Client::Compression::Cbor);
    QTRY_COMPARE_WITH_TIMEOUT(late.messages[QStringLiteral("/map")].size(), 1, patience);
    const QCborMap map = late.messages[QStringLiteral("/map")].first();
    QCOMPARE(map.value(QLatin1String("data")),
             scene.messages("/map", 1).first().value(QLatin1String("data")));
    QCOMPARE(at(map, "header.frame_id").toString(), QStringLiteral("map"));
    QCOMPARE(map.value(QLatin1String("data")).toArray().size(),
             at(map, "info.width").toInteger() * at(map, "info.height").toInteger());
}

void RobotTest::disabling_the_drive_is_published_and_logged()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.watcher->subscribe(QStringLiteral("/drive/disabled"), QStringLiteral("std_msgs/Bool"));
    QCOMPARE(scene.messages("/drive/disabled", 1).value(0),
             (QCborMap{{QStringLiteral("data"), false}}));
    QVERIFY(scene.call("/control/acquire").ok);
    scene.watcher->subscribe(QStringLiteral("/rosout"), QStringLiteral("rosgraph_msgs/Log"));
    scene.watcher->subscribe(QStringLiteral("/odom"), QStringLiteral("nav_msgs/Odometry"));
    QVERIFY(scene.call("/drive/disable", {{QStringLiteral("data"), true}}).ok);
    QCOMPARE(scene.messages("/drive/disabled", 2).value(1),
             (QCborMap{{QStringLiteral("data"), true}}));
    const QCborMap line = scene.messages("/rosout", 1).value(0);
    QCOMPARE(at(line, "name").toString(), QStringLiteral("base"));
    QVERIFY(at(line, "msg").toString().contains(QStringLiteral("disabled")));

    const int before = static_cast<int>(scene.messages("/odom", 0).size());
    const QVector<QCborMap> odometry = scene.messages("/odom", before + 6);
    QVERIFY(odometry.size() >= before + 6);
    // One may have been on its way.
    QCOMPARE(odometry.last().value(QLatin1String("pose")),
             odometry.at(before + 1).value(QLatin1String("pose")));
    QCOMPARE(at(odometry.last(), "twist.twist.linear.x").toDouble(), 0.0);
}

void RobotTest::the_camera_takes_the_resolution_that_was_picked()
{
    Scene scene;
    QVERIFY(scene.open());
    const QString topic = QStringLiteral("/camera/camera_info");
    scene.watcher->subscribe(topic, QStringLiteral("sensor_msgs/CameraInfo"));
    QCOMPARE(at(scene.messages("/camera/camera_info", 1).value(0), "width").toInteger(), 640);
    QVERIFY(!scene.call("/camera/set_parameters", videoMode(QStringLiteral("320x240"))).ok);
    QVERIFY(scene.call("/control/acquire").ok);
    const Client::Result answer =
        scene.call("/camera/set_parameters", videoMode(QStringLiteral("320x240")));
    QVERIFY2(answer.ok, qPrintable(answer.error));
    const QCborMap config = answer.values.value(QLatin1String("config")).toMap();
    for (const char* list : {"bools", "ints", "strs", "doubles", "groups"})
        QVERIFY(config.value(QLatin1String(list)).isArray());
    QCOMPARE(config.value(QLatin1String("strs")), videoMode(QStringLiteral("320x240"))
                                                      .value(QLatin1String("config"))
                                                      .toMap()
                                                      .value(QLatin1String("strs")));
    QCOMPARE(scene.call("/camera/set_parameters", {{QStringLiteral("config"), QCborMap()}})
                 .values.value(QLatin1String("config")),
             QCborValue(config)); // nothing was asked for

    const int before = static_cast<int>(scene.messages("/camera/camera_info", 0).size());
    const QVector<QCborMap> frames = scene.messages("/camera/camera_info", before + 3);
    QVERIFY(frames.size() >= before + 3);
    const QCborMap last = frames.at(before + 2);
    const QCborMap previous = frames.at(before + 1);
    QCOMPARE(at(last, "width").toInteger(), 320);
    QCOMPARE(at(last, "height").toInteger(), 240);
    const qint64 frameCount =
        at(last, "header.seq").toInteger() - at(previous, "header.seq").toInteger();
    QVERIFY(frameCount >= 1);
    QVERIFY(std::abs(stampOf(last) - stampOf(previous) - frameCount * 1000000000 / 30) <= 1);
}

void RobotTest::an_unfit_camera_parameter_is_named_data()
{
    QTest::addColumn<QCborMap>("args");
    QTest::addColumn<QStringList>("named");
    const auto config = [](const char* list, const QCborValue& value) {
        return QCborMap{{QStringLiteral("config"), QCborMap{{QLatin1String(list), value}}}};
    };
    const QCborMap parameter{{QStringLiteral("name"), QStringLiteral("gain")},
                             {QStringLiteral("value"), 1}};
    QTest::newRow("value") << videoMode(QStringLiteral("800x600"))
                           << QStringList{"800x600", "320x240", "640x480", "1024x768"};
    QTest::newRow("value's type") << videoMode(640) << QStringList{"video_mode"};
    QTest::newRow("parameter") << config("ints", QCborArray{parameter})
                               << QStringList{"gain", "config.ints", "video_mode"};
    QTest::newRow("no parameter") << config("strs", QCborArray{7})
                                  << QStringList{"config.strs", "video_mode"};
    QTest::newRow("no list") << config("strs", parameter) << QStringList{"config.strs"};
    QTest::newRow("field") << config("floats", QCborArray()) << QStringList{"floats", "doubles"};
    QTest::newRow("no config") << QCborMap() << QStringList{"config"};
}

void RobotTest::an_unfit_camera_parameter_is_named()
{
    QFETCH(QCborMap, args);
    QFETCH(QStringList, named);
    Scene scene;
    QVERIFY(scene.open());
    QVERIFY(scene.call("/control/acquire").ok);
    const Client::Result answer = scene.call("/camera/set_parameters", args);
    QVERIFY(!answer.ok);
    for (const QString& name : named)
        QVERIFY2(answer.error.contains(name), qPrintable(answer.error));
}

void RobotTest::a_recording_takes_the_lasers_place()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    writeTable(file, {1000, 2000});
    file.write("7 8 9\n");
    file.close();
    Scene scene;
    QString error;
    QStringList problems;
    constexpr double rate = 4.0;
    QVERIFY2(scene.robot.setLaserLog(file.fileName(), rate, &problems, &error), qPrintable(error));
    QCOMPARE(problems.size(), 1);
    QVERIFY2(problems.first().contains(file.fileName() + ":3"), qPrintable(problems.first()));

    QVERIFY(scene.open());
    scene.watcher->subscribe(QStringLiteral("/rosout"), QStringLiteral("rosgraph_msgs/Log"));
    scene.watcher->subscribe(QStringLiteral("/scan"), QStringLiteral("sensor_msgs/LaserScan"));
    const QVector<QCborMap> scans = scene.messages("/scan", 5);
    QVERIFY(scans.size() >= 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(rangesOf(scans.at(i)), QVector<float>(683, i % 2 == 0 ? 1.0F : 2.0F));
        QCOMPARE(at(scans.at(i), "header.frame_id").toString(), QStringLiteral("laser"));
        QCOMPARE(at(scans.at(i), "header.seq").toInteger(), i);
        QVERIFY(i == 0 || stampOf(scans.at(i)) >= stampOf(scans.at(i - 1)));
    }
    // 25 ms apart at this rate, and sent by the next step.
    QVERIFY(stampOf(scans.at(4)) - stampOf(scans.at(0)) >= 90000000);

    const QVector<QCborMap> lines = scene.messages("/rosout", 2);
    QVERIFY(lines.size() >= 2);
    QCOMPARE(at(lines.at(0), "name").toString(), QStringLiteral("laser"));
    QCOMPARE(at(lines.at(0), "level").toInteger(), 2);
    QVERIFY(at(lines.at(0), "msg").toString().contains(file.fileName()));
    QCOMPARE(at(lines.at(1), "name").toString(), QStringLiteral("laser"));
    QCOMPARE(at(lines.at(1), "level").toInteger(), 4);
    QCOMPARE(at(lines.at(1), "msg").toString(), problems.first());
}

void RobotTest::a_recording_that_cannot_be_replayed_is_an_error_that_names_it()
{
    QTemporaryFile empty;
    QVERIFY(empty.open());
    Robot robot(1);
    for (const QString& name : {empty.fileName(), QStringLiteral("/nonexistent/scans.log")}) {
        QString error;
        QStringList problems;
        QVERIFY(!robot.setLaserLog(name, 1.0, &problems, &error));
        QVERIFY2(error.contains(name), qPrintable(error));
    }
}

void RobotTest::real_recordings_are_replayed()
{
    const QString folder = qEnvironmentVariable("QUANDREL_RECORDINGS");
    // The comma is for clang, which wants the macro's second argument to be there.
    if (folder.isEmpty())
        QSKIP("QUANDREL_RECORDINGS is not set to a folder with recordings", );
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
    QVERIFY2(!files.isEmpty(), qPrintable(folder + " has no files"));
    for (const QFileInfo& file : files) {
        Scene scene;
        QString error;
        QStringList problems;
        QVERIFY2(scene.robot.setLaserLog(file.filePath(), 100.0, &problems, &error),
                 qPrintable(error));
        QVERIFY(scene.open());
        scene.watcher->subscribe(QStringLiteral("/scan"), QStringLiteral("sensor_msgs/LaserScan"),
                                 Client::Compression::Cbor);
        const QVector<QCborMap> scans = scene.messages("/scan", 20);
        QVERIFY(scans.size() >= 20);
        for (const QCborMap& scan : scans)
            QVERIFY(!rangesOf(scan).isEmpty());
    }
}

TEST_WITHOUT_WINDOWS(RobotTest)

} // namespace robot_test

#include "RobotTest.moc"
