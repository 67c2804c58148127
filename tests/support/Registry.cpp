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
