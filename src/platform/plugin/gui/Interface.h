// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_INTERFACE_H
#define PLUGIN_GUI_INTERFACE_H

#include "olm/core/Export.h"
#include "plugin/plugin/Interface.h"

namespace plugin {
namespace gui {

class DeviceDelegate;
class DeviceWidget;
class PluginWidget;
class UnitDelegate;

/// A plugin's widget factory. The host asks for a widget by the name of the unit or device and
/// the name of the widget, on the GUI thread, and owns what it gets; null is "no such widget".
class OLM_EXPORT Interface : public ::plugin::plugin::Interface
{
public:
    explicit Interface(const ::plugin::plugin::PluginInfo& info);
    ~Interface() override;

    /// Null by default.
    virtual PluginWidget* loadUnitWidget(const char* unit, const char* widget,
                                         UnitDelegate& delegate) const;
    /// Null by default. The delegate must outlive the widget.
    virtual DeviceWidget* loadDeviceWidget(const char* device, const char* widget,
                                           DeviceDelegate& delegate) const;
};

} // namespace gui
} // namespace plugin

#endif
