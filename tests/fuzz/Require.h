// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef FUZZ_REQUIRE_H
#define FUZZ_REQUIRE_H

#include <cstdlib>

/// What must hold for every input; the fuzzer keeps one for which it does not.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

#endif
