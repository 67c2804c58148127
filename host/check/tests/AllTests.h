// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_TESTS_ALLTESTS_H
#define HOST_CHECK_TESTS_ALLTESTS_H

#include "host/check/tests/Test.h"

#include <QString>

namespace host::check::tests {

constexpr int highestLevel = 10;

/// All tests, in the order in which they are run.
const Tests& allTests();

/// Null where there is no such test.
const Test* findTest(const QString& name);

} // namespace host::check::tests

#endif
