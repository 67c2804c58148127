// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/DeviceWidget.h"

#include "plugin/gui/HostCall.h"

#include <stdexcept>

namespace plugin {
namespace gui {

namespace {

DeviceHost& hostOf(DeviceDelegate& delegate)
{
    auto* host = dynamic_cast<DeviceHost*>(&delegate);
    if (!host) {
        throw std::invalid_argument("plugin::gui::DeviceWidget: the delegate is no DeviceHost of "
                                    "this framework; pass the one that the host handed over");
    }
    return *host;
}

} // namespace

DeviceWidgetMembership::DeviceWidgetMembership(DeviceHost& host, DeviceWidget& widget)
    : m_host(host),
      m_widget(widget)
{
    m_host.widgetAdded(m_widget);
}

DeviceWidgetMembership::~DeviceWidgetMembership()
{
    m_host.widgetRemoved(m_widget);
}

DeviceWidget::DeviceWidget(DeviceDelegate& delegate, QWidget* parent)
    : DeviceWidget(hostOf(delegate), parent)
{
}

DeviceWidget::DeviceWidget(DeviceHost& host, QWidget* parent)
    : PluginWidget(host, parent),
      DeviceInterface(host),
      DeviceWidgetMembership(host, *this),
      m_host(host)
{
}

olm::core::variant::Variant
DeviceWidget::simulationDirectExec(const olm::core::variant::Variant& role,
                                   const olm::core::variant::Variant& value)
{
    return HostCall(m_host, this)->simulationDirectExec(role, value);
}

} // namespace gui
} // namespace plugin
