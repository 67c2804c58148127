// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace life_defects_test {

namespace {

const std::vector<defects::Defect> all{
    {"same-widget-twice", "new-widget", "failed", "the same widget twice"},
    {"has-parent", "new-widget", "failed", "has a parent"},
    {"shows-itself", "new-widget", "failed", "shows its widget itself"},
    {"never-returns", "orders", "timed out", "in its function connected"},
    {"never-translates", "deletion", "timed out", "in its function translate"},
    {"throws-in-update", "orders", "failed", "Dialog::update threw an exception into its host"},
    {"throws-in-event", "orders", "failed", "in an event Show: no room"},
    {"deletes-itself", "orders", "failed", "deletes its widget"},
    {"crashes-on-wrong-type", "orders", "crashed", "in its function update, after:"},
    {"keeps-deleted-owner", "deletion", "failed", "when the last of the device's widgets was gone"},
    {"crashes-untranslated", "deletion", "crashed", "deleted before it was translated"},
    {"crashes-in-destructor", "deletion", "crashed", "in its function destructor"},
    {"forgets-child", "deletion", "failed", "is still there"},
    {"leaks-widget", "ledger", "failed", "objects of class QLabel"},
    {"leaks-object", "ledger", "failed", "objects of class QObject"},
    {"leaks-timer", "ledger", "failed", "running timers"},
    {"leaks-window", "ledger", "failed", "windows"},
    {"leaks-thread", "ledger", "failed", "threads"},
    {"leaks-file", "ledger", "failed", "open files"},
    {"leaks-connection", "ledger", "failed", "connections with the host's objects"},
    {"leaks-memory", "memory", "failed", "bytes of memory"},
    {"mixes-up-devices", "ten-devices", "failed", "mixes up devices"},
};

} // namespace

/// Level 2: what goes wrong as widgets come and go.
class LifeDefectsTest : public DefectsTest
{
public:
    LifeDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(LifeDefectsTest)

} // namespace life_defects_test
