// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// A plugin with one widget.
#include "olm/core/Export.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"

#include <cstring>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

class Interface : public plugin::gui::Interface
{
public:
    Interface() : plugin::gui::Interface({"outside", "Lamp", "", -1, -1, -1, -1}) {}

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char*, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        const bool isKnown = std::strcmp(widget, "toolbar") == 0;
        return isKnown ? new plugin::gui::DeviceWidget(delegate, nullptr) : nullptr;
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static Interface instance;
    *interface = &instance;
}
