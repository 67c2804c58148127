// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "main.h"

#include "Dialog.h"
#include "Toolbar.h"
#include "plugin/plugin/PluginInfo.h"

#include <cstring>

PluginGuiInterface::PluginGuiInterface(const plugin::plugin::PluginInfo& info)
    : plugin::gui::Interface(info)
{
}

plugin::gui::DeviceWidget*
PluginGuiInterface::loadDeviceWidget(const char* device, const char* widget,
                                     plugin::gui::DeviceDelegate& delegate) const
{
    if (std::strcmp(device, "OLM GmbH Quandrel") != 0)
        return nullptr;
    if (std::strcmp(widget, "dialog") == 0)
        return new Dialog(delegate);
    if (std::strcmp(widget, "toolbar") == 0)
        return new Toolbar(delegate);
    return nullptr;
}

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    static PluginGuiInterface instance(
        plugin::plugin::PluginInfo("OLM GmbH", "Quandrel", "not specified", -1, -1, -1, -1));
    *interface = &instance;
}
