// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Defects.h"
#include "TestCase.h"

#include <QtTest>

namespace contract_defects_test {

using defects::Defect;

namespace {

constexpr Defect all[] = {
    {"registers-late", "registration", "failed", "config variable \"power\" only after"},
    {"forgets-text", "translation", "failed", "\"Brightness\""},
    {"forgets-tool-tip", "translation", "failed", "the tool tip of the QCheckBox"},
    {"forgets-tab", "translation", "failed", "the title of a tab of the QTabBar, \"Lamp\""},
    {"forgets-choice", "translation", "failed", "\"Flashing\""},
    {"keeps-language", "language-change", "failed", "keeps the old language"},
    {"writes-in-constructor", "unasked", "failed", "(\"brightness\", 50) while it is built"},
    {"writes-when-shown", "unasked", "failed", "when it is shown"},
    {"connects-by-itself", "unasked", "failed", "connectDevice() while it is built"},
    {"writes-back", "write-back", "failed",
     "when the device has set the config variable \"power\""},
    {"writes-twice", "writes-once", "failed", "2 times"},
    {"writes-other-kind", "writes-once", "failed", "writes the state variable \"power\""},
    {"leaves-transaction-open", "writes-once", "failed", "a transaction that it does not end"},
    {"ends-foreign-transaction", "writes-once", "failed",
     "ended a transaction that it had not begun"},
    {"nests-transactions", "writes-once", "failed", "within another one"},
    {"deletes-help-action", "help-actions", "failed", "deletes the help action \"device\""},
    {"adopts-help-action", "help-actions", "failed", "a child of its own"},
    {"changes-locale", "surroundings", "failed", "the locale"},
    {"changes-folder", "surroundings", "failed", "the working folder"},
    {"changes-environment", "surroundings", "failed", "BROKEN_PLUGIN"},
    {"changes-rounding", "surroundings", "failed", "the floating-point mode"},
    {"changes-file-mask", "surroundings", "failed", "the mask of new files"},
    {"changes-signal-handler", "surroundings", "failed", "the signal handlers"},
    {"changes-signal-mask", "surroundings", "failed", "the blocked signals"},
    {"changes-terminate", "surroundings", "failed", "std::terminate"},
    {"changes-palette", "surroundings", "failed", "palette"},
    {"changes-font", "surroundings", "failed", "font"},
    {"changes-style-sheet", "surroundings", "failed", "style sheet"},
    {"changes-application-name", "surroundings", "failed",
     "name (from device-plugin-check to mine)"},
    {"changes-message-handler", "surroundings", "failed", "the handler of Qt's messages"},
};

} // namespace

/// Level 3: what a widget does with its device, its texts and its surroundings.
class ContractDefectsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_defect_is_found_and_named_data();
    void each_defect_is_found_and_named();
};

void ContractDefectsTest::each_defect_is_found_and_named_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Defect& defect : all)
        QTest::addRow("%s by %s", defect.plugin, defect.test) << index++;
}

void ContractDefectsTest::each_defect_is_found_and_named()
{
    QFETCH(int, index);
    const QString fault = defects::fault(all[index]);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

TEST_WITHOUT_WINDOWS(ContractDefectsTest)

} // namespace contract_defects_test

#include "ContractDefectsTest.moc"
