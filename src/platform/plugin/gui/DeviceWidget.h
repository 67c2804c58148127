// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_DEVICEWIDGET_H
#define PLUGIN_GUI_DEVICEWIDGET_H

#include "olm/core/Export.h"
#include "plugin/gui/DeviceInterface.h"
#include "plugin/gui/PluginWidget.h"

namespace plugin {
namespace gui {

class DeviceDelegate;
class DeviceWidget;

/// A widget's membership in its host's list of widgets to notify, from the end of the
/// DeviceWidget constructor to the beginning of its destructor.
class OLM_EXPORT DeviceWidgetMembership
{
public:
    DeviceWidgetMembership(DeviceHost& host, DeviceWidget& widget);
    DeviceWidgetMembership(const DeviceWidgetMembership&) = delete;
    DeviceWidgetMembership& operator=(const DeviceWidgetMembership&) = delete;
    virtual ~DeviceWidgetMembership();

private:
    DeviceHost& m_host;
    DeviceWidget& m_widget;
};

/// The base of every widget of a device. The host notifies each one built on a delegate
/// directly, whatever its place in the widget tree.
class OLM_EXPORT DeviceWidget : public PluginWidget,
                                public DeviceInterface,
                                private DeviceWidgetMembership
{
public:
    /// Throws std::invalid_argument for a delegate of another host's framework.
    DeviceWidget(DeviceDelegate& delegate, QWidget* parent);

    using DeviceInterface::update;
    using PluginWidget::update;

    /// Sends a command to the device (@p role holds its number, as the plugin's own
    /// enumeration) and returns the answer, empty where there is none.
    olm::core::variant::Variant simulationDirectExec(const olm::core::variant::Variant& role,
                                                     const olm::core::variant::Variant& value);

private:
    DeviceWidget(DeviceHost& host, QWidget* parent);

    DeviceHost& m_host;
};

} // namespace gui
} // namespace plugin

#endif
