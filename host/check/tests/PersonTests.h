// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_PERSONTESTS_H
#define HOST_CHECK_TESTS_PERSONTESTS_H

#include "host/check/tests/Test.h"

namespace host::check::tests {

/// The test that a list of actions reproduces.
inline constexpr const char* monkey = "monkey";

/// Level 6: people use a widget as they like.
Tests personTests();

} // namespace host::check::tests

#endif
