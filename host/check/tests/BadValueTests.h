// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_BADVALUETESTS_H
#define HOST_CHECK_TESTS_BADVALUETESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 4: a device says what no sound device says.
Tests badValueTests();

} // namespace host::check::tests

#endif
