// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/robotview/DockOfRobot.h"
#include "tests/host/workbench/robotview/RobotMessages.h"

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/armview/ArmDock.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

namespace arm_dock_test {

using namespace host::workbench::armview;
using host::device::connection::Connection;
using host::workbench::EmbeddedRobot;

namespace {

struct ArmWorkbench : DockOfRobot<ArmDock>
{
    explicit ArmWorkbench(const QString& address) : DockOfRobot(address) { dock->show(); }

    QString why() const { return part<QLabel>("why")->text(); }

    QPushButton& button(const char* name) const { return *part<QPushButton>(name); }

    QToolButton& jog(int axis, const char* direction) const
    {
        return *part<QToolButton>(qPrintable(QString("axis%1 %2").arg(axis).arg(direction)));
    }

    QDoubleSpinBox& target(int axis) const
    {
        return *part<QDoubleSpinBox>(qPrintable(QString("axis%1 target").arg(axis)));
    }

    QString present(int axis) const
    {
        return part<QLabel>(qPrintable(QString("axis%1 present").arg(axis)))->text();
    }

    void choose(int row) const
    {
        auto* const list = part<QListView>("positions");
        list->setCurrentIndex(list->model()->index(row, 0));
    }
};

/// A robot with an arm that tells where two of its axes are, again and again.
struct ArmRobot : FakeRobot
{
    ArmRobot()
    {
        obey();
        latch("/arm/torque_enabled", message::truth(true));
        QObject::connect(&beat, &QTimer::timeout, [this] {
            publish("/joint_states", message::jointStates({"axis0", "axis8"}, {10, 20}));
        });
        beat.start(50);
    }

    QTimer beat;
};

} // namespace

/// The dock with a robot, and without one.
class ArmDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_follows_while_it_is_shown();
    void it_says_why_nothing_moves_and_offers_the_switch();
    void a_stopped_robot_is_released_beside_the_reason();
    void axes_and_targets_are_shown();
    void nothing_is_sent_but_by_a_button();
    void a_chosen_position_is_drawn_before_it_is_sent();
    void an_axis_without_power_or_joint_is_not_jogged();
    void the_simulated_arm_goes_where_it_is_sent();
};

void ArmDockTest::it_follows_while_it_is_shown()
{
    const char* const type = "control_msgs/JointTrajectoryControllerState";
    ArmRobot robot;
    ArmWorkbench workbench(robot.address());
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/arm/state", type), 2, patience);
    QCOMPARE(robot.subscriberCount("/odom", "nav_msgs/Odometry"), 0); // not this dock's matter
    workbench.dock->hide();
    QTRY_COMPARE_WITH_TIMEOUT(robot.subscriberCount("/arm/state", type), 1, patience);
    for (const QTimer* timer : workbench.dock->findChildren<QTimer*>())
        QTRY_VERIFY_WITH_TIMEOUT(!timer->isActive(), patience);
}

void ArmDockTest::it_says_why_nothing_moves_and_offers_the_switch()
{
    ArmRobot robot;
    robot.latch("/arm/torque_enabled", message::truth(false));
    ArmWorkbench workbench(robot.address());
    QTRY_COMPARE_WITH_TIMEOUT(workbench.why(), QString("The device is not connected."), patience);
    QVERIFY(!workbench.button("remedy").isVisible());
    QVERIFY(!workbench.button("go").isEnabled());
    QVERIFY(!workbench.button("hold").isEnabled());
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.why(), QString("The arm has no torque."), patience);
    QVERIFY(workbench.button("remedy").isVisible());
    QCOMPARE(workbench.button("remedy").text(), QString("Switch torque on"));
    QVERIFY(!workbench.jog(0, "more").isEnabled());
    QVERIFY(!workbench.button("go").isEnabled());
    QVERIFY(workbench.button("hold").isEnabled()); // does no harm
    workbench.button("remedy").click();
    workbench.waitForRobot();
    QVERIFY(robot.calls().contains("/arm/torque {\"data\":true}"));

    robot.publish("/arm/torque_enabled", message::truth(true));
    robot.publish("/arm/line1_enabled", message::truth(false));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.why(),
                              QString("Supply line 2 is off: axes 4 to 6 do not move."), patience);
    QCOMPARE(workbench.button("remedy").text(), QString("Switch line 2 on"));
    QVERIFY(workbench.button("go").isEnabled()); // the others move
    robot.publish("/arm/line1_enabled", message::truth(true));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.why(), QString(), patience);
    QVERIFY(!workbench.button("remedy").isVisible());
}

void ArmDockTest::a_stopped_robot_is_released_beside_the_reason()
{
    ArmRobot robot;
    robot.answerTrigger("/stop/release", true);
    robot.latch("/stopped", message::truth(true));
    ArmWorkbench workbench(robot.address());
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(
        workbench.why(),
        QString("The robot is stopped. It moves again after the stop is released."), patience);
    QVERIFY(workbench.button("remedy").isVisible());
    QCOMPARE(workbench.button("remedy").text(), QString("Release"));
    QVERIFY(!robot.calls().contains("/stop/release {}"));
    workbench.button("remedy").click();
    workbench.waitForRobot();
    QVERIFY(robot.calls().contains("/stop/release {}"));
    robot.publish("/stopped", message::truth(false));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.why(), QString(), patience);
    QVERIFY(!workbench.button("remedy").isVisible());
}

void ArmDockTest::axes_and_targets_are_shown()
{
    ArmRobot robot;
    ArmWorkbench workbench(robot.address());
    QCOMPARE(workbench.present(0), QString("–"));
    QCOMPARE(workbench.target(0).text(), QString("–"));
    QVERIFY(!workbench.target(0).isEnabled());
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.present(0), QString("10.0°"), patience);
    QCOMPARE(workbench.target(0).text(), QString("10.0°"));
    QVERIFY(workbench.target(0).isEnabled());
    QCOMPARE(workbench.target(0).maximum(), 300.0);
    QCOMPARE(workbench.present(1), QString("–")); // not told
    QVERIFY(!workbench.target(1).isEnabled());
    robot.publish("/arm/state", message::armState({"axis0"}, {0}));
    QTRY_COMPARE_WITH_TIMEOUT(workbench.target(0).text(), QString("0.0°"), patience);
}

void ArmDockTest::nothing_is_sent_but_by_a_button()
{
    ArmRobot robot;
    ArmWorkbench workbench(robot.address());
    workbench.join();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.jog(0, "more").isEnabled(), patience);
    QTest::keyClick(&workbench.target(0), Qt::Key_Up);
    QTest::keyClick(&workbench.target(0), Qt::Key_Return);
    workbench.choose(1);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.button("goTo").isEnabled(), patience);
    workbench.waitForRobot();
    QCOMPARE(robot.publications(), QStringList());

    const auto sent = [&] {
        workbench.waitForRobot();
        return int(robot.publications().size());
    };
    workbench.jog(0, "more").click();
    QCOMPARE(sent(), 1);
    QVERIFY(robot.publications().last().contains(QString("[\"axis0\"]")));
    workbench.jog(0, "less").click();
    QCOMPARE(sent(), 2);
    workbench.button("go").click();
    QCOMPARE(sent(), 3);
    workbench.button("goTo").click();
    QCOMPARE(sent(), 4);
    workbench.button("hold").click();
    QCOMPARE(sent(), 5);
    QVERIFY(robot.publications().last().contains("\"velocities\":[0,0]"));
}

void ArmDockTest::a_chosen_position_is_drawn_before_it_is_sent()
{
    ArmRobot robot;
    ArmWorkbench workbench(robot.address());
    workbench.join();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.jog(0, "more").isEnabled(), patience);
    QVERIFY(!workbench.button("goTo").isEnabled()); // none is chosen
    workbench.choose(1);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.target(0).text(), QString("90.0°"), patience);
    QVERIFY(workbench.button("goTo").isEnabled());
    QCOMPARE(workbench.present(0), QString("10.0°"));
    // It changes with what is stored.
    olm::core::Vector<float> values(18);
    values[0] = 120;
    values[1] = 30;
    workbench.device.write(plugin::gui::VariableKind::Config, "pos1", values);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.target(0).text(), QString("120.0°"), patience);
    workbench.waitForRobot();
    QCOMPARE(robot.publications(), QStringList());
    workbench.device.write(plugin::gui::VariableKind::Config, "num_pos", 0);
    QTRY_VERIFY_WITH_TIMEOUT(!workbench.button("goTo").isEnabled(), patience);
}

void ArmDockTest::an_axis_without_power_or_joint_is_not_jogged()
{
    ArmRobot robot;
    robot.latch("/arm/line0_enabled", message::truth(false));
    ArmWorkbench workbench(robot.address());
    workbench.join();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.jog(8, "more").isEnabled(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(!workbench.jog(0, "more").isEnabled(), patience);
    QVERIFY(workbench.target(0).isEnabled());
    workbench.device.joints().set(8, {});
    QTRY_VERIFY_WITH_TIMEOUT(!workbench.jog(8, "more").isEnabled(), patience);
    QVERIFY(!workbench.target(8).isEnabled());
}

void ArmDockTest::the_simulated_arm_goes_where_it_is_sent()
{
    EmbeddedRobot robot(0);
    QVERIFY2(!robot.address().isEmpty(), qPrintable(robot.error()));
    ArmWorkbench workbench(robot.address());
    workbench.join();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.why(), QString("The arm has no torque."), patience);
    workbench.button("remedy").click();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.jog(3, "more").isEnabled(), patience);
    workbench.jog(3, "more").click();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.present(3), QString("5.0°"), patience);
    QCOMPARE(workbench.present(2), QString("0.0°"));
    workbench.choose(1); // 90 degrees, at 30 a second
    QTRY_VERIFY_WITH_TIMEOUT(workbench.button("goTo").isEnabled(), patience);
    workbench.button("goTo").click();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.present(0) != "0.0°", patience);
    workbench.button("hold").click();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.target(0).value() < 80, patience);
    QCOMPARE(workbench.why(), QString());
}

TEST_WITH_WINDOWS(ArmDockTest)

} // namespace arm_dock_test

#include "ArmDockTest.moc"
