// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_DEVICEINTERFACE_H
#define PLUGIN_GUI_DEVICEINTERFACE_H

#include "olm/core/Export.h"
#include "olm/core/variant/Variant.h"
#include "plugin/plugin/DataRole.h"

#include <QString>

namespace plugin {
namespace gui {

class DeviceHistoryBundle;
class DeviceHost; // the host's private side of a device

/// A widget's access to the variables of its device, and the four notifications that the host
/// delivers to it. All on the GUI thread. A variable or property that the device does not have
/// reads as an empty Variant; writes are requests, answered by a later update() with what the
/// device made of them.
class OLM_EXPORT DeviceInterface
{
public:
    explicit DeviceInterface(DeviceHost& host);
    DeviceInterface(const DeviceInterface&) = delete;
    DeviceInterface& operator=(const DeviceInterface&) = delete;
    virtual ~DeviceInterface();

    virtual olm::core::variant::Variant readInput(const char* name) const;
    virtual void writeInput(const char* name, const olm::core::variant::Variant& value);
    virtual olm::core::variant::Variant getInputProperty(const char* name,
                                                         const char* property) const;
    virtual void setInputProperty(const char* name, const char* property,
                                  const olm::core::variant::Variant& value);

    virtual olm::core::variant::Variant readOutput(const char* name) const;
    virtual void writeOutput(const char* name, const olm::core::variant::Variant& value);
    virtual olm::core::variant::Variant getOutputProperty(const char* name,
                                                          const char* property) const;
    virtual void setOutputProperty(const char* name, const char* property,
                                   const olm::core::variant::Variant& value);

    virtual olm::core::variant::Variant readStateVariable(const char* name) const;
    virtual void writeStateVariable(const char* name, const olm::core::variant::Variant& value);
    virtual olm::core::variant::Variant getStateVariableProperty(const char* name,
                                                                 const char* property) const;
    virtual void setStateVariableProperty(const char* name, const char* property,
                                          const olm::core::variant::Variant& value);

    virtual olm::core::variant::Variant readConfigVariable(const char* name) const;
    virtual void writeConfigVariable(const char* name, const olm::core::variant::Variant& value);
    virtual olm::core::variant::Variant getConfigVariableProperty(const char* name,
                                                                  const char* property) const;
    virtual void setConfigVariableProperty(const char* name, const char* property,
                                           const olm::core::variant::Variant& value);

    /// Bracket writes that belong together; @p name tells the user what they are.
    virtual void beginTransaction(const QString& name);
    virtual void endTransaction();

    /// Asks for changes to be reported from the event loop instead of during the write. This
    /// host always does.
    virtual void setValueChangedAsync();

    /// The device was connected or disconnected.
    virtual void connected();
    virtual void disconnected();
    /// The device side sent a message; what @p value holds depends on the role.
    virtual void on_messageReceived(::plugin::plugin::DataRole role,
                                    const olm::core::variant::Variant& value);
    /// Registered variables changed; the bundle is valid during the call only.
    virtual void update(const DeviceHistoryBundle& bundle);

    /// Ask the host to start or end the connection; false where the host refuses at once.
    bool connectDevice();
    bool disconnectDevice();

private:
    DeviceHost& m_host;
};

} // namespace gui
} // namespace plugin

#endif
