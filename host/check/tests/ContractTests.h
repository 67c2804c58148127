// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_CONTRACTTESTS_H
#define HOST_CHECK_TESTS_CONTRACTTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 3: what a widget does with its device, its texts and its surroundings.
Tests contractTests();

} // namespace host::check::tests

#endif
