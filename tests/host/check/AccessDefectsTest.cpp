// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Defects.h"
#include "TestCase.h"

#include <QtTest>

namespace access_defects_test {

using defects::Defect;

namespace {

constexpr Defect all[] = {
    {"crashes-with-power-on", "monkey", "crashed", "; 2 actions bring it about ("},
    {"dies-with-menu-open", "deletion-open", "crashed",
     "was deleted with what this opens: right-click"},
    {"nameless-control", "names", "failed", "cannot name: QSlider"},
    {"unreachable-control", "tab-key", "failed", "Tab does not reach: QPushButton"},
    {"keeps-tab-key", "tab-key", "failed", "Tab does not leave: QTextEdit"},
    {"breaks-model-rules", "item-models", "failed", "breaks Qt's rules"},
    {"faint-text", "contrast", "failed", "QLabel"},
    {"cuts-text", "clipping", "failed", "QPushButton"},
    {"cuts-text", "clipping-large", "failed", "QPushButton"},
};

} // namespace

/// Levels 6 and 8: what breaks when people use a widget, and what keeps them from it.
class AccessDefectsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_defect_is_found_and_named_data();
    void each_defect_is_found_and_named();
};

void AccessDefectsTest::each_defect_is_found_and_named_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Defect& defect : all)
        QTest::addRow("%s by %s", defect.plugin, defect.test) << index++;
}

void AccessDefectsTest::each_defect_is_found_and_named()
{
    QFETCH(int, index);
    const QString fault = defects::fault(all[index]);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

TEST_WITHOUT_WINDOWS(AccessDefectsTest)

} // namespace access_defects_test

#include "AccessDefectsTest.moc"
