// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/workbench/robotview/RobotMessages.h"

#include "host/workbench/armview/Hindrance.h"

#include <QtTest>

namespace hindrance_test {

using namespace host::workbench::armview;
using host::workbench::robotview::RobotState;
using namespace std::chrono_literals;
using Switch = Hindrance::Switch;

namespace {

constexpr int connected = 3;
constexpr int passive = 4;
const RobotState::TimePoint start{1h};

/// Ready to move.
RobotState readyArm()
{
    RobotState robot;
    robot.begin();
    robot.read(RobotState::JointStates, message::jointStates({"axis0"}, {0}), start);
    robot.read(RobotState::Torque, message::truth(true), start);
    for (const auto line : {RobotState::FirstLine, RobotState::SecondLine, RobotState::ThirdLine})
        robot.read(line, message::truth(true), start);
    robot.read(RobotState::Stopped, message::truth(false), start);
    return robot;
}

Hindrance::Link linkOf(int state = connected, bool isOffered = true)
{
    return {state, isOffered, "/my_arm/command"};
}

QString words(const RobotState& robot, const Hindrance::Link& link = linkOf(),
              RobotState::TimePoint now = start)
{
    const auto found = Hindrance::find(link, robot, now);
    return found ? found->words : QString();
}

} // namespace

/// Why an arm does not move.
class HindranceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void an_arm_with_all_that_it_needs_has_none();
    void what_is_not_told_is_none();
    void each_is_said_and_the_more_general_first();
    void a_line_stops_its_own_axes_only();
};

void HindranceTest::an_arm_with_all_that_it_needs_has_none()
{
    QCOMPARE(words(readyArm()), QString());
}

void HindranceTest::what_is_not_told_is_none()
{
    RobotState robot; // of others, which have neither torque nor lines nor a stop
    robot.begin();
    robot.read(RobotState::JointStates, message::jointStates({"axis0"}, {0}), start);
    QCOMPARE(words(robot), QString());
}

void HindranceTest::each_is_said_and_the_more_general_first()
{
    RobotState robot = readyArm();
    robot.read(RobotState::FirstLine, message::truth(false), start);
    QCOMPARE(words(robot), QString("Supply line 1 is off: axes 1 to 3 do not move."));
    QCOMPARE(words(robot, linkOf(), start + 4s),
             QString("Where the arm is was last told 4 s ago."));
    robot.read(RobotState::Torque, message::truth(false), start);
    QCOMPARE(words(robot), QString("The arm has no torque."));
    QCOMPARE(Hindrance::find(linkOf(), robot, start)->remedy, Switch::Torque);
    robot.read(RobotState::Stopped, message::truth(true), start);
    QCOMPARE(words(robot),
             QString("The robot is stopped. It moves again after the stop is released."));
    QCOMPARE(Hindrance::find(linkOf(), robot, start)->remedy, Switch::Stop);
    QCOMPARE(
        words(robot, linkOf(connected, false)),
        QString("The robot does not listen to /my_arm/command. If its arm has another name for "
                "commands, enter it in Robot > Names…."));
    QCOMPARE(words(robot, linkOf(passive)), QString("Another client is in control of the robot."));
    QCOMPARE(words(robot, linkOf(-1)), QString("The device is not connected."));
    QCOMPARE(words(robot, linkOf(2)), QString("The device is not connected."));
    QVERIFY(Hindrance::find(linkOf(-1), robot, start)->isOfAll);
    QCOMPARE(Hindrance::find(linkOf(-1), robot, start)->remedy, Switch::None);

    RobotState silent;
    silent.begin();
    QCOMPARE(words(silent), QString("The robot has not told where its arm is."));
}

void HindranceTest::a_line_stops_its_own_axes_only()
{
    RobotState robot = readyArm();
    robot.read(RobotState::SecondLine, message::truth(false), start);
    auto found = Hindrance::find(linkOf(), robot, start);
    QCOMPARE(found->words, QString("Supply line 2 is off: axes 4 to 6 do not move."));
    QCOMPARE(found->remedy, Switch::SecondLine);
    QVERIFY(!found->isOfAll);
    for (int axis = 0; axis < RobotState::axisCount; ++axis)
        QCOMPARE(Hindrance::isUnpowered(robot, axis), axis >= 3 && axis < 6);
    robot.read(RobotState::FirstLine, message::truth(false), start);
    robot.read(RobotState::ThirdLine, message::truth(false), start);
    found = Hindrance::find(linkOf(), robot, start);
    QCOMPARE(found->remedy, Switch::FirstLine);
    QVERIFY(found->isOfAll);
}

TEST_WITHOUT_WINDOWS(HindranceTest)

} // namespace hindrance_test

#include "HindranceTest.moc"
