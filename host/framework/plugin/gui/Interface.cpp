// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/Interface.h"

namespace plugin {
namespace gui {

Interface::Interface(const ::plugin::plugin::PluginInfo& info) : ::plugin::plugin::Interface(info)
{
}

Interface::~Interface() = default;

PluginWidget* Interface::loadUnitWidget(const char*, const char*, UnitDelegate&) const
{
    return nullptr;
}

DeviceWidget* Interface::loadDeviceWidget(const char*, const char*, DeviceDelegate&) const
{
    return nullptr;
}

} // namespace gui
} // namespace plugin
