// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace endurance_defects_test {

namespace {

const std::vector<defects::Defect> all{
    {"shows-first-of-many", "flood", "failed", "as fast as they come, the value of "},
    {"ignores-updates-while-hidden", "flood", "failed", "while it is hidden"},
    {"ignores-updates-until-shown", "flood", "failed", "before it is shown for the first time"},
    {"slow-update", "gui-thread", "failed", "an update of the config variable"},
    {"slow-to-paint", "gui-thread", "failed", "the event Paint of a"},
    {"opens-itself", "unload", "failed", "stays in memory when its host unloads it"},
    {"leaves-resources", "unload-resources", "failed", ":/left"},
    {"leaks-when-loaded", "reload", "failed", "bytes of memory each time"},
    {"leaks-when-used", "soak", "failed", "bytes of memory for each of"},
};

} // namespace

/// Levels 7, 9 and 10: what shows when a device tells much, when the library goes, and with time.
class EnduranceDefectsTest : public DefectsTest
{
public:
    EnduranceDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(EnduranceDefectsTest)

} // namespace endurance_defects_test
