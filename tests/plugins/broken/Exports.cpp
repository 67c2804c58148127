// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A plugin without widgets that exports more than its entry point: a function, a weak one, or a
// symbol of which there is one in the whole process.
#include "plugin/gui/Interface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace helpers {

#if defined(EXPORT_WEAK)
OLM_EXPORT __attribute__((weak)) int help();

int help()
{
    return 1;
}
#elif defined(EXPORT_UNIQUE)
template <class T>
struct OLM_EXPORT Counter
{
    static int& count()
    {
        static int number = 0;
        return number;
    }
};

OLM_EXPORT int& help();

int& help()
{
    return Counter<int>::count();
}
#else
OLM_EXPORT int help();

int help()
{
    return 1;
}
#endif

} // namespace helpers

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static plugin::gui::Interface instance({"Broken Works", "Lamp", "", -1, -1, -1, -1});
    *interface = &instance;
}
