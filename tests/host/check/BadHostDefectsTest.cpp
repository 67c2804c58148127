// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Defects.h"
#include "TestCase.h"

#include <QtTest>

namespace bad_host_defects_test {

using defects::Defect;

namespace {

constexpr Defect all[] = {
    {"waits-for-write", "forgotten-writes", "timed out", "the use of the QCheckBox"},
    {"insists", "refused-writes", "failed",
     "says that the variable stays as it was, and it calls writeConfigVariable"},
    {"answers-echo", "echoes", "failed",
     "says later that it is so, and it calls writeConfigVariable"},
    {"crashes-before-translation", "any-order", "crashed", "update config"},
    {"swallows-exceptions", "host-throws", "failed", "swallows the exception"},
    {"leaks-when-host-throws", "host-throws", "failed", "QLabel"},
};

} // namespace

/// Level 5: a host that does not do what it was asked, or does it at the wrong time.
class BadHostDefectsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_defect_is_found_and_named_data();
    void each_defect_is_found_and_named();
};

void BadHostDefectsTest::each_defect_is_found_and_named_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Defect& defect : all)
        QTest::addRow("%s by %s", defect.plugin, defect.test) << index++;
}

void BadHostDefectsTest::each_defect_is_found_and_named()
{
    QFETCH(int, index);
    const QString fault = defects::fault(all[index]);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

TEST_WITHOUT_WINDOWS(BadHostDefectsTest)

} // namespace bad_host_defects_test

#include "BadHostDefectsTest.moc"
