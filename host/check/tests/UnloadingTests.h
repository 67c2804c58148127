// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_UNLOADINGTESTS_H
#define HOST_CHECK_TESTS_UNLOADINGTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 9: a host lets go of the library.
Tests unloadingTests();

} // namespace host::check::tests

#endif
