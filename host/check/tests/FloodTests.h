// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_FLOODTESTS_H
#define HOST_CHECK_TESTS_FLOODTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 7: a device tells more, and faster, than a person can see.
Tests floodTests();

} // namespace host::check::tests

#endif
