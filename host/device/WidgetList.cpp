// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/WidgetList.h"

#include "host/device/trace/ClassName.h"
#include "host/device/trace/TracedCall.h"
#include "plugin/gui/DeviceWidget.h"

#include <algorithm>
#include <exception>

namespace host::device {

WidgetList::WidgetList(trace::Traffic& traffic, OnThrown onThrown)
    : m_traffic(traffic),
      m_onThrown(std::move(onThrown))
{
}

void WidgetList::add(Widget& widget)
{
    m_entries.push_back({&widget, true});
}

void WidgetList::remove(Widget& widget)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.widget == &widget; });
    if (m_deliveries > 0)
        found->widget = nullptr;
    else
        m_entries.erase(found);
}

void WidgetList::translateNew()
{
    forEach(true, "translate", {}, [](Widget& widget) { widget.translate(); });
}

void WidgetList::deliver(const char* what, trace::Arguments arguments,
                         const std::function<void(Widget&)>& notify)
{
    forEach(false, what, std::move(arguments), notify);
}

void WidgetList::forEach(bool isNew, const char* what, trace::Arguments arguments,
                         const std::function<void(Widget&)>& notify)
{
    const auto shared = std::make_shared<const trace::Arguments>(std::move(arguments));
    ++m_deliveries;
    // By index, and not beyond the present end: a handler may append.
    const std::size_t end = m_entries.size();
    for (std::size_t i = 0; i < end; ++i) {
        Widget* const widget = m_entries[i].widget;
        if (!widget || m_entries[i].isNew != isNew)
            continue;
        m_entries[i].isNew = false;
        call({trace::PluginCall::Direction::ToPlugin, what, widget, shared}, *widget, notify);
    }
    if (--m_deliveries > 0)
        return;
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [](const Entry& entry) { return !entry.widget; }),
                    m_entries.end());
}

void WidgetList::call(const trace::PluginCall& call, Widget& widget,
                      const std::function<void(Widget&)>& notify)
{
    // The handler may delete the widget.
    const auto tell = [&](const char* what) {
        m_onThrown(trace::className(*call.widgetClass) + "::" + call.name, QString::fromUtf8(what));
    };
    try {
        const trace::TracedCall traced(m_traffic, call);
        notify(widget);
    } catch (const std::exception& exception) {
        tell(exception.what());
    } catch (...) {
        tell("not a std::exception");
    }
}

} // namespace host::device
