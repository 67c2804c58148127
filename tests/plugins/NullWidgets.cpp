// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// An interface that knows no widget.
#include "TestInterface.h"

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static TestInterface instance;
    *interface = &instance;
}
