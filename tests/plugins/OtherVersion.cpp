// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A plugin for another version of the framework. It can be loaded, and tells where it is called.
#include "olm/core/Export.h"

#include <stdexcept>

namespace plugin {
namespace gui {
class Interface;
} // namespace gui
} // namespace plugin

extern "C" void functionOfTheOtherVersion();
extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

void pluginGuiInterface(plugin::gui::Interface**)
{
    functionOfTheOtherVersion();
    throw std::logic_error("a plugin for another version was called");
}
