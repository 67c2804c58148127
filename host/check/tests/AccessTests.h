// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_ACCESSTESTS_H
#define HOST_CHECK_TESTS_ACCESSTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// Level 8: a widget can be used with a screen reader, with the keyboard, and by people who read
/// other languages or large letters.
Tests accessTests();

} // namespace host::check::tests

#endif
