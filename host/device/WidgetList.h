// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_WIDGETLIST_H
#define HOST_DEVICE_WIDGETLIST_H

#include "host/device/trace/PluginCall.h"

#include <functional>
#include <memory>
#include <vector>

namespace plugin::gui {
class DeviceWidget;
}

namespace host::device::trace {
class Traffic;
} // namespace host::device::trace

namespace host::device {

/// The widgets of one device, whatever their place in the widget tree, and how one is called.
/// A handler may delete widgets, its own too, and build new ones; an exception that leaves it
/// is told, and reaches neither the other widgets nor the event loop.
class WidgetList
{
public:
    using Widget = plugin::gui::DeviceWidget;

    /// Hears which function, with its class, threw what.
    using OnThrown = std::function<void(const QString& function, const QString& what)>;

    /// The calls of widgets are noted in @p traffic, which outlives the list.
    WidgetList(trace::Traffic& traffic, OnThrown onThrown);

    /// @p widget is still under construction and gets nothing before translateNew().
    void add(Widget& widget);
    void remove(Widget& widget);

    /// Welcomes the widgets that were added since the last time: the constructors of all of
    /// them have ended. They are translated, and get every notification from now on.
    void translateNew();
    /// Calls @p notify with each welcomed widget; @p what names the notification, and
    /// @p arguments are what it gives each of them.
    void deliver(const char* what, trace::Arguments arguments,
                 const std::function<void(Widget&)>& notify);

private:
    struct Entry
    {
        Widget* widget;
        bool isNew;
    };

    void forEach(bool isNew, const char* what, trace::Arguments arguments,
                 const std::function<void(Widget&)>& notify);
    void call(const trace::PluginCall& call, Widget& widget,
              const std::function<void(Widget&)>& notify);

    trace::Traffic& m_traffic;
    OnThrown m_onThrown;
    std::vector<Entry> m_entries; // a removed one is null until no delivery is under way
    int m_deliveries = 0;         // under way, within each other
};

} // namespace host::device

#endif
