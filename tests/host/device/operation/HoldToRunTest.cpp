// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/operation/HoldToRun.h"

#include <QtTest>

namespace hold_to_run_test {

using namespace std::chrono_literals;
using host::device::operation::HoldToRun;

namespace {

/// What is taken on a clock that a test moves on.
struct Run
{
    /// Asks once a millisecond. Each answer as "time forward left".
    QStringList pass(std::chrono::milliseconds time)
    {
        QStringList taken;
        for (const auto end = m_now + time; m_now < end; m_now += 1ms)
            taken += take();
        return taken;
    }

    QStringList take()
    {
        const auto push = hold.take(HoldToRun::Clock::time_point(1h) + m_now);
        if (!push)
            return {};
        return {QStringLiteral("%1 %2 %3").arg(m_now.count()).arg(push->forward).arg(push->left)};
    }

    /// The clock goes on while nobody asks.
    void block(std::chrono::milliseconds time) { m_now += time; }

    HoldToRun hold;

private:
    std::chrono::milliseconds m_now{0};
};

} // namespace

/// What is sent to the drive, and when.
class HoldToRunTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_sent_while_nothing_is_held();
    void it_is_sent_twenty_times_a_second_while_it_is_held();
    void letting_go_sends_one_zero_and_then_nothing();
    void the_shortest_press_is_sent_and_ended();
    void another_direction_is_sent_when_the_next_is_due();
    void an_end_sends_one_zero_until_it_is_pressed_again();
    void an_end_without_a_press_keeps_nothing_from_beginning();
    void what_was_ended_before_anything_was_sent_sends_nothing();
    void after_a_block_nothing_is_made_up_for();
};

void HoldToRunTest::nothing_is_sent_while_nothing_is_held()
{
    Run run;
    QCOMPARE(run.pass(1s), QStringList());
    run.hold.letGo();
    run.hold.end();
    QCOMPARE(run.pass(1s), QStringList());
}

void HoldToRunTest::it_is_sent_twenty_times_a_second_while_it_is_held()
{
    Run run;
    run.hold.hold({1, 0});
    QVERIFY(run.hold.isHeld() && run.hold.isRunning());
    const QStringList taken = run.pass(1s);
    QCOMPARE(int(taken.size()), 20);
    QCOMPARE(taken.mid(0, 3), QStringList({"0 1 0", "50 1 0", "100 1 0"}));
}

void HoldToRunTest::letting_go_sends_one_zero_and_then_nothing()
{
    Run run;
    run.hold.hold({1, -1});
    run.pass(70ms);
    run.hold.letGo();
    QVERIFY(!run.hold.isHeld());
    QCOMPARE(run.pass(1s), QStringList("70 0 0"));
    run.hold.hold({0.5, 0});
    QCOMPARE(run.pass(1ms), QStringList("1070 0.5 0"));
}

void HoldToRunTest::the_shortest_press_is_sent_and_ended()
{
    Run run;
    run.hold.hold({1, 0});
    QCOMPARE(run.take(), QStringList("0 1 0"));
    run.hold.letGo();
    QCOMPARE(run.take(), QStringList("0 0 0"));
    QCOMPARE(run.take(), QStringList());
}

void HoldToRunTest::another_direction_is_sent_when_the_next_is_due()
{
    Run run;
    run.hold.hold({1, 0});
    run.pass(10ms);
    run.hold.hold({0, 1});
    QCOMPARE(run.pass(90ms), QStringList("50 0 1"));
}

void HoldToRunTest::an_end_sends_one_zero_until_it_is_pressed_again()
{
    Run run;
    run.hold.hold({1, 0});
    run.pass(10ms);
    run.hold.end();
    QVERIFY(run.hold.isHeld() && !run.hold.isRunning());
    run.hold.hold({0, 1}); // held all the time, as another key is pressed
    QCOMPARE(run.pass(1s), QStringList("10 0 0"));
    run.hold.letGo();
    QCOMPARE(run.pass(1s), QStringList());
    run.hold.hold({1, 0});
    QCOMPARE(run.pass(1ms), QStringList("2010 1 0"));
}

void HoldToRunTest::an_end_without_a_press_keeps_nothing_from_beginning()
{
    Run run;
    run.hold.end();
    run.hold.hold({1, 0});
    QCOMPARE(run.take(), QStringList("0 1 0"));
}

void HoldToRunTest::what_was_ended_before_anything_was_sent_sends_nothing()
{
    Run run;
    run.hold.hold({1, 0});
    run.hold.end();
    QCOMPARE(run.pass(1s), QStringList());
}

void HoldToRunTest::after_a_block_nothing_is_made_up_for()
{
    Run run;
    run.hold.hold({1, 0});
    run.pass(10ms);
    run.block(500ms);
    QCOMPARE(run.pass(100ms), QStringList({"510 1 0", "560 1 0"}));
}

TEST_WITHOUT_WINDOWS(HoldToRunTest)

} // namespace hold_to_run_test

#include "HoldToRunTest.moc"
