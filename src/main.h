// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef MAIN_H
#define MAIN_H

#include "plugin/gui/Interface.h"

#include <QtGlobal>

/// The plugin as its host sees it: the factory of the Quandrel's widgets. One object in the
/// process, made by the first call of pluginGuiInterface().
class PluginGuiInterface : public plugin::gui::Interface
{
public:
    explicit PluginGuiInterface(const plugin::plugin::PluginInfo& info);

    /// A new widget without parent, the caller's from then on, or null for a name that is not
    /// exactly one of the plugin's. Exceptions of a widget's constructor pass through.
    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override;
};

extern "C" {

/// The plugin's entry point, called by the host after loading the library, from any thread:
/// stores the plugin's interface object, the same at every call. The object lives until the
/// library is unloaded.
Q_DECL_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);
}

#endif
