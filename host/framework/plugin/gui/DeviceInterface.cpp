// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/DeviceInterface.h"

#include "plugin/gui/HostCall.h"

#include <QWidget>

namespace plugin {
namespace gui {

using olm::core::variant::Variant;

namespace {

/// The interface is one base of a widget, QWidget is the other.
HostCall from(const DeviceInterface& widget, DeviceHost& host)
{
    return HostCall(host, dynamic_cast<const QWidget*>(&widget));
}

} // namespace

DeviceInterface::DeviceInterface(DeviceHost& host) : m_host(host) {}

DeviceInterface::~DeviceInterface() = default;

Variant DeviceInterface::readInput(const char* name) const
{
    return from(*this, m_host)->read(VariableKind::Input, name);
}

void DeviceInterface::writeInput(const char* name, const Variant& value)
{
    from(*this, m_host)->write(VariableKind::Input, name, value);
}

Variant DeviceInterface::getInputProperty(const char* name, const char* property) const
{
    return from(*this, m_host)->property(VariableKind::Input, name, property);
}

void DeviceInterface::setInputProperty(const char* name, const char* property, const Variant& value)
{
    from(*this, m_host)->setProperty(VariableKind::Input, name, property, value);
}

Variant DeviceInterface::readOutput(const char* name) const
{
    return from(*this, m_host)->read(VariableKind::Output, name);
}

void DeviceInterface::writeOutput(const char* name, const Variant& value)
{
    from(*this, m_host)->write(VariableKind::Output, name, value);
}

Variant DeviceInterface::getOutputProperty(const char* name, const char* property) const
{
    return from(*this, m_host)->property(VariableKind::Output, name, property);
}

void DeviceInterface::setOutputProperty(const char* name, const char* property,
                                        const Variant& value)
{
    from(*this, m_host)->setProperty(VariableKind::Output, name, property, value);
}

Variant DeviceInterface::readStateVariable(const char* name) const
{
    return from(*this, m_host)->read(VariableKind::State, name);
}

void DeviceInterface::writeStateVariable(const char* name, const Variant& value)
{
    from(*this, m_host)->write(VariableKind::State, name, value);
}

Variant DeviceInterface::getStateVariableProperty(const char* name, const char* property) const
{
    return from(*this, m_host)->property(VariableKind::State, name, property);
}

void DeviceInterface::setStateVariableProperty(const char* name, const char* property,
                                               const Variant& value)
{
    from(*this, m_host)->setProperty(VariableKind::State, name, property, value);
}

Variant DeviceInterface::readConfigVariable(const char* name) const
{
    return from(*this, m_host)->read(VariableKind::Config, name);
}

void DeviceInterface::writeConfigVariable(const char* name, const Variant& value)
{
    from(*this, m_host)->write(VariableKind::Config, name, value);
}

Variant DeviceInterface::getConfigVariableProperty(const char* name, const char* property) const
{
    return from(*this, m_host)->property(VariableKind::Config, name, property);
}

void DeviceInterface::setConfigVariableProperty(const char* name, const char* property,
                                                const Variant& value)
{
    from(*this, m_host)->setProperty(VariableKind::Config, name, property, value);
}

void DeviceInterface::beginTransaction(const QString& name)
{
    from(*this, m_host)->beginTransaction(name);
}

void DeviceInterface::endTransaction()
{
    from(*this, m_host)->endTransaction();
}

void DeviceInterface::setValueChangedAsync() {}

void DeviceInterface::connected() {}

void DeviceInterface::disconnected() {}

void DeviceInterface::on_messageReceived(::plugin::plugin::DataRole, const Variant&) {}

void DeviceInterface::update(const DeviceHistoryBundle&) {}

bool DeviceInterface::connectDevice()
{
    return from(*this, m_host)->connectDevice();
}

bool DeviceInterface::disconnectDevice()
{
    return from(*this, m_host)->disconnectDevice();
}

} // namespace gui
} // namespace plugin
