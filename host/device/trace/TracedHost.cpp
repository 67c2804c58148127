// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/TracedHost.h"

#include "host/device/trace/TracedCall.h"
#include "plugin/gui/HostCall.h"

#include <QAction>

namespace host::device::trace {

using plugin::gui::VariableKind;
using Variant = olm::core::variant::Variant;

namespace {

/// The functions of the widgets' interface, which has one for each kind of variable.
struct Functions
{
    const char* read;
    const char* write;
    const char* property;
    const char* setProperty;
};

const Functions& functionsOf(VariableKind kind)
{
    static constexpr Functions functions[] = {
        {"readInput", "writeInput", "getInputProperty", "setInputProperty"},
        {"readOutput", "writeOutput", "getOutputProperty", "setOutputProperty"},
        {"readStateVariable", "writeStateVariable", "getStateVariableProperty",
         "setStateVariableProperty"},
        {"readConfigVariable", "writeConfigVariable", "getConfigVariableProperty",
         "setConfigVariableProperty"},
    };
    return functions[static_cast<std::size_t>(kind)];
}

PluginCall callToHost(const char* name, std::initializer_list<Variant> values)
{
    auto arguments = std::make_shared<Arguments>();
    for (const Variant& value : values)
        arguments->push_back({std::string(), value});
    return {PluginCall::Direction::ToHost, name, plugin::gui::HostCall::caller(),
            std::move(arguments)};
}

Variant text(const char* name)
{
    return std::string(name);
}

} // namespace

void TracedHost::registerInput(const char* name, bool on)
{
    const TracedCall call(m_traffic, callToHost("registerInput", {text(name), on}));
    m_host.registerInput(name, on);
}

void TracedHost::registerOutput(const char* name, bool on)
{
    const TracedCall call(m_traffic, callToHost("registerOutput", {text(name), on}));
    m_host.registerOutput(name, on);
}

void TracedHost::registerStateVariable(const char* name, bool on)
{
    const TracedCall call(m_traffic, callToHost("registerStateVariable", {text(name), on}));
    m_host.registerStateVariable(name, on);
}

void TracedHost::registerConfigVariable(const char* name, bool on)
{
    const TracedCall call(m_traffic, callToHost("registerConfigVariable", {text(name), on}));
    m_host.registerConfigVariable(name, on);
}

Variant TracedHost::read(VariableKind kind, const char* name) const
{
    TracedCall call(m_traffic, callToHost(functionsOf(kind).read, {text(name)}));
    return call.answer(m_host.read(kind, name));
}

void TracedHost::write(VariableKind kind, const char* name, const Variant& value)
{
    const TracedCall call(m_traffic, callToHost(functionsOf(kind).write, {text(name), value}));
    m_host.write(kind, name, value);
}

Variant TracedHost::property(VariableKind kind, const char* name, const char* property) const
{
    TracedCall call(m_traffic,
                    callToHost(functionsOf(kind).property, {text(name), text(property)}));
    return call.answer(m_host.property(kind, name, property));
}

void TracedHost::setProperty(VariableKind kind, const char* name, const char* property,
                             const Variant& value)
{
    const TracedCall call(
        m_traffic, callToHost(functionsOf(kind).setProperty, {text(name), text(property), value}));
    m_host.setProperty(kind, name, property, value);
}

void TracedHost::beginTransaction(const QString& name)
{
    const TracedCall call(m_traffic, callToHost("beginTransaction", {name}));
    m_host.beginTransaction(name);
}

void TracedHost::endTransaction()
{
    const TracedCall call(m_traffic, callToHost("endTransaction", {}));
    m_host.endTransaction();
}

bool TracedHost::connectDevice()
{
    TracedCall call(m_traffic, callToHost("connectDevice", {}));
    return call.answer(m_host.connectDevice());
}

bool TracedHost::disconnectDevice()
{
    TracedCall call(m_traffic, callToHost("disconnectDevice", {}));
    return call.answer(m_host.disconnectDevice());
}

Variant TracedHost::simulationDirectExec(const Variant& role, const Variant& value)
{
    TracedCall call(m_traffic, callToHost("simulationDirectExec", {role, value}));
    return call.answer(m_host.simulationDirectExec(role, value));
}

QString TracedHost::translate(const QString& text) const
{
    TracedCall call(m_traffic, callToHost("trans", {text}));
    return call.answer(m_host.translate(text));
}

QString TracedHost::currentLanguage() const
{
    TracedCall call(m_traffic, callToHost("currentLanguage", {}));
    return call.answer(m_host.currentLanguage());
}

QAction* TracedHost::helpAction(const QString& context) const
{
    TracedCall call(m_traffic, callToHost("helpAction", {context}));
    QAction* const action = m_host.helpAction(context);
    call.answer(action->text());
    return action;
}

void TracedHost::widgetAdded(plugin::gui::DeviceWidget& widget)
{
    m_host.widgetAdded(widget);
}

void TracedHost::widgetRemoved(plugin::gui::DeviceWidget& widget)
{
    m_host.widgetRemoved(widget);
}

} // namespace host::device::trace
