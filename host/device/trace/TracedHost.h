// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_TRACEDHOST_H
#define HOST_DEVICE_TRACE_TRACEDHOST_H

#include "plugin/gui/DeviceHost.h"

namespace host::device::trace {

class Traffic;

/// What widgets are built on in place of their device: passes every call on to it and notes the
/// call in the traffic.
class TracedHost : public plugin::gui::DeviceHost
{
public:
    using Variant = olm::core::variant::Variant;

    /// Both outlive it.
    TracedHost(DeviceHost& host, Traffic& traffic) : m_host(host), m_traffic(traffic) {}

    void registerInput(const char* name, bool on) override;
    void registerOutput(const char* name, bool on) override;
    void registerStateVariable(const char* name, bool on) override;
    void registerConfigVariable(const char* name, bool on) override;
    Variant read(plugin::gui::VariableKind kind, const char* name) const override;
    void write(plugin::gui::VariableKind kind, const char* name, const Variant& value) override;
    Variant property(plugin::gui::VariableKind kind, const char* name,
                     const char* property) const override;
    void setProperty(plugin::gui::VariableKind kind, const char* name, const char* property,
                     const Variant& value) override;
    void beginTransaction(const QString& name) override;
    void endTransaction() override;
    bool connectDevice() override;
    bool disconnectDevice() override;
    Variant simulationDirectExec(const Variant& role, const Variant& value) override;
    QString translate(const QString& text) const override;
    QString currentLanguage() const override;
    QAction* helpAction(const QString& context) const override;
    void widgetAdded(plugin::gui::DeviceWidget& widget) override;
    void widgetRemoved(plugin::gui::DeviceWidget& widget) override;

private:
    DeviceHost& m_host;
    Traffic& m_traffic;
};

} // namespace host::device::trace

#endif
