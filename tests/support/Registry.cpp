// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Registry.h"

std::map<std::string, Registry::Entry>& Registry::entries()
{
    static std::map<std::string, Entry> s_entries;
    return s_entries;
}

bool TestCase::add(const char* name, bool hasWindows, Maker make)
{
    return Registry::entries().emplace(name, Registry::Entry{hasWindows, make}).second;
}
