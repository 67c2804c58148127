// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_PLUGIN_INTERFACE_H
#define PLUGIN_PLUGIN_INTERFACE_H

#include "olm/core/Export.h"
#include "plugin/plugin/PluginInfo.h"

namespace plugin {
namespace plugin {

/// The object a plugin hands to its host. It lives as long as the plugin is loaded; the host
/// never deletes it.
class OLM_EXPORT Interface
{
public:
    explicit Interface(const PluginInfo& info);
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;
    virtual ~Interface();

    /// Called by the host once after loading and once before unloading. Nothing by default.
    virtual void init() const;
    virtual void deinit() const;

    const PluginInfo& info() const { return m_info; }

private:
    PluginInfo m_info;
};

} // namespace plugin
} // namespace plugin

#endif
