// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_SOAKTESTS_H
#define HOST_CHECK_TESTS_SOAKTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 10: everything mixed for minutes, and what a device really told.
Tests soakTests();

} // namespace host::check::tests

#endif
