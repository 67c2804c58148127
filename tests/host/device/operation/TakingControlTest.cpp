// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "OperationFixture.h"
#include "TestCase.h"

#include "robot/Robot.h"

#include <QtTest>

namespace taking_control_test {

using host::device::operation::Control;
using State = Control::State;

namespace {

host::device::connection::Timing askingOften()
{
    auto timing = noHurry();
    timing.control = std::chrono::milliseconds(20);
    return timing;
}

struct Fixture : OperationFixture
{
    Fixture() : OperationFixture(askingOften()) { robot.obey(); }

    void refuse(const QString& holder) { robot.answerTrigger("/control/acquire", false, holder); }

    void grant() { robot.answerTrigger("/control/acquire", true); }

    bool becomes(State state)
    {
        return QTest::qWaitFor([&] { return control.state() == state; }, patience);
    }

    /// All that changes a robot or moves it.
    QStringList commands() const
    {
        return robot.calls().filter(QRegularExpression("^/(drive|arm|camera|stop)")) +
               robot.publications();
    }

    Control& control = device.control();
};

} // namespace

/// Taking control and giving it back, without a new connection.
class TakingControlTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void control_is_taken_from_a_passive_connection();
    void a_refusal_says_who_has_it();
    void control_is_released_and_the_connection_stays();
    void a_release_that_fails_is_said();
    void it_is_taken_as_soon_as_it_is_free();
    void waiting_ends_when_somebody_gives_up();
    void waiting_ends_with_the_link();
    void a_robot_without_control_is_anyones();
    void an_answer_that_does_not_come_changes_nothing();
    void two_devices_hand_our_robot_over();
};

void TakingControlTest::control_is_taken_from_a_passive_connection()
{
    Fixture f;
    f.refuse("10.0.0.7:1 is in control");
    QVERIFY(f.connect(4));
    QCOMPARE(f.control.state(), State::NotOurs);
    QCOMPARE(f.control.inWords(),
             QString("This device is not in control of the robot: 10.0.0.7:1 is in control."));
    f.grant();
    f.control.take();
    QVERIFY(f.becomes(State::Ours));
    QCOMPARE(f.device.connectionState(), 3);
    QVERIFY(f.hears("1005 3"));
    QVERIFY(f.settle());
    QCOMPARE(f.probe->count("connected"), 1); // it was before
    QCOMPARE(f.probe->count("disconnected"), 0);
    QCOMPARE(f.commands(), QStringList());
    QCOMPARE(f.robot.clientCount(), 1);

    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.isCalled(R"(/drive/disable {"data":true})"));
    QVERIFY(f.device.disconnectDevice());
    QVERIFY(f.isCalled("/control/release {}"));
}

void TakingControlTest::a_refusal_says_who_has_it()
{
    Fixture f;
    f.refuse("10.0.0.7:1 is in control");
    QVERIFY(f.connect(4));
    f.refuse("10.0.0.8:2 is in control");
    f.control.take();
    QVERIFY(f.hasProblem("10.0.0.8:2 is in control"));
    QCOMPARE(f.control.state(), State::NotOurs);
    QVERIFY(f.device.status().contains("10.0.0.8:2 is in control"));
    QVERIFY(f.settle());
    QCOMPARE(f.probe->count("1005 4"), 1); // it is as it was
}

void TakingControlTest::control_is_released_and_the_connection_stays()
{
    Fixture f;
    QVERIFY(f.connect());
    QCOMPARE(f.control.state(), State::Ours);
    f.control.release();
    QVERIFY(f.becomes(State::NotOurs));
    QVERIFY(f.hears("1005 4"));
    QVERIFY(f.device.status().contains("control was released"));
    QCOMPARE(f.control.inWords(), QString("This device is not in control of the robot."));
    QCOMPARE(f.calls("/control/release"), 1);
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.settle());
    QCOMPARE(f.commands(), QStringList());
    f.control.take();
    QVERIFY(f.becomes(State::Ours));
    QCOMPARE(f.device.status(), QString("Connected to %1.").arg(f.robot.address()));
    QVERIFY(f.settle());
    QCOMPARE(f.commands(), QStringList());
    QCOMPARE(f.robot.clientCount(), 1);
}

void TakingControlTest::a_release_that_fails_is_said()
{
    Fixture f;
    f.robot.answerTrigger("/control/release", false, "the key is in");
    QVERIFY(f.connect());
    f.control.release();
    QVERIFY(f.hasProblem("Control was not released. Reason: the key is in"));
    QCOMPARE(f.control.state(), State::Ours);
}

void TakingControlTest::it_is_taken_as_soon_as_it_is_free()
{
    Fixture f;
    f.refuse("somebody");
    QVERIFY(f.connect(4));
    f.control.takeWhenFree();
    QCOMPARE(f.control.state(), State::Waiting);
    QTRY_VERIFY_WITH_TIMEOUT(f.calls("/control/acquire") >= 4, patience);
    QCOMPARE(f.control.state(), State::Waiting);
    f.grant();
    QVERIFY(f.becomes(State::Ours));
    QCOMPARE(f.problems(), QStringList());
    const int calls = f.calls("/control/acquire");
    QVERIFY(f.settle());
    QCOMPARE(f.calls("/control/acquire"), calls);
    QCOMPARE(f.commands(), QStringList());
}

void TakingControlTest::waiting_ends_when_somebody_gives_up()
{
    Fixture f;
    f.refuse("somebody");
    QVERIFY(f.connect(4));
    f.control.takeWhenFree();
    QTRY_VERIFY_WITH_TIMEOUT(f.calls("/control/acquire") >= 3, patience);
    f.control.giveUp();
    QCOMPARE(f.control.state(), State::NotOurs);
    QVERIFY(f.settle());
    const int calls = f.calls("/control/acquire");
    QElapsedTimer quiet;
    quiet.start();
    QTRY_VERIFY_WITH_TIMEOUT(quiet.hasExpired(100), patience); // the time for five more
    QCOMPARE(f.calls("/control/acquire"), calls);
}

void TakingControlTest::waiting_ends_with_the_link()
{
    Fixture f;
    f.refuse("somebody");
    QVERIFY(f.connect(4));
    f.control.takeWhenFree();
    QVERIFY(f.device.disconnectDevice());
    QCOMPARE(f.control.state(), State::NotConnected);
    QVERIFY(f.connect(4));
    QCOMPARE(f.control.state(), State::NotOurs);
}

void TakingControlTest::a_robot_without_control_is_anyones()
{
    OperationFixture f; // it knows no service
    QVERIFY(f.connect());
    QCOMPARE(f.device.control().state(), State::Anyones);
    f.device.control().release();
    f.device.control().take();
    f.device.control().takeWhenFree();
    QVERIFY(f.settle());
    QCOMPARE(f.device.control().state(), State::Anyones);
    QCOMPARE(f.calls("/control/release"), 0);
    QCOMPARE(f.calls("/control/acquire"), 1);
}

void TakingControlTest::an_answer_that_does_not_come_changes_nothing()
{
    auto timing = noHurry();
    timing.answer = std::chrono::milliseconds(300);
    OperationFixture f(timing);
    f.robot.obey();
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    f.robot.ignore("/control/acquire");
    f.device.control().take();
    QVERIFY(f.hasProblem("did not answer"));
    QCOMPARE(f.device.connectionState(), 4);
    QVERIFY(f.device.control().inWords().contains("somebody"));
}

void TakingControlTest::two_devices_hand_our_robot_over()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({"127.0.0.1", 0}, &error), qPrintable(error));
    Fixture first;
    Fixture second;
    for (Fixture* each : {&first, &second})
        each->device.overrideAddress(QStringLiteral("127.0.0.1:%1").arg(robot.port()));
    QVERIFY(first.connect());
    QVERIFY(second.connect(4));
    QVERIFY(second.control.inWords().contains("127.0.0.1"));
    second.control.takeWhenFree();
    QVERIFY(second.becomes(State::Waiting));
    first.control.release();
    QVERIFY(second.becomes(State::Ours));
    first.control.take();
    QVERIFY(first.hasProblem("is in control"));
    QCOMPARE(first.control.state(), State::NotOurs);
}

TEST_WITH_WINDOWS(TakingControlTest)

} // namespace taking_control_test

#include "TakingControlTest.moc"
