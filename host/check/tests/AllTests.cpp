// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/AllTests.h"

#include "host/check/tests/AccessTests.h"
#include "host/check/tests/BadHostTests.h"
#include "host/check/tests/BadValueTests.h"
#include "host/check/tests/ContractTests.h"
#include "host/check/tests/FloodTests.h"
#include "host/check/tests/LifeTests.h"
#include "host/check/tests/LoadingTests.h"
#include "host/check/tests/PersonTests.h"
#include "host/check/tests/SoakTests.h"
#include "host/check/tests/UnloadingTests.h"

#include <QLatin1String>

#include <algorithm>

namespace host::check::tests {

const Tests& allTests()
{
    static const Tests all = [] {
        Tests tests;
        for (const Tests& part :
             {loadingTests(), lifeTests(), contractTests(), badValueTests(), badHostTests(),
              personTests(), floodTests(), accessTests(), unloadingTests(), soakTests()})
            tests.insert(tests.end(), part.begin(), part.end());
        return tests;
    }();
    return all;
}

const Test* findTest(const QString& name)
{
    const Tests& tests = allTests();
    const auto found = std::find_if(tests.begin(), tests.end(), [&](const Test& test) {
        return name == QLatin1String(test.name);
    });
    return found == tests.end() ? nullptr : &*found;
}

} // namespace host::check::tests
