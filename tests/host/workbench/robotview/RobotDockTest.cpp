// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DockOfRobot.h"
#include "Patience.h"
#include "RobotMessages.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/robotview/RobotDock.h"
#include "host/workbench/robotview/WorldView.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QSignalSpy>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

#include <memory>

namespace robot_dock_test {

using namespace host::workbench::robotview;
using host::device::connection::Connection;
using host::workbench::EmbeddedRobot;

namespace {

const char* const joints = "sensor_msgs/JointState";

struct Workbench : DockOfRobot<RobotDock>
{
    using DockOfRobot::DockOfRobot;

    QString cell(int row, int column = RobotModel::PresentColumn) const
    {
        return index(row, column).data().toString();
    }

    QModelIndex index(int row, int column) const
    {
        return part<QTreeView>("parts")->model()->index(row, column);
    }

    QString notes() const { return part<QLabel>("notes")->text(); }
};

void publish(FakeRobot& robot, const QStringList& topics)
{
    robot.answer("/rosapi/topics", {{"topics", QCborArray::fromStringList(topics)}});
}

} // namespace

/// The dock with a robot, and without one.
class RobotDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_hidden_at_first_and_follows_nothing();
    void all_parts_are_in_sight_in_a_small_window();
    void it_follows_while_it_is_shown();
    void it_follows_only_what_the_robot_publishes();
    void a_topic_of_other_messages_is_not_followed();
    void a_topic_is_followed_by_the_robots_name_for_it();
    void a_robot_that_cannot_tell_its_topics_is_followed_on_all();
    void what_the_robot_publishes_later_is_found_later();
    void the_table_tells_targets_places_and_switches();
    void a_state_told_before_is_known_when_the_dock_opens();
    void old_values_are_grey_and_say_their_age();
    void texts_are_renewed_as_time_passes();
    void the_end_of_the_link_is_told();
    void the_button_and_the_view_agree_on_following();
    void it_may_go_at_any_time();
    void the_simulated_robot_is_shown_whole();
};

void RobotDockTest::it_is_hidden_at_first_and_follows_nothing()
{
    FakeRobot robot;
    robot.obey();
    Workbench workbench(robot.address());
    QVERIFY(!workbench.dock->isVisible());
    workbench.join();
    workbench.waitForRobot();
    QCOMPARE(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 0);
    for (const QTimer* timer : workbench.dock->findChildren<QTimer*>())
        QVERIFY(!timer->isActive());
}

void RobotDockTest::all_parts_are_in_sight_in_a_small_window()
{
    const FakeRobot robot;
    Workbench workbench(robot.address());
    workbench.window.resize(1000, 550); // what the bars leave of 640
    workbench.dock->show();
    auto* const parts = workbench.part<QTreeView>("parts");
    const QModelIndex last = parts->model()->index(parts->model()->rowCount() - 1, 0);
    QTRY_VERIFY_WITH_TIMEOUT(parts->viewport()->rect().contains(parts->visualRect(last)), patience);
}

void RobotDockTest::it_follows_while_it_is_shown()
{
    FakeRobot robot;
    robot.obey();
    publish(robot, {"/odom", "/joint_states"});
    Workbench workbench(robot.address());
    workbench.dock->show();
    for (int link = 0; link < 2; ++link) {
        workbench.join();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 1, patience);
        workbench.dock->hide();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 0, patience);
        workbench.dock->show();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 1, patience);
        workbench.dock->hide();
        QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 0, patience);
        QVERIFY(workbench.device.disconnectDevice());
        workbench.dock->show();
    }
}

void RobotDockTest::it_follows_only_what_the_robot_publishes()
{
    FakeRobot robot;
    robot.obey();
    publish(robot, {"/odom", "/scan"});
    Workbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 1, patience);
    // The device does, which reads the scans for both.
    QCOMPARE(robot.subscriberCount("/scan", "sensor_msgs/LaserScan"), 1);
    QCOMPARE(robot.subscriberCount("/tf_static", "tf2_msgs/TFMessage"), 0);
    QCOMPARE(robot.subscriberCount("/map", "nav_msgs/OccupancyGrid"), 0);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.notes().contains("No map: the robot does not publish /map."),
                             patience);
    // No more often than it is painted.
    QCOMPARE(robot.lastSubscription("/odom").value(QLatin1String("throttle_rate")).toInteger(), 33);
}

void RobotDockTest::a_topic_of_other_messages_is_not_followed()
{
    FakeRobot robot;
    robot.obey();
    robot.answer("/rosapi/topics", {{"topics", QCborArray{"/odom", "/map"}},
                                    {"types", QCborArray{"nav_msgs/Odometry", "std_msgs/Bool"}}});
    Workbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 1, patience);
    workbench.waitForRobot();
    QCOMPARE(robot.subscriberCount("/map", "nav_msgs/OccupancyGrid"), 0);
}

void RobotDockTest::a_topic_is_followed_by_the_robots_name_for_it()
{
    FakeRobot robot;
    robot.obey();
    publish(robot, {"/base/odometry"});
    Workbench workbench(robot.address());
    QVERIFY(workbench.device.remappings().set("/odom", "/base/odometry"));
    QVERIFY(workbench.device.remappings().set("/map", "/floor"));
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/base/odometry", "nav_msgs/Odometry"), 1,
                              patience);
    QTRY_VERIFY_WITH_TIMEOUT(
        workbench.notes().contains("No map: the robot does not publish /floor."), patience);
}

void RobotDockTest::a_robot_that_cannot_tell_its_topics_is_followed_on_all()
{
    FakeRobot robot;
    robot.obey();
    Workbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/tf_static", "tf2_msgs/TFMessage"), 1,
                              patience);
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/map", "nav_msgs/OccupancyGrid"), 1, patience);
}

void RobotDockTest::what_the_robot_publishes_later_is_found_later()
{
    FakeRobot robot;
    robot.obey();
    publish(robot, {"/odom"});
    Workbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 1, patience);
    publish(robot, {"/odom", "/map"});
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/map", "nav_msgs/OccupancyGrid"), 1, patience);
    QCOMPARE(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 1);
}

void RobotDockTest::the_table_tells_targets_places_and_switches()
{
    FakeRobot robot;
    robot.obey();
    robot.latch("/arm/line1_enabled", message::truth(true));
    robot.latch("/arm/line2_enabled", message::truth(false));
    robot.latch("/drive/disabled", message::truth(true));
    Workbench workbench(robot.address());
    const QAbstractItemModelTester tester(workbench.part<QTreeView>("parts")->model());
    workbench.dock->show();
    QCOMPARE(workbench.cell(0), QString("–"));
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/joint_states", joints), 2, patience);
    robot.publish("/joint_states", message::jointStates({"axis0", "axis8"}, {12.34, 300}));
    robot.publish("/arm/state", message::armState({"axis0"}, {90}));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(0), QString("12.3°"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(0, RobotModel::TargetColumn), QString("90.0°"),
                              patience);
    QCOMPARE(workbench.cell(0, RobotModel::NameColumn), QString("Axis 1"));
    QCOMPARE(workbench.cell(8), QString("300.0°"));
    QCOMPARE(workbench.cell(8, RobotModel::TargetColumn), QString("–"));
    QCOMPARE(workbench.cell(RobotModel::FirstLineRow, RobotModel::NameColumn),
             QString("Supply line 1"));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::SecondLineRow), QString("on"), patience);
    QCOMPARE(workbench.cell(RobotModel::FirstLineRow), QString("–"));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::ThirdLineRow), QString("off"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::DriveRow), QString("disabled"), patience);
    const auto dot = [&](int row) {
        return workbench.index(row, RobotModel::PresentColumn)
            .data(Qt::DecorationRole)
            .value<QPixmap>()
            .toImage();
    };
    QVERIFY(!dot(RobotModel::SecondLineRow).isNull());
    QVERIFY(dot(RobotModel::SecondLineRow) != dot(RobotModel::ThirdLineRow));
    QVERIFY(dot(RobotModel::FirstLineRow).isNull()); // nothing is known of it
    for (const int column : {RobotModel::NameColumn, RobotModel::TargetColumn})
        QVERIFY(
            !workbench.index(RobotModel::SecondLineRow, column).data(Qt::DecorationRole).isValid());
}

void RobotDockTest::a_state_told_before_is_known_when_the_dock_opens()
{
    FakeRobot robot;
    robot.obey();
    robot.latch("/arm/torque_enabled", message::truth(true)); // which the device itself follows
    Workbench workbench(robot.address());
    workbench.join();
    workbench.dock->show();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::TorqueRow), QString("on"), patience);
}

void RobotDockTest::old_values_are_grey_and_say_their_age()
{
    using namespace std::chrono_literals;
    RobotState state;
    state.begin();
    const RobotModel model(state);
    const QModelIndex present = model.index(0, RobotModel::PresentColumn);
    const QModelIndex target = model.index(0, RobotModel::TargetColumn);
    const auto now = RobotState::Clock::now();
    state.read(RobotState::JointStates, message::jointStates({"axis0"}, {12}), now - 12500ms);
    state.read(RobotState::ArmState, message::armState({"axis0"}, {90}), now);
    state.read(RobotState::Camera, message::cameraInfo(), now - 12500ms);
    QCOMPARE(present.data().toString(), QString("12.0°"));
    QVERIFY(present.data(Qt::ForegroundRole).isValid());
    QVERIFY2(QRegularExpression("^1[2-9] s old$")
                 .match(present.data(Qt::ToolTipRole).toString())
                 .hasMatch(),
             qPrintable(present.data(Qt::ToolTipRole).toString()));
    QVERIFY(!target.data(Qt::ForegroundRole).isValid());
    QVERIFY(!target.data(Qt::ToolTipRole).isValid());
    const QString camera =
        model.index(RobotModel::CameraRow, RobotModel::PresentColumn).data().toString();
    QVERIFY2(QRegularExpression("^no picture for 1[2-9] s$").match(camera).hasMatch(),
             qPrintable(camera));
    state.end(now);
    QVERIFY(target.data(Qt::ForegroundRole).isValid());
}

void RobotDockTest::texts_are_renewed_as_time_passes()
{
    Workbench workbench("127.0.0.1");
    workbench.dock->show();
    auto* const notes = workbench.part<QLabel>("notes");
    QTRY_COMPARE_WITH_TIMEOUT(notes->text(), QString("Not connected."), patience);
    for (int i = 0; i < 2; ++i) {
        notes->setText("as it was long ago");
        QTRY_COMPARE_WITH_TIMEOUT(notes->text(), QString("Not connected."), patience);
    }
    workbench.dock->hide();
    for (const QTimer* timer : workbench.dock->findChildren<QTimer*>())
        QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), patience);
}

void RobotDockTest::the_end_of_the_link_is_told()
{
    FakeRobot robot;
    robot.obey();
    robot.latch("/arm/torque_enabled", message::truth(true));
    Workbench workbench(robot.address());
    workbench.dock->show();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.notes(), QString("Not connected."), patience);
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::TorqueRow), QString("on"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(!workbench.notes().contains("Not connected"), patience);
    robot.drop();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.notes().startsWith("Not connected: last seen "), patience);
    QCOMPARE(workbench.cell(RobotModel::TorqueRow), QString("–"));
}

void RobotDockTest::the_button_and_the_view_agree_on_following()
{
    Workbench workbench("127.0.0.1");
    workbench.dock->show();
    auto* const follow = workbench.part<QToolButton>("follow");
    auto* const world = workbench.part<WorldView>("world");
    QTest::keyClick(follow, Qt::Key_Space);
    QVERIFY(follow->isChecked());
    QVERIFY(world->isFollowing());
    QTest::keyClick(world, Qt::Key_Left);
    QVERIFY(!follow->isChecked());
    follow->click();
    QVERIFY(world->isFollowing());
    workbench.part<QToolButton>("showAll")->click();
    QVERIFY(!world->isFollowing());
    QVERIFY(!follow->isChecked());
}

void RobotDockTest::it_may_go_at_any_time()
{
    FakeRobot robot;
    robot.obey();
    robot.ignore("/rosapi/topics");
    Workbench workbench(robot.address());
    workbench.dock->show();
    workbench.join();
    QTRY_VERIFY_WITH_TIMEOUT(robot.calls().contains("/rosapi/topics {}"), patience);
    workbench.waitForRobot();
    QCOMPARE(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 0); // not known yet
    delete workbench.dock;
    robot.answerLate("/rosapi/topics", {{"topics", QCborArray{"/odom"}}});
    workbench.waitForRobot();
    QCOMPARE(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 0);

    FakeRobot other;
    other.obey();
    Workbench second(other.address());
    second.dock->show();
    second.join();
    QTRY_COMPARE_WITH_TIMEOUT(other.subscriberCount("/odom", "nav_msgs/Odometry"), 1, patience);
    delete second.dock;
    QTRY_COMPARE_WITH_TIMEOUT(other.subscriberCount("/odom", "nav_msgs/Odometry"), 0, patience);
}

void RobotDockTest::the_simulated_robot_is_shown_whole()
{
    EmbeddedRobot robot(0);
    QVERIFY2(!robot.address().isEmpty(), qPrintable(robot.error()));
    Workbench workbench(robot.address());
    qRegisterMetaType<plugin::plugin::DataRole>("plugin::plugin::DataRole"); // for the spy
    const QSignalSpy lines(&workbench.device.connection(), &Connection::message);
    workbench.window.resize(900, 700);
    workbench.dock->show();
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.notes(), QString(), patience);
    QVERIFY(!workbench.part<QLabel>("notes")->isVisible()); // which takes room
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(0), QString("0.0°"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(8, RobotModel::TargetColumn), QString("0.0°"),
                              patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::TorqueRow), QString("off"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.cell(RobotModel::DriveRow), QString("enabled"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.cell(RobotModel::CameraRow).endsWith(" Hz"), patience);
    // Its walls, and what the laser sees of them.
    const auto colours = [&] {
        const QImage picture = workbench.part<WorldView>("world")->grab().toImage();
        QSet<QRgb> colours;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                colours.insert(picture.pixel(x, y));
        }
        return colours;
    };
    QVERIFY(colours().contains(workbench.dock->palette().color(QPalette::Text).rgb()));
    // Not QTRY_VERIFY, which looks twice: on a slow machine a scan may be too old by then.
    const QRgb rays = qRgb(0xe8, 0x6a, 0x17);
    QVERIFY(QTest::qWaitFor([&] { return colours().contains(rays); }, patience));
    for (const QVariantList& line : lines) // it was asked for nothing that it does not have
        QVERIFY2(!line[1].toString().contains("error"), qPrintable(line[1].toString()));
}

TEST_WITH_WINDOWS(RobotDockTest)

} // namespace robot_dock_test

#include "RobotDockTest.moc"
