// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_LOADINGTESTS_H
#define HOST_CHECK_TESTS_LOADINGTESTS_H

#include "host/check/tests/Test.h"

#include <QLatin1String>

namespace host::check::tests {

/// The test that tells whether there is a widget to look at. By QLatin1String it can be compared.
inline constexpr QLatin1String offersWidget("offers-widget", 13);

/// Level 1: the library, its symbols and its factory.
Tests loadingTests();

} // namespace host::check::tests

#endif
