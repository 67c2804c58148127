// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "robot/network/Control.h"

#include <QSignalSpy>
#include <QtTest>

namespace control_test {

using robot::network::Control;
using rosbridge::server::Peer;

/// Control: who may command the robot.
class ControlTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void the_first_client_that_asks_is_in_control();
    void the_holder_may_ask_again();
    void a_second_controller_is_refused_with_a_reason();
    void control_passes_on_after_a_release();
    void only_the_holder_can_release();
    void control_is_free_when_the_holder_leaves();
    void nothing_happens_when_a_watcher_leaves();
    void a_client_that_is_not_in_control_is_told_why();

private:
    const Peer m_first{1, QStringLiteral("client 1")};
    const Peer m_second{2, QStringLiteral("client 2")};
};

void ControlTest::initTestCase()
{
    qRegisterMetaType<Peer>();
}

void ControlTest::the_first_client_that_asks_is_in_control()
{
    Control control;
    QSignalSpy acquired(&control, &Control::acquired);
    const Control::Answer answer = control.acquire(m_first);
    QVERIFY(answer.success);
    QVERIFY(!answer.message.isEmpty());
    QCOMPARE(acquired.count(), 1);
    QCOMPARE(control.refusal(m_first), QString());
}

void ControlTest::the_holder_may_ask_again()
{
    Control control;
    control.acquire(m_first);
    QSignalSpy acquired(&control, &Control::acquired);
    QVERIFY(control.acquire(m_first).success);
    QCOMPARE(acquired.count(), 0);
}

void ControlTest::a_second_controller_is_refused_with_a_reason()
{
    Control control;
    control.acquire(m_first);
    QSignalSpy refused(&control, &Control::refused);
    const Control::Answer answer = control.acquire(m_second);
    QVERIFY(!answer.success);
    QVERIFY(answer.message.contains(m_first.name));
    QCOMPARE(refused.count(), 1);
    QCOMPARE(refused.first().at(1).toString(), answer.message);
    QCOMPARE(control.refusal(m_first), QString());
}

void ControlTest::control_passes_on_after_a_release()
{
    Control control;
    control.acquire(m_first);
    QSignalSpy released(&control, &Control::released);
    QVERIFY(control.release(m_first).success);
    QCOMPARE(released.count(), 1);
    QVERIFY(control.acquire(m_second).success);
    QVERIFY(!control.acquire(m_first).success);
}

void ControlTest::only_the_holder_can_release()
{
    Control control;
    QSignalSpy released(&control, &Control::released);
    QVERIFY(!control.release(m_first).success);
    control.acquire(m_first);
    const Control::Answer answer = control.release(m_second);
    QVERIFY(!answer.success);
    QVERIFY(!answer.message.isEmpty());
    QCOMPARE(released.count(), 0);
    QCOMPARE(control.refusal(m_first), QString());
}

void ControlTest::control_is_free_when_the_holder_leaves()
{
    Control control;
    control.acquire(m_first);
    QSignalSpy released(&control, &Control::released);
    control.leave(m_first);
    QCOMPARE(released.count(), 1);
    QVERIFY(control.acquire(m_second).success);
}

void ControlTest::nothing_happens_when_a_watcher_leaves()
{
    Control control;
    control.leave(m_second);
    control.acquire(m_first);
    QSignalSpy released(&control, &Control::released);
    control.leave(m_second);
    QCOMPARE(released.count(), 0);
    QCOMPARE(control.refusal(m_first), QString());
}

void ControlTest::a_client_that_is_not_in_control_is_told_why()
{
    Control control;
    QVERIFY(control.refusal(m_second).contains(QStringLiteral("/control/acquire")));
    control.acquire(m_first);
    QVERIFY(control.refusal(m_second).contains(m_first.name));
}

TEST_WITHOUT_WINDOWS(ControlTest)

} // namespace control_test

#include "ControlTest.moc"
