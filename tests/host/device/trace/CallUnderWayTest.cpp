// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/device/trace/CallUnderWay.h"

#include <QtTest>

namespace call_under_way_test {

using host::device::trace::CallUnderWay;

class CallUnderWayTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_call_that_began_last_and_has_not_ended_is_named();
};

void CallUnderWayTest::the_call_that_began_last_and_has_not_ended_is_named()
{
    const auto innermost = [] { return QString(CallUnderWay::innermost()); };
    QVERIFY(!CallUnderWay::innermost());
    {
        const CallUnderWay outer("init");
        QCOMPARE(innermost(), QString("init"));
        {
            const CallUnderWay inner("translate");
            QCOMPARE(innermost(), QString("translate"));
        }
        QCOMPARE(innermost(), QString("init"));
    }
    QVERIFY(!CallUnderWay::innermost());
}

TEST_WITHOUT_WINDOWS(CallUnderWayTest)

} // namespace call_under_way_test

#include "CallUnderWayTest.moc"
