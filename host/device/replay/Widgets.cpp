// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/Widgets.h"

#include "host/device/replay/ReplayHost.h"
#include "host/device/trace/ClassName.h"
#include "host/device/trace/TracedCall.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/HistoryBundleContent.h"
#include "plugin/gui/Interface.h"

#include <algorithm>

namespace host::device::replay {

using plugin::gui::DeviceWidget;
using recording::RecordedCall;
using trace::Arguments;
using trace::PluginCall;

namespace {

void update(DeviceWidget& widget, const Arguments& arguments)
{
    plugin::gui::HistoryBundleContent content;
    for (const trace::Argument& argument : arguments) {
        if (argument.kind)
            content.insert(*argument.kind, argument.name, argument.value);
    }
    widget.update(plugin::gui::DeviceHistoryBundle(content));
}

void receive(DeviceWidget& widget, const Arguments& arguments)
{
    if (arguments.size() == 2)
        widget.on_messageReceived(plugin::plugin::DataRole(arguments[0].value.get<int>()),
                                  arguments[1].value);
}

const Widgets::Function functions[] = {
    {"translate", [](DeviceWidget& widget, const Arguments&) { widget.translate(); }},
    {"update", update},
    {"on_messageReceived", receive},
    {"connected", [](DeviceWidget& widget, const Arguments&) { widget.connected(); }},
    {"disconnected", [](DeviceWidget& widget, const Arguments&) { widget.disconnected(); }},
};

const Widgets::Function* functionNamed(const QString& name)
{
    const auto* const found = std::find_if(
        std::begin(functions), std::end(functions),
        [&](const Widgets::Function& each) { return name == QLatin1String(each.name); });
    return found == std::end(functions) ? nullptr : found;
}

} // namespace

Widgets::Widgets(ReplayHost& host) : m_host(host), m_tracedHost(host, m_traffic) {}

Widgets::~Widgets()
{
    while (!m_host.widgets().empty())
        delete m_host.widgets().front(); // with those within it
}

DeviceWidget* Widgets::build(const plugin::gui::Interface& factory, const char* device,
                             const char* widget)
{
    const Arguments arguments{{"device", std::string(device)}, {"widget", std::string(widget)}};
    trace::TracedCall call(m_traffic, {PluginCall::Direction::ToPlugin, "loadDeviceWidget", nullptr,
                                       std::make_shared<const Arguments>(arguments)});
    DeviceWidget* const built = factory.loadDeviceWidget(device, widget, m_tracedHost);
    if (built)
        call.answer(trace::className(typeid(*built)));
    return built;
}

Widgets::Outcome Widgets::deliver(const RecordedCall& call)
{
    DeviceWidget* const widget = find(call);
    if (!widget)
        return Outcome::NoWidget;
    const Function* const function = functionNamed(call.function);
    if (!function)
        return Outcome::NoFunction;
    return this->call(*function, *widget, call.arguments);
}

void Widgets::skip(const RecordedCall& call)
{
    find(call);
}

void Widgets::deliverToAll(const char* function, const Arguments& arguments)
{
    const auto shared = std::make_shared<const Arguments>(arguments);
    m_told.clear();
    const auto widgets = m_host.widgets();
    for (DeviceWidget* const widget : widgets) {
        const auto& present = m_host.widgets(); // a handler may delete widgets
        if (std::find(present.begin(), present.end(), widget) != present.end())
            call(*functionNamed(QLatin1String(function)), *widget, shared);
    }
}

Widgets::Outcome Widgets::call(const Function& function, DeviceWidget& widget,
                               const std::shared_ptr<const Arguments>& arguments)
{
    try {
        const trace::TracedCall traced(
            m_traffic, {PluginCall::Direction::ToPlugin, function.name, &widget, arguments});
        function.call(widget, *arguments);
    } catch (...) {
        return Outcome::Threw;
    }
    return Outcome::Done;
}

/// Of several alike, in their order, each gets what all get.
DeviceWidget* Widgets::find(const RecordedCall& call)
{
    if (!call.argumentsOf && !call.arguments->empty())
        m_told.clear();
    const auto isMeant = [&](const DeviceWidget* widget) {
        return trace::className(typeid(*widget)) == call.widgetClass &&
               widget->objectName() == call.widgetName && m_told.count(widget) == 0;
    };
    const auto& widgets = m_host.widgets();
    auto found = std::find_if(widgets.begin(), widgets.end(), isMeant);
    if (found == widgets.end()) {
        m_told.clear();
        found = std::find_if(widgets.begin(), widgets.end(), isMeant);
    }
    if (found == widgets.end())
        return nullptr;
    m_told.insert(*found);
    return *found;
}

} // namespace host::device::replay
