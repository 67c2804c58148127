// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_DELIVERY_H
#define QUANDREL_DELIVERY_H

#include "FakeHost.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/HistoryBundleContent.h"

/// What a host does to its widgets, each call to every one of them.

template <class Notify>
void notifyWidgets(FakeHost& host, Notify notify)
{
    const auto widgets = host.widgets; // a handler may build or delete some
    for (plugin::gui::DeviceWidget* widget : widgets) {
        if (host.widgets.contains(widget))
            notify(*widget);
    }
}

inline void deliver(FakeHost& host, const plugin::gui::HistoryBundleContent& content)
{
    notifyWidgets(host, [&content](plugin::gui::DeviceWidget& widget) {
        widget.update(plugin::gui::DeviceHistoryBundle(content));
    });
}

/// Sets the variable and delivers a bundle with it alone.
inline void change(FakeHost& host, Kind kind, const char* name, const Variant& value)
{
    host.set(kind, name, value);
    plugin::gui::HistoryBundleContent content;
    content.insert(kind, name, value);
    deliver(host, content);
}

inline void message(FakeHost& host, int role, const Variant& value)
{
    notifyWidgets(host, [role, &value](plugin::gui::DeviceWidget& widget) {
        widget.on_messageReceived(static_cast<plugin::plugin::DataRole>(role), value);
    });
}

#endif
