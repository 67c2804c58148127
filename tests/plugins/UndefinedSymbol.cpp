// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Built against a host that has more than this one: it cannot be linked at run time.
#include "plugin/gui/Interface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);
extern "C" void functionOfALaterHost();

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    functionOfALaterHost();
    *interface = nullptr;
}
