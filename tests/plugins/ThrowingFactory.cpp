// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A factory that ends with an exception.
#include "plugin/gui/Interface.h"

#include <stdexcept>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

void pluginGuiInterface(plugin::gui::Interface**)
{
    throw std::runtime_error("the licence has expired");
}
