// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Defects.h"
#include "TestCase.h"

#include <QtTest>

namespace bad_value_defects_test {

using defects::Defect;

namespace {

constexpr Defect all[] = {
    {"crashes-on-long-text", "bad-updates", "crashed",
     "the config variable \"name\" to std::string"},
    {"crashes-on-largest-number", "bad-updates", "crashed",
     "config variable \"brightness\" to int 2147483647"},
    {"loops-on-infinity", "bad-updates", "timed out", "config variable \"brightness\" to double"},
    {"throws-on-unknown-role", "bad-messages", "failed",
     "threw an exception into its host: nobody told of such a role"},
    {"trusts-what-it-reads", "bad-answers", "crashed",
     "every variable and answer is int -2147483648"},
    {"crashes-after-many-updates", "many-updates", "crashed", "updates and messages"},
};

} // namespace

/// Level 4: a device says what no sound device says.
class BadValueDefectsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_defect_is_found_and_named_data();
    void each_defect_is_found_and_named();
};

void BadValueDefectsTest::each_defect_is_found_and_named_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Defect& defect : all)
        QTest::addRow("%s by %s", defect.plugin, defect.test) << index++;
}

void BadValueDefectsTest::each_defect_is_found_and_named()
{
    QFETCH(int, index);
    const QString fault = defects::fault(all[index]);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

TEST_WITHOUT_WINDOWS(BadValueDefectsTest)

} // namespace bad_value_defects_test

#include "BadValueDefectsTest.moc"
