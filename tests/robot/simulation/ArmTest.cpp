// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Arm.h"
#include "TestCase.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <vector>

namespace arm_test {

using robot::simulation::Arm;
using robot::simulation::Time;
using std::chrono::milliseconds;
using std::chrono::seconds;

class ArmTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_begins_at_rest_with_its_lines_on_and_the_torque_off();
    void each_axis_goes_to_its_target_at_its_own_speed();
    void it_moves_back_as_it_moves_forth();
    void velocity_is_zero_as_soon_as_an_axis_has_arrived();
    void the_way_is_the_same_however_time_is_cut();
    void no_time_changes_nothing();
    void an_unnamed_axis_goes_on_to_its_target();
    void a_newer_command_takes_over();
    void speed_zero_stops_an_axis();
    void stopped_it_stays_where_it_is_and_can_move_again();
    void the_limits_themselves_can_be_reached();
    void an_unfit_command_is_refused_whole_data();
    void an_unfit_command_is_refused_whole();
    void a_command_that_names_no_axis_is_refused();
    void a_command_without_torque_is_refused();
    void nothing_jumps_when_the_torque_returns();
    void a_line_feeds_three_axes_data();
    void a_line_feeds_three_axes();
    void a_command_without_any_line_it_needs_is_refused();
    void a_command_moves_what_has_power_and_says_what_has_not();
    void nothing_jumps_when_a_line_returns();
    void switching_says_what_moves_and_what_does_not();
};

namespace {

/// An arm whose torque is on.
Arm poweredArm()
{
    Arm arm;
    arm.setTorqueEnabled(true);
    return arm;
}

double position(const Arm& arm, int axis)
{
    return arm.axes().at(axis).position;
}

bool isNear(double value, double expected)
{
    return std::abs(value - expected) < 1e-9;
}

} // namespace

void ArmTest::it_begins_at_rest_with_its_lines_on_and_the_torque_off()
{
    Arm arm;
    QVERIFY(!arm.isTorqueEnabled());
    for (int line = 0; line < Arm::lineCount; ++line)
        QVERIFY(arm.isLineEnabled(line));
    arm.step(seconds(1));
    for (const Arm::Axis& axis : arm.axes()) {
        QCOMPARE(axis.position, 0.0);
        QCOMPARE(axis.velocity, 0.0);
        QCOMPARE(axis.target, 0.0);
    }
    QCOMPARE(Arm::name(0), QStringLiteral("axis0"));
    QCOMPARE(Arm::name(8), QStringLiteral("axis8"));
}

void ArmTest::each_axis_goes_to_its_target_at_its_own_speed()
{
    Arm arm = poweredArm();
    std::vector<Arm::Movement> movements;
    for (int axis = Arm::axisCount - 1; axis >= 0; --axis) // the order is the command's
        movements.push_back({Arm::name(axis), 200.0 + axis, 10.0 * (axis + 1)});
    const Arm::Answer answer = arm.move(movements);
    QVERIFY2(answer.success, qPrintable(answer.message));
    QCOMPARE(answer.message, QStringLiteral("moving: axis 1, axis 2, axis 3, axis 4, axis 5, "
                                            "axis 6, axis 7, axis 8, axis 9"));

    arm.step(seconds(2));
    for (int axis = 0; axis < Arm::axisCount; ++axis) {
        QVERIFY2(isNear(position(arm, axis), 20.0 * (axis + 1)), qPrintable(Arm::name(axis)));
        QVERIFY2(isNear(arm.axes().at(axis).velocity, 10.0 * (axis + 1)),
                 qPrintable(Arm::name(axis)));
    }
    arm.step(seconds(60));
    for (int axis = 0; axis < Arm::axisCount; ++axis)
        QCOMPARE(position(arm, axis), 200.0 + axis);
}

void ArmTest::it_moves_back_as_it_moves_forth()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(4), 100.0, 100.0}});
    arm.step(seconds(1));
    QCOMPARE(position(arm, 4), 100.0);
    arm.move({{Arm::name(4), 40.0, 20.0}});
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 4), 80.0));
    QVERIFY(isNear(arm.axes().at(4).velocity, -20.0));
    arm.step(seconds(10));
    QCOMPARE(position(arm, 4), 40.0);
}

void ArmTest::velocity_is_zero_as_soon_as_an_axis_has_arrived()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 50.0, 100.0}});
    arm.step(seconds(1)); // it needed half of it
    QCOMPARE(position(arm, 0), 50.0);
    QVERIFY(isNear(arm.axes().at(0).velocity, 50.0));
    arm.step(milliseconds(10));
    QCOMPARE(arm.axes().at(0).velocity, 0.0);
}

void ArmTest::the_way_is_the_same_however_time_is_cut()
{
    Arm atOnce = poweredArm();
    Arm inPieces = poweredArm();
    for (Arm* arm : {&atOnce, &inPieces})
        QVERIFY(arm->move({{Arm::name(1), 300.0, 77.0}, {Arm::name(7), 33.3, 143.0}}).success);
    atOnce.step(seconds(3));
    for (int i = 0; i < 3000; ++i)
        inPieces.step(milliseconds(1));
    QVERIFY(isNear(position(atOnce, 1), 231.0));
    QVERIFY(isNear(position(inPieces, 1), 231.0));
    QCOMPARE(position(atOnce, 7), 33.3);
    QCOMPARE(position(inPieces, 7), 33.3);
}

void ArmTest::no_time_changes_nothing()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 50.0, 10.0}});
    arm.step(seconds(1));
    arm.step(Time(0));
    QVERIFY(isNear(position(arm, 0), 10.0));
    QVERIFY(isNear(arm.axes().at(0).velocity, 10.0));
}

void ArmTest::an_unnamed_axis_goes_on_to_its_target()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 100.0, 10.0}});
    arm.step(seconds(1));
    arm.move({{Arm::name(1), 100.0, 20.0}});
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 20.0));
    QVERIFY(isNear(position(arm, 1), 20.0));
    QCOMPARE(position(arm, 2), 0.0);
}

void ArmTest::a_newer_command_takes_over()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 100.0, 10.0}});
    arm.step(seconds(1));
    arm.move({{Arm::name(0), 0.0, 5.0}});
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 5.0));
}

void ArmTest::speed_zero_stops_an_axis()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 100.0, 10.0}});
    arm.step(seconds(1));
    const Arm::Answer answer = arm.move({{Arm::name(0), 100.0, 0.0}});
    QVERIFY(answer.success);
    QCOMPARE(answer.message, QStringLiteral("not moving: axis 1 (its speed is 0)"));
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 10.0));
    QCOMPARE(arm.axes().at(0).velocity, 0.0);
    QCOMPARE(arm.axes().at(0).target, 100.0);
}

void ArmTest::stopped_it_stays_where_it_is_and_can_move_again()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 100.0, 10.0}, {Arm::name(8), 100.0, 20.0}});
    arm.step(seconds(1));
    QVERIFY(arm.stop());
    QVERIFY(!arm.stop());
    for (const Arm::Axis& axis : arm.axes()) {
        QCOMPARE(axis.velocity, 0.0);
        QCOMPARE(axis.target, axis.position);
    }
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 10.0));
    QVERIFY(isNear(position(arm, 8), 20.0));
    QVERIFY(arm.move({{Arm::name(0), 100.0, 10.0}}).success);
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 20.0));
}

void ArmTest::the_limits_themselves_can_be_reached()
{
    Arm arm = poweredArm();
    QVERIFY(arm.move({{Arm::name(8), Arm::maximumPosition, Arm::maximumSpeed}}).success);
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 8), 143.0));
    arm.step(seconds(1000000));
    QCOMPARE(position(arm, 8), 300.0);
    const Arm::Answer again = arm.move({{Arm::name(8), Arm::maximumPosition, Arm::maximumSpeed}});
    QVERIFY(again.success);
    QCOMPARE(again.message, QStringLiteral("not moving: axis 9 (it is already there)"));
    QVERIFY(arm.move({{Arm::name(8), 0.0, Arm::maximumSpeed}}).success);
    arm.step(seconds(1000000));
    QCOMPARE(position(arm, 8), 0.0);
}

void ArmTest::an_unfit_command_is_refused_whole_data()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::addColumn<QString>("axis");
    QTest::addColumn<double>("target");
    QTest::addColumn<double>("speed");
    QTest::addColumn<QString>("reason");
    QTest::newRow("target nan") << "axis3" << nan << 10.0
                                << "the target nan° of axis 4 is refused; give one from 0° to 300°";
    QTest::newRow("target infinite")
        << "axis3" << infinity << 10.0
        << "the target inf° of axis 4 is refused; give one from 0° to 300°";
    QTest::newRow("target negative")
        << "axis4" << -0.5 << 10.0
        << "the target -0.5° of axis 5 is refused; give one from 0° to 300°";
    QTest::newRow("target just too large")
        << "axis4" << 300.0000001 << 10.0
        << "the target 300.0000001° of axis 5 is refused; give one from 0° to 300°";
    QTest::newRow("speed nan")
        << "axis5" << 10.0 << nan
        << "the speed nan°/s of axis 6 is refused; give one from 0°/s to 143°/s";
    QTest::newRow("speed infinite")
        << "axis5" << 10.0 << infinity
        << "the speed inf°/s of axis 6 is refused; give one from 0°/s to 143°/s";
    QTest::newRow("speed negative")
        << "axis5" << 10.0 << -1.0
        << "the speed -1°/s of axis 6 is refused; give one from 0°/s to 143°/s";
    QTest::newRow("speed too large")
        << "axis5" << 10.0 << 144.0
        << "the speed 144°/s of axis 6 is refused; give one from 0°/s to 143°/s";
    QTest::newRow("axis unknown") << "axis9" << 10.0 << 10.0
                                  << "the arm has no axis \"axis9\"; it has axis0 to axis8";
    QTest::newRow("axis with a place marker")
        << "%2" << 10.0 << 10.0 << "the arm has no axis \"%2\"; it has axis0 to axis8";
    QTest::newRow("axis twice") << "axis0" << 10.0 << 10.0
                                << "\"axis0\" is named twice; name each axis once";
}

void ArmTest::an_unfit_command_is_refused_whole()
{
    QFETCH(QString, axis);
    QFETCH(double, target);
    QFETCH(double, speed);
    QFETCH(QString, reason);
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 100.0, 1.0}});

    const Arm::Answer answer = arm.move({{Arm::name(0), 50.0, 2.0}, {axis, target, speed}});

    QVERIFY(!answer.success);
    QCOMPARE(answer.message, reason);
    QCOMPARE(arm.axes().at(0).target, 100.0);
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 1.0));
}

void ArmTest::a_command_that_names_no_axis_is_refused()
{
    Arm arm = poweredArm();
    const Arm::Answer answer = arm.move({});
    QVERIFY(!answer.success);
    QCOMPARE(answer.message,
             QStringLiteral("the command names no axis; name one of axis0 to axis8 at least"));
}

void ArmTest::a_command_without_torque_is_refused()
{
    Arm arm;
    const Arm::Answer answer = arm.move({{Arm::name(0), 100.0, 10.0}});
    QVERIFY(!answer.success);
    QCOMPARE(answer.message,
             QStringLiteral("the torque is off: the arm does not move; switch it on first"));
    arm.setTorqueEnabled(true);
    arm.step(seconds(1));
    QCOMPARE(position(arm, 0), 0.0);
}

void ArmTest::nothing_jumps_when_the_torque_returns()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(0), 100.0, 10.0}, {Arm::name(8), 100.0, 20.0}});
    arm.step(seconds(1));
    arm.setTorqueEnabled(false);
    QCOMPARE(arm.axes().at(0).velocity, 0.0);
    QCOMPARE(arm.axes().at(0).target, position(arm, 0));
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 10.0));

    arm.setTorqueEnabled(true);
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 0), 10.0));
    QVERIFY(isNear(position(arm, 8), 20.0));
}

void ArmTest::a_line_feeds_three_axes_data()
{
    QTest::addColumn<int>("line");
    for (int line = 0; line < Arm::lineCount; ++line)
        QTest::addRow("line %d", line) << line;
}

void ArmTest::a_line_feeds_three_axes()
{
    QFETCH(int, line);
    Arm arm = poweredArm();
    std::vector<Arm::Movement> movements;
    for (int axis = 0; axis < Arm::axisCount; ++axis)
        movements.push_back({Arm::name(axis), 100.0, 10.0});
    arm.move(movements);
    arm.step(seconds(1));
    const Arm::Answer answer = arm.setLineEnabled(line, false);
    QVERIFY(answer.success);
    QCOMPARE(answer.message, QStringLiteral("line %1 off: axes %2 to %3 do not move")
                                 .arg(line + 1)
                                 .arg(3 * line + 1)
                                 .arg(3 * line + 3));
    QVERIFY(!arm.isLineEnabled(line));
    arm.step(seconds(1));
    for (int axis = 0; axis < Arm::axisCount; ++axis) {
        const bool isFed = axis < 3 * line || axis > 3 * line + 2;
        QVERIFY2(isNear(position(arm, axis), isFed ? 20.0 : 10.0), qPrintable(Arm::name(axis)));
        QVERIFY2(isNear(arm.axes().at(axis).velocity, isFed ? 10.0 : 0.0),
                 qPrintable(Arm::name(axis)));
    }
}

void ArmTest::a_command_without_any_line_it_needs_is_refused()
{
    Arm arm = poweredArm();
    arm.setLineEnabled(1, false);
    const Arm::Answer answer = arm.move({{Arm::name(5), 100.0, 10.0}, {Arm::name(3), 100.0, 0.0}});
    QVERIFY(!answer.success);
    QCOMPARE(answer.message,
             QStringLiteral("not moving: axis 4 (line 2 is off), axis 6 (line 2 is off)"));
}

void ArmTest::a_command_moves_what_has_power_and_says_what_has_not()
{
    Arm arm = poweredArm();
    arm.setLineEnabled(1, false);
    const Arm::Answer answer = arm.move({{Arm::name(3), 100.0, 10.0}, {Arm::name(2), 100.0, 10.0}});
    QVERIFY(answer.success);
    QCOMPARE(answer.message, QStringLiteral("moving: axis 3; not moving: axis 4 (line 2 is off)"));
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 2), 10.0));
    QCOMPARE(position(arm, 3), 0.0);

    arm.setLineEnabled(1, true);
    arm.step(seconds(1));
    QCOMPARE(position(arm, 3), 0.0);
}

void ArmTest::nothing_jumps_when_a_line_returns()
{
    Arm arm = poweredArm();
    arm.move({{Arm::name(3), 100.0, 10.0}});
    arm.step(seconds(1));
    arm.setLineEnabled(1, false);
    arm.setLineEnabled(1, true);
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 3), 10.0));
    QVERIFY(arm.move({{Arm::name(3), 100.0, 10.0}}).success);
    arm.step(seconds(1));
    QVERIFY(isNear(position(arm, 3), 20.0));
}

void ArmTest::switching_says_what_moves_and_what_does_not()
{
    Arm arm;
    QCOMPARE(arm.setLineEnabled(2, false).message,
             QStringLiteral("line 3 off: axes 7 to 9 do not move"));
    QCOMPARE(arm.setTorqueEnabled(true).message,
             QStringLiteral("torque on; line 3 off: axes 7 to 9 do not move"));
    QCOMPARE(arm.setLineEnabled(2, true).message, QStringLiteral("line 3 on"));
    QCOMPARE(arm.setTorqueEnabled(true).message, QStringLiteral("torque on"));
    QCOMPARE(arm.setTorqueEnabled(false).message,
             QStringLiteral("torque off: the arm does not move"));
    QCOMPARE(arm.setLineEnabled(0, true).message,
             QStringLiteral("line 1 on; the torque is off: the arm does not move"));
}

TEST_WITHOUT_WINDOWS(ArmTest)

} // namespace arm_test

#include "ArmTest.moc"
