// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "DefectsTest.h"

namespace bad_host_defects_test {

namespace {

const std::vector<defects::Defect> all{
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
class BadHostDefectsTest : public DefectsTest
{
public:
    BadHostDefectsTest() : DefectsTest(all) {}
};

TEST_WITHOUT_WINDOWS(BadHostDefectsTest)

} // namespace bad_host_defects_test
