// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/faults/FaultyHost.h"

#include "host/device/faults/Faults.h"

namespace host::device::faults {

using plugin::gui::VariableKind;

FaultyHost::Variant FaultyHost::read(VariableKind kind, const char* name) const
{
    return m_faults.seen(kind, name, m_host.read(kind, name));
}

void FaultyHost::write(VariableKind kind, const char* name, const Variant& value)
{
    if (!m_faults.refusesWrite(kind, name))
        m_host.write(kind, name, value);
}

// The rest is passed on as it is.

void FaultyHost::registerInput(const char* name, bool on)
{
    m_host.registerInput(name, on);
}

void FaultyHost::registerOutput(const char* name, bool on)
{
    m_host.registerOutput(name, on);
}

void FaultyHost::registerStateVariable(const char* name, bool on)
{
    m_host.registerStateVariable(name, on);
}

void FaultyHost::registerConfigVariable(const char* name, bool on)
{
    m_host.registerConfigVariable(name, on);
}

FaultyHost::Variant FaultyHost::property(VariableKind kind, const char* name,
                                         const char* property) const
{
    return m_host.property(kind, name, property);
}

void FaultyHost::setProperty(VariableKind kind, const char* name, const char* property,
                             const Variant& value)
{
    m_host.setProperty(kind, name, property, value);
}

void FaultyHost::beginTransaction(const QString& name)
{
    m_host.beginTransaction(name);
}

void FaultyHost::endTransaction()
{
    m_host.endTransaction();
}

bool FaultyHost::connectDevice()
{
    return m_host.connectDevice();
}

bool FaultyHost::disconnectDevice()
{
    return m_host.disconnectDevice();
}

FaultyHost::Variant FaultyHost::simulationDirectExec(const Variant& role, const Variant& value)
{
    return m_host.simulationDirectExec(role, value);
}

QString FaultyHost::translate(const QString& text) const
{
    return m_host.translate(text);
}

QString FaultyHost::currentLanguage() const
{
    return m_host.currentLanguage();
}

QAction* FaultyHost::helpAction(const QString& context) const
{
    return m_host.helpAction(context);
}

void FaultyHost::widgetAdded(plugin::gui::DeviceWidget& widget)
{
    m_host.widgetAdded(widget);
}

void FaultyHost::widgetRemoved(plugin::gui::DeviceWidget& widget)
{
    m_host.widgetRemoved(widget);
}

} // namespace host::device::faults
