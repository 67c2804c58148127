// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace bad_value_defects_test {

namespace {

const std::vector<defects::Defect> all{
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
class BadValueDefectsTest : public DefectsTest
{
public:
    BadValueDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(BadValueDefectsTest)

} // namespace bad_value_defects_test
