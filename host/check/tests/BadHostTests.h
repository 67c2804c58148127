// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_BADHOSTTESTS_H
#define HOST_CHECK_TESTS_BADHOSTTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 5: a host that does not do what it was asked, or does it at the wrong time.
Tests badHostTests();

} // namespace host::check::tests

#endif
