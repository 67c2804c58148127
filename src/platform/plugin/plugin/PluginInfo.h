// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_PLUGIN_PLUGININFO_H
#define PLUGIN_PLUGIN_PLUGININFO_H

#include "olm/core/Export.h"

#include <string>

namespace plugin {
namespace plugin {

/// What a plugin says of itself: the vendor and the device it serves, a third text, and four
/// numbers, -1 where there is nothing to say.
class OLM_EXPORT PluginInfo
{
public:
    PluginInfo(const char* vendor, const char* name, const char* description, int number1,
               int number2, int number3, int number4);

    const std::string& vendor() const { return m_vendor; }

    const std::string& name() const { return m_name; }

    const std::string& description() const { return m_description; }

    /// @p index from 0 to 3.
    int number(int index) const { return m_numbers[index]; }

private:
    std::string m_vendor;
    std::string m_name;
    std::string m_description;
    int m_numbers[4];
};

} // namespace plugin
} // namespace plugin

#endif
