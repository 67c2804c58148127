// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A factory that has nothing to give.
#include "plugin/gui/Interface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    *interface = nullptr;
}
