// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_LIFETESTS_H
#define HOST_CHECK_TESTS_LIFETESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 2: widgets come and go, in every order that the contract allows, and leave nothing.
Tests lifeTests();

} // namespace host::check::tests

#endif
