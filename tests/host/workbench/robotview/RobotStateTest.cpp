#include "RobotMessages.h"
#include "Tell.h"
#include "TestCase.h"

#include "host/device/connection/Remappings.h"
#include "host/workbench/robotview/RobotState.h"

#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(QCborMap)

namespace robot_state_test {

using namespace host::workbench::robotview;
using namespace std::chrono_literals;
using message::with;

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

/// A robot that is connected, and its clock.
struct Robot
{
    Robot()
    {
        state.begin();
        for (int i = 0; i < RobotState::TopicCount; ++i)
            state.setPublished(static_cast<RobotState::Topic>(i), true, now);
    }

    void tell(RobotState::Topic topic, const QCborMap& message)
    {
        ::tell(state, topic, message, now);
    }

    QString notes() const { return state.notes(now).join('\n'); }

    RobotState::TimePoint now = RobotState::Clock::now();
    RobotState state;
};

QCborMap goodMap()
{
    return message::map("map", 3, 2, 0.5, message::pose(1, 2, 0), {0, 50, 100, -1, 0, 0});
}

QCborMap mapInfo(const char* field, const QCborValue& value)
{
    const QCborMap map = goodMap();
    return with(map, "info", with(map["info"].toMap(), field, value));
}

QCborMap goodTransform()
{
    return message::transform("odom", "base_link", 1, 2, 0);
}

QCborMap goodScan()
{
    return message::scan("laser", 0, 0.1, {1, 2, 3});
}

/// Where the frame's point comes to lie, rounded to a millimetre.
QPointF seen(const std::optional<Transform>& place, const QPointF& point = {})
{
    if (!place)
        return {noNumber, noNumber};
    const QPointF mapped = place->onFloor().map(point);
    return {std::round(mapped.x() * 1000) / 1000, std::round(mapped.y() * 1000) / 1000};
}

} // namespace

/// What a robot told, from its messages, good and bad.
class RobotStateTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_topic_can_be_mapped_to_another_name();
    void a_map_lies_where_its_origin_says();
    void a_map_with_a_turned_origin_lies_turned();
    void a_bad_map_changes_nothing_and_is_told_of_data();
    void a_bad_map_changes_nothing_and_is_told_of();
    void the_robot_is_found_through_a_chain_of_frames();
    void a_laser_off_centre_sees_things_in_their_true_place();
    void a_laser_that_is_mounted_upside_down_is_mirrored();
    void static_frames_count_as_well();
    void what_never_moves_does_not_grow_old();
    void a_map_may_lie_in_a_larger_frame();
    void a_leading_slash_of_a_frame_does_not_matter();
    void odometry_alone_places_the_robot();
    void transforms_go_before_odometry();
    void the_robot_is_its_base_link_rather_than_its_footprint();
    void a_map_that_the_robot_has_no_place_on_is_not_shown();
    void a_bad_transform_changes_nothing_and_is_told_of_data();
    void a_bad_transform_changes_nothing_and_is_told_of();
    void frames_never_come_in_a_loop();
    void frames_have_a_bound();
    void bad_odometry_changes_nothing_and_is_told_of();
    void rays_without_an_answer_are_left_out();
    void a_bad_scan_changes_nothing_and_is_told_of_data();
    void a_bad_scan_changes_nothing_and_is_told_of();
    void bad_messages_are_told_of_with_the_robots_name_of_the_topic();
    void rays_stay_where_they_were_measured();
    void rays_take_the_place_of_the_moment_nearest_to_theirs();
    void each_scan_has_a_place_of_its_own();
    void rays_are_placed_anew_in_another_world();
    void the_path_is_where_the_robot_drove();
    void the_path_does_not_guess_the_way_between();
    void the_path_begins_anew_in_another_world();
    void a_long_path_takes_bounded_room();
    void axes_are_told_in_parts();
    void bad_axes_change_nothing_and_are_told_of();
    void what_is_old_says_so();
    void what_is_missing_is_told_plainly();
    void nothing_is_called_missing_before_it_is_due();
    void the_picture_outlives_the_link_and_the_switches_do_not();
    void another_link_begins_with_nothing();
};

void RobotStateTest::every_topic_can_be_mapped_to_another_name()
{
    using host::device::connection::Remappings;
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto& topic = RobotState::info(static_cast<RobotState::Topic>(i)).topic;
        const Remappings::Entry* const entry = Remappings::find(topic.name);
        QVERIFY2(entry, topic.name.data());
        QCOMPARE(entry->type, QString(topic.type));
    }
}

void RobotStateTest::a_map_lies_where_its_origin_says()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    const QImage& cells = robot.state.map()->cells;
    QCOMPARE(cells.size(), QSize(3, 2));
    QCOMPARE(cells.pixelIndex(0, 0), 0);
    QCOMPARE(cells.pixelIndex(1, 0), 50);
    QCOMPARE(cells.pixelIndex(2, 0), 100);
    QCOMPARE(cells.pixelIndex(0, 1), int(GridMap::unknown));
    QCOMPARE(robot.state.map()->resolution, 0.5);
    QCOMPARE(seen(robot.state.mapPlace(), {1.5, 1}), QPointF(2.5, 3));
}

void RobotStateTest::a_map_with_a_turned_origin_lies_turned()
{
    Robot robot;
    robot.tell(RobotState::Map, mapInfo("origin", message::pose(1, 2, pi / 2)));
    QCOMPARE(seen(robot.state.mapPlace(), {1.5, 1}), QPointF(0, 3.5));
}

void RobotStateTest::a_bad_map_changes_nothing_and_is_told_of_data()
{
    const auto origin = [](const QCborMap& position, const QCborMap& orientation) {
        return mapInfo("origin", QCborMap{{"position", position}, {"orientation", orientation}});
    };
    const QCborMap zero{{"x", 0}, {"y", 0}, {"z", 0}, {"w", 0}};
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QCborMap() << "header";
    QTest::newRow("empty") << message::map("map", 0, 0, 0.5, message::pose(0, 0, 0), {}) << "width";
    QTest::newRow("too few cells") << mapInfo("height", 3) << "6 cells, not 3 x 3";
    QTest::newRow("too many cells") << mapInfo("height", 1) << "6 cells, not 3 x 1";
    QTest::newRow("too wide") << mapInfo("width", 40000) << "width";
    QTest::newRow("beyond all numbers") << mapInfo("height", 1e300) << "height";
    QTest::newRow("negative size") << mapInfo("height", -2) << "height";
    QTest::newRow("size with a fraction") << mapInfo("height", 1.5) << "height";
    QTest::newRow("no resolution") << mapInfo("resolution", 0) << "resolution";
    QTest::newRow("resolution nan") << mapInfo("resolution", noNumber) << "resolution";
    QTest::newRow("resolution infinite") << mapInfo("resolution", infinite) << "resolution";
    QTest::newRow("origin nan") << origin(message::vector(noNumber, 0), message::turn(0))
                                << "position.x";
    QTest::newRow("origin beyond the earth")
        << origin(message::vector(0, 1e30), message::turn(0)) << "position.y";
    QTest::newRow("turn not normalised")
        << origin(message::vector(0, 0), with(zero, "w", 2)) << "orientation";
    QTest::newRow("turn zero") << origin(message::vector(0, 0), zero) << "orientation";
    QTest::newRow("turn nan") << origin(message::vector(0, 0), with(zero, "w", noNumber))
                              << "orientation";
    QTest::newRow("cells as text") << with(goodMap(), "data", "map") << "data";
    QTest::newRow("info as text") << with(goodMap(), "info", "map") << "info";
}

void RobotStateTest::a_bad_map_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    QFETCH(const QString, reason);
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    const qint64 cells = robot.state.map()->cells.cacheKey();
    robot.tell(RobotState::Map, message);
    QCOMPARE(robot.state.map()->cells.cacheKey(), cells);
    QCOMPARE(seen(robot.state.mapPlace(), {1.5, 1}), QPointF(2.5, 3));
    QVERIFY2(robot.notes().contains("topic /map is ignored: "), qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains(reason), qPrintable(robot.notes()));
    robot.tell(RobotState::Map, goodMap());
    QVERIFY2(!robot.notes().contains("/map"), qPrintable(robot.notes()));
}

void RobotStateTest::the_robot_is_found_through_a_chain_of_frames()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 10, 0, pi / 2),
                                    message::transform("odom", "base_link", 2, 1, pi / 2)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(9, 2));
    QCOMPARE(seen(robot.state.robotPlace(), {1, 0}), QPointF(8, 2)); // it looks back
}

void RobotStateTest::a_laser_off_centre_sees_things_in_their_true_place()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 10, 0, 0),
                                    message::transform("odom", "base_link", 2, 1, pi / 2),
                                    message::transform("base_link", "laser", 0.2, 0.1, pi / 2)}));
    robot.tell(RobotState::Scan, message::scan("laser", -pi / 2, pi / 2, {1, 2, 3}));
    const auto& hits = robot.state.rays()->hits;
    QCOMPARE(hits.size(), 3);
    // The laser is at (11.9, 1.2) and looks to the left, which is back along the map's x.
    QCOMPARE(seen(robot.state.raysPlace(), hits[0]), QPointF(11.9, 2.2));
    QCOMPARE(seen(robot.state.raysPlace(), hits[1]), QPointF(9.9, 1.2));
    QCOMPARE(seen(robot.state.raysPlace(), hits[2]), QPointF(11.9, -1.8));
}

void RobotStateTest::a_laser_that_is_mounted_upside_down_is_mirrored()
{
    Robot robot;
    const QCborMap upsideDown{{"x", 1}, {"y", 0}, {"z", 0}, {"w", 0}}; // about its nose
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 0, 0, 0),
                                    message::transform("base_link", "laser",
                                                       message::vector(0, 0, 1), upsideDown)}));
    robot.tell(RobotState::Scan, message::scan("laser", pi / 2, 0, {1}));
    QCOMPARE(seen(robot.state.raysPlace(), robot.state.rays()->hits[0]), QPointF(0, -1));
}

void RobotStateTest::static_frames_count_as_well()
{
    Robot robot;
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("base_link", "laser", 0.5, 0, 0)}));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.tell(RobotState::Scan, goodScan());
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1.5, 2));
}

void RobotStateTest::what_never_moves_does_not_grow_old()
{
    Robot robot;
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("base_footprint", "base_link", 0, 0, 0)}));
    const QCborMap place =
        message::transforms({message::transform("odom", "base_footprint", 1, 2, 0)});
    robot.tell(RobotState::Transforms, place);
    robot.now += 1h;
    QVERIFY2(robot.notes().contains("position is"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms, place);
    QVERIFY2(!robot.notes().contains("position is"), qPrintable(robot.notes()));
}

void RobotStateTest::a_map_may_lie_in_a_larger_frame()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("earth", "map", 1000, 2000, pi / 2),
                                    message::transform("earth", "base_link", 1000, 2005, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(5, 0));
    QCOMPARE(seen(robot.state.mapPlace()), QPointF(1, 2));
}

void RobotStateTest::a_leading_slash_of_a_frame_does_not_matter()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("/odom", "/base_link", 1, 2, 0),
                                    message::transform("base_link", "laser", 1, 0, 0)}));
    robot.tell(RobotState::Scan, message::scan("/laser", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 2));
}

void RobotStateTest::odometry_alone_places_the_robot()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "robot", 1, 2, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
    robot.tell(RobotState::Odometry, message::odometry("odom", "robot", 3, 2, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(3, 2));
    robot.tell(RobotState::Scan, goodScan());
    QVERIFY(!robot.state.raysPlace());
    QVERIFY2(robot.notes().contains("The laser is not shown") && robot.notes().contains("laser\""),
             qPrintable(robot.notes()));
    robot.tell(RobotState::Scan, message::scan("robot", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(3, 2));
}

void RobotStateTest::transforms_go_before_odometry()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("corrected", "base_link", 5, 6, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(5, 6));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 3, 0));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(5, 6));
}

void RobotStateTest::the_robot_is_its_base_link_rather_than_its_footprint()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_footprint", 1, 0, 0),
                                    message::transform("base_footprint", "base_link", 0.5, 0, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1.5, 0));
}

void RobotStateTest::a_map_that_the_robot_has_no_place_on_is_not_shown()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    QVERIFY(robot.state.mapPlace());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    QVERIFY(!robot.state.mapPlace());
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
    QVERIFY2(robot.notes().contains("The map is not shown"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 10, 0, 0)}));
    QVERIFY(robot.state.mapPlace());
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(11, 2));
}

void RobotStateTest::a_bad_transform_changes_nothing_and_is_told_of_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::addColumn<QString>("reason");
    const auto newRow = [](const char* name, const QCborMap& transform, const char* reason) {
        // One that is good goes before it, and counts for nothing.
        QTest::newRow(name) << message::transforms(
                                   {message::transform("odom", "base_link", 7, 7, 0), transform})
                            << reason;
    };
    const QCborMap good = goodTransform();
    const QCborMap turn = message::turn(0);
    const auto moved = [&](const QCborMap& shift, const QCborMap& turn) {
        return message::transform("odom", "base_link", shift, turn);
    };
    newRow("nan", moved(message::vector(noNumber, 0), turn), "translation.x");
    newRow("infinite", moved(message::vector(0, -infinite), turn), "translation.y");
    newRow("beyond the earth", moved(message::vector(0, 0, 1e9), turn), "translation.z");
    newRow("not normalised", moved(message::vector(0, 0), with(turn, "w", 1.1)), "rotation");
    newRow("turn nan", moved(message::vector(0, 0), with(turn, "z", noNumber)), "rotation");
    newRow("turn missing", moved(message::vector(0, 0), {}), "rotation.x");
    newRow("no child", with(good, "child_frame_id", ""), "child_frame_id");
    newRow("child a number", with(good, "child_frame_id", 1), "child_frame_id");
    newRow("no parent", with(good, "header", message::header("/")), "frame_id");
    newRow("its own parent", message::transform("a", "a", 0, 0, 0), "ancestor of its own");
    newRow("no stamp", with(good, "header", QCborMap{{"frame_id", "odom"}}), "stamp");
    newRow("nothing", {}, "header");
    QTest::newRow("not even a list") << QCborMap{{"transforms", "odom"}} << "no array";
    QTest::newRow("nothing at all") << QCborMap() << "no array";
}

void RobotStateTest::a_bad_transform_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    QFETCH(const QString, reason);
    Robot robot;
    robot.tell(RobotState::Transforms, message::transforms({goodTransform()}));
    robot.tell(RobotState::Transforms, message);
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
    QVERIFY2(robot.notes().contains("topic /tf is ignored: "), qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains(reason), qPrintable(robot.notes()));
}

void RobotStateTest::frames_never_come_in_a_loop()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("map", "odom", 1, 0, 0),
                                    message::transform("odom", "base_link", 1, 0, 0)}));
    for (const char* ancestor : {"map", "odom"}) {
        robot.tell(RobotState::Transforms,
                   message::transforms({message::transform("base_link", ancestor, 1, 0, 0)}));
        QVERIFY2(robot.notes().contains("ancestor of its own"), qPrintable(robot.notes()));
        QCOMPARE(seen(robot.state.robotPlace()), QPointF(2, 0));
    }
    // Within one message as well.
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("x", "y", 1, 0, 0),
                                    message::transform("y", "z", 1, 0, 0),
                                    message::transform("z", "x", 1, 0, 0)}));
    QVERIFY2(robot.notes().contains("ancestor of its own"), qPrintable(robot.notes()));
    robot.tell(RobotState::Scan, message::scan("z", 0, 0.1, {1}));
    QVERIFY(!robot.state.raysPlace());
}

void RobotStateTest::frames_have_a_bound()
{
    Robot robot;
    robot.tell(RobotState::Transforms, message::transforms({goodTransform()}));
    for (int i = 0; i < 2000; ++i)
        robot.tell(RobotState::Transforms,
                   message::transforms({message::transform("odom", QString::number(i), 0, 0, 0)}));
    QVERIFY2(robot.notes().contains("more than 1000 frames"), qPrintable(robot.notes()));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 3, 4, 0)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(3, 4));
}

void RobotStateTest::bad_odometry_changes_nothing_and_is_told_of()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    const QCborMap good = message::odometry("odom", "base_link", 3, 4, 0);
    for (const QCborMap& bad :
         {QCborMap(), with(good, "pose", "here"), with(good, "child_frame_id", QCborValue()),
          with(good, "child_frame_id", "odom"),
          message::odometry("odom", "other", noNumber, 0, 0)}) {
        robot.tell(RobotState::Odometry, bad);
        QCOMPARE(seen(robot.state.robotPlace()), QPointF(1, 2));
        QVERIFY2(robot.notes().contains("topic /odom is ignored: "), qPrintable(robot.notes()));
    }

    Robot other; // which calls itself as no other does
    other.tell(RobotState::Odometry, message::odometry("odom", "its_base", 1, 2, 0));
    other.tell(RobotState::Odometry, message::odometry("its_base", "odom", 1, 2, 0));
    QVERIFY2(other.notes().contains("topic /odom is ignored: "), qPrintable(other.notes()));
    QCOMPARE(seen(other.state.robotPlace()), QPointF(1, 2));
}

void RobotStateTest::rays_without_an_answer_are_left_out()
{
    Robot robot;
    robot.tell(
        RobotState::Scan,
        message::scan("laser", 0, 0.1, {1, noNumber, infinite, -infinite, 0, 0.05, 5.1, -1, 2}));
    const LaserRays& rays = *robot.state.rays();
    QCOMPARE(rays.hits.size(), 2);
    QCOMPARE(rays.hits[0], QPointF(1, 0));
    QCOMPARE(QLineF({0, 0}, rays.hits[1]).length(), 2.0);
    QCOMPARE(rays.swept.size(), 4); // back to the laser between them
    QCOMPARE(rays.swept[2], QPointF(0, 0));
    robot.tell(RobotState::Scan, message::scan("laser", 0, 0.1, {1, 3, 2}));
    QCOMPARE(robot.state.rays()->reach, 3.0);
    robot.tell(RobotState::Scan, with(message::scan("laser", 0, 0.1, {0, 1}), "range_min", 0));
    QCOMPARE(robot.state.rays()->hits.size(), 1);
    robot.tell(RobotState::Scan, message::scan("laser", 0, 0.1, {}));
    QVERIFY(robot.state.rays()->hits.isEmpty());
    // A laser without limits is still one on the earth.
    robot.tell(RobotState::Scan, with(with(message::scan("laser", 0, 0.1, {-1, 1e20, infinite, 7}),
                                           "range_max", noNumber),
                                      "range_min", -infinite));
    QVERIFY(robot.state.rays()->hits.isEmpty());
    robot.tell(RobotState::Scan, with(with(message::scan("laser", 0, 0.1, {-1, 1e20, infinite, 7}),
                                           "range_max", infinite),
                                      "range_min", -infinite));
    QCOMPARE(robot.state.rays()->hits.size(), 1);
    QCOMPARE(QLineF({0, 0}, robot.state.rays()->hits[0]).length(), 7.0);
}

void RobotStateTest::a_bad_scan_changes_nothing_and_is_told_of_data()
{
    QTest::addColumn<QCborMap>("message");
    QTest::newRow("nothing") << QCborMap();
    QTest::newRow("ranges as text") << with(goodScan(), "ranges", "far");
    QTest::newRow("angle nan") << with(goodScan(), "angle_min", noNumber);
    QTest::newRow("increment infinite") << with(goodScan(), "angle_increment", infinite);
    QTest::newRow("no header") << with(goodScan(), "header", QCborValue());
}

void RobotStateTest::a_bad_scan_changes_nothing_and_is_told_of()
{
    QFETCH(const QCborMap, message);
    Robot robot;
    robot.tell(RobotState::Scan, goodScan());
    robot.tell(RobotState::Scan, message);
    QCOMPARE(robot.state.rays()->hits.size(), 3);
    QVERIFY(robot.state.raysPlace());
    QVERIFY2(robot.notes().contains("topic /scan is ignored: "), qPrintable(robot.notes()));
}

void RobotStateTest::bad_messages_are_told_of_with_the_robots_name_of_the_topic()
{
    Robot robot;
    for (int i = 0; i < RobotState::TopicCount; ++i) {
        const auto topic = static_cast<RobotState::Topic>(i);
        robot.state.setName(topic, "/robot_2" + QString(RobotState::info(topic).topic.name));
        robot.tell(topic, {});
        const QString words = QString("topic /robot_2%1 is ignored: ");
        QVERIFY2(robot.notes().contains(words.arg(RobotState::info(topic).topic.name)),
                 qPrintable(robot.notes()));
    }
}

void RobotStateTest::rays_stay_where_they_were_measured()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 1, 0, 0, 1000)}));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}, 1000));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 2, 0, 0, 1030)}));
    QCOMPARE(seen(robot.state.robotPlace()), QPointF(2, 0));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1, 0));
}

void RobotStateTest::rays_take_the_place_of_the_moment_nearest_to_theirs()
{
    Robot robot;
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 1, 0, 0, 970)}));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}, 1000));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1, 0));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 2, 0, 0, 1000)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 0));
    robot.tell(RobotState::Transforms,
               message::transforms({message::transform("odom", "base_link", 3, 0, 0, 1030)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 0));

    for (const int x : {4, 5}) // a robot without a clock: all its moments are equally near
        robot.tell(RobotState::Transforms,
                   message::transforms({message::transform("odom", "base_link", x, 0, 0, 1000)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(2, 0));
}

void RobotStateTest::each_scan_has_a_place_of_its_own()
{
    Robot robot;
    for (const int second : {1, 2}) {
        const int stamp = second * 1000;
        robot.tell(
            RobotState::Transforms,
            message::transforms({message::transform("odom", "base_link", second, 0, 0, stamp)}));
        robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}, stamp));
        QCOMPARE(seen(robot.state.raysPlace()), QPointF(second, 0));
    }
    robot.tell(RobotState::Scan, message::scan("nowhere", 0, 0.1, {1}, 2000));
    QVERIFY(!robot.state.raysPlace());
}

void RobotStateTest::rays_are_placed_anew_in_another_world()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 0, 0));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(1, 0));
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("map", "odom", 100, 0, 0)}));
    QCOMPARE(seen(robot.state.raysPlace()), QPointF(101, 0));
}

void RobotStateTest::the_path_is_where_the_robot_drove()
{
    Robot robot;
    for (const double x : {0.0, 1.0, 1.0, 1.001, 2.0})
        robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", x, 0, 0));
    QCOMPARE(robot.state.path().lines(), QVector<QLineF>({QLineF(0, 0, 1, 0), QLineF(1, 0, 2, 0)}));
    robot.tell(RobotState::Scan, goodScan()); // tells nothing of the place
    QCOMPARE(robot.state.path().lines().size(), 2);
}

void RobotStateTest::the_path_does_not_guess_the_way_between()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 0, 0, 0));
    robot.now += 3s;
    robot.tell(RobotState::Scan, goodScan());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 5, 0, 0));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 6, 0, 0));
    QCOMPARE(robot.state.path().lines(), QVector<QLineF>({QLineF(5, 0, 6, 0)}));
}

void RobotStateTest::the_path_begins_anew_in_another_world()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 0, 0, 0));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 0, 0));
    QCOMPARE(robot.state.path().lines().size(), 1);
    robot.now += 1s;
    robot.tell(RobotState::StaticTransforms,
               message::transforms({message::transform("map", "odom", 100, 0, 0)}));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 2, 0, 0));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 3, 0, 0));
    QCOMPARE(robot.state.path().lines(), QVector<QLineF>({QLineF(102, 0, 103, 0)}));
}

void RobotStateTest::a_long_path_takes_bounded_room()
{
    Path path;
    constexpr int steps = 20000;
    for (int i = 0; i <= steps; ++i) {
        path.add(QPointF(0.1 * i, 0));
        QVERIFY(path.lines().size() <= Path::mostLines);
    }
    QVERIFY(path.lines().size() > Path::mostLines / 4);
    QCOMPARE(path.lines().first().p1(), QPointF(0, 0)); // it is whole, and only coarser
    QVERIFY(path.lines().last().x2() > 0.1 * steps - 10);
    for (int i = 1; i < path.lines().size(); ++i)
        QCOMPARE(path.lines()[i].p1(), path.lines()[i - 1].p2());
    QVERIFY(path.lines().last().length() > 0.15); // coarser than what is added now, too

    path.clear();
    for (int i = 0; i <= 2 * Path::mostLines; ++i) { // single lines, that none can be left out of
        path.interrupt();
        path.add(QPointF(i, 0));
        path.add(QPointF(i + 0.9, 0));
        QVERIFY(path.lines().size() <= Path::mostLines);
    }
    QCOMPARE(path.lines().last(), QLineF(2 * Path::mostLines, 0, 2 * Path::mostLines + 0.9, 0));
}

void RobotStateTest::axes_are_told_in_parts()
{
    Robot robot;
    QVERIFY(!robot.state.axis(0).present);
    robot.tell(RobotState::JointStates,
               message::jointStates({"wheel", "axis8", "axis0"}, {9, 8, 1}));
    robot.tell(RobotState::JointStates, message::jointStates({"axis1"}, {2}));
    robot.tell(RobotState::ArmState, message::armState({"axis0", "axis1"}, {10, 20}));
    QCOMPARE(robot.state.axis(0).present, std::optional<float>(1.0F));
    QCOMPARE(robot.state.axis(1).present, std::optional<float>(2.0F));
    QCOMPARE(robot.state.axis(8).present, std::optional<float>(8.0F));
    QVERIFY(!robot.state.axis(2).present);
    QCOMPARE(robot.state.axis(0).target, std::optional<float>(10.0F));
    QCOMPARE(robot.state.axis(1).target, std::optional<float>(20.0F));
    QVERIFY(!robot.state.axis(8).target);
    robot.now += 3s;
    robot.tell(RobotState::JointStates, message::jointStates({"wheel"}, {9}));
    QCOMPARE(robot.state.overdue(RobotState::JointStates, robot.now), QString("3 s"));
}

void RobotStateTest::bad_axes_change_nothing_and_are_told_of()
{
    Robot robot;
    robot.tell(RobotState::JointStates, message::jointStates({"axis0"}, {1}));
    robot.tell(RobotState::ArmState, message::armState({"axis0"}, {2}));
    for (const QCborMap& bad : {message::jointStates({"axis0"}, {}),
                                message::jointStates({"axis0", "axis1"}, {5, noNumber}),
                                message::jointStates({"axis0", "axis1"}, {5}), QCborMap()})
        robot.tell(RobotState::JointStates, bad);
    robot.tell(RobotState::ArmState, message::armState({"axis0"}, {infinite}));
    QCOMPARE(robot.state.axis(0).present, std::optional<float>(1.0F));
    QCOMPARE(robot.state.axis(0).target, std::optional<float>(2.0F));
    QVERIFY2(robot.notes().contains("topic /joint_states is ignored: "), qPrintable(robot.notes()));
    QVERIFY2(robot.notes().contains("topic /arm/state is ignored: "), qPrintable(robot.notes()));
    robot.tell(RobotState::Torque, message::truth(true));
    robot.tell(RobotState::Torque, QCborMap{{"data", 0}});
    QCOMPARE(robot.state.isSet(RobotState::Torque), std::optional<bool>(true));
}

void RobotStateTest::what_is_old_says_so()
{
    Robot robot;
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.tell(RobotState::Scan, message::scan("base_link", 0, 0.1, {1}));
    robot.tell(RobotState::JointStates, message::jointStates({"axis0"}, {1}));
    robot.tell(RobotState::ArmState, message::armState({"axis0"}, {1}));
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Torque, message::truth(true));
    robot.now += 2s;
    QVERIFY2(!robot.notes().contains("old"), qPrintable(robot.notes()));
    robot.now += 10s;
    for (const char* note :
         {"The position is 12 s old.", "The laser's scan is 12 s old.",
          "The axes' positions are 12 s old.", "The axes' targets are 12 s old."})
        QVERIFY2(robot.notes().contains(note), qPrintable(robot.notes()));
    QCOMPARE(robot.notes().count("old"), 4); // a state does not grow old
    robot.now += 107s;
    QVERIFY2(robot.notes().contains("The position is 119 s old."), qPrintable(robot.notes()));
    robot.now += 1s;
    QVERIFY2(robot.notes().contains("The position is 2 min old."), qPrintable(robot.notes()));
    robot.now += 1min;
    QVERIFY2(robot.notes().contains("The position is 3 min old."), qPrintable(robot.notes()));
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    QVERIFY2(!robot.notes().contains("position is"), qPrintable(robot.notes()));
}

void RobotStateTest::what_is_missing_is_told_plainly()
{
    RobotState state;
    const auto now = RobotState::Clock::now();
    state.begin();
    for (int i = 0; i < RobotState::TopicCount; ++i)
        state.setPublished(static_cast<RobotState::Topic>(i), false, now);
    QCOMPARE(state.notes(now),
             QStringList({"No map: the robot does not publish /map.",
                          "No position: the robot does not publish /tf or /odom.",
                          "No laser: the robot does not publish /scan.",
                          "No axes of the arm: the robot does not publish /joint_states."}));
}

void RobotStateTest::nothing_is_called_missing_before_it_is_due()
{
    RobotState state;
    const auto now = RobotState::Clock::now();
    state.begin();
    QCOMPARE(state.notes(now + 1h), QStringList()); // nobody asked yet
    state.setPublished(RobotState::Map, true, now);
    state.setPublished(RobotState::Odometry, true, now);
    state.setPublished(RobotState::Scan, true, now);
    state.setPublished(RobotState::JointStates, true, now);
    QCOMPARE(state.notes(now + 2s), QStringList());
    state.setPublished(RobotState::Map, true, now + 2s); // that was known
    QCOMPARE(state.notes(now + 3s).first(), QString("No map: nothing fit has come on /map yet."));
}

void RobotStateTest::the_picture_outlives_the_link_and_the_switches_do_not()
{
    Robot robot;
    robot.now -= 1h; // when it was seen last
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Torque, message::truth(true));
    for (int frame = 0; frame < 20; ++frame) {
        robot.now += 100ms;
        robot.tell(RobotState::Camera, message::cameraInfo());
    }
    QVERIFY(robot.state.cameraRate(robot.now) > 0);
    robot.state.end(robot.now + 1h);
    QVERIFY(!robot.state.isConnected());
    QCOMPARE(robot.state.cameraRate(robot.now), 0U);
    QVERIFY(robot.state.mapPlace());
    QVERIFY(!robot.state.isSet(RobotState::Torque));
    const QDateTime seen = QDateTime::currentDateTime().addSecs(-3600);
    const auto words = [](const QDateTime& time) {
        return "Not connected: last seen " + time.toString("HH:mm:ss") + ".";
    };
    QVERIFY2(QStringList({words(seen), words(seen.addSecs(-1)), words(seen.addSecs(-2))})
                 .contains(robot.notes()),
             qPrintable(robot.notes()));
}

void RobotStateTest::another_link_begins_with_nothing()
{
    Robot robot;
    robot.tell(RobotState::Map, goodMap());
    robot.tell(RobotState::Odometry, message::odometry("odom", "base_link", 1, 2, 0));
    robot.state.end(robot.now);
    robot.state.begin();
    QVERIFY(robot.state.isConnected());
    QVERIFY(!robot.state.map());
    QVERIFY(!robot.state.robotPlace());
    QCOMPARE(robot.notes(), QString());

    RobotState unseen;
    QCOMPARE(unseen.notes(robot.now), QStringList("Not connected."));
}

TEST_WITHOUT_WINDOWS(RobotStateTest)

} // namespace robot_state_test

#include "RobotStateTest.moc"
