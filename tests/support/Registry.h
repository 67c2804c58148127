// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_TESTS_REGISTRY_H
#define QUANDREL_TESTS_REGISTRY_H

#include "TestCase.h"

#include <map>
#include <string>

/// The test classes of a program, by name; filled before main() begins.
namespace Registry {

struct Entry
{
    bool hasWindows;
    TestCase::Maker make;
};

std::map<std::string, Entry>& entries();

} // namespace Registry

#endif
