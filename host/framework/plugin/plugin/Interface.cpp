// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/plugin/Interface.h"

namespace plugin {
namespace plugin {

PluginInfo::PluginInfo(const char* vendor, const char* name, const char* description, int number1,
                       int number2, int number3, int number4)
    : m_vendor(vendor),
      m_name(name),
      m_description(description),
      m_numbers{number1, number2, number3, number4}
{
}

Interface::Interface(const PluginInfo& info) : m_info(info) {}

Interface::~Interface() = default;

void Interface::init() const {}

void Interface::deinit() const {}

} // namespace plugin
} // namespace plugin
