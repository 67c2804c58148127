// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace contract_defects_test {

namespace {

const std::vector<defects::Defect> all{
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
class ContractDefectsTest : public DefectsTest
{
public:
    ContractDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(ContractDefectsTest)

} // namespace contract_defects_test
