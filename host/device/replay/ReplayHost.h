// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_REPLAYHOST_H
#define HOST_DEVICE_REPLAY_REPLAYHOST_H

#include "host/device/trace/PluginCall.h"
#include "host/device/variables/Variables.h"
#include "plugin/gui/DeviceHost.h"

#include <QAction>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace host::device::recording {
struct DeviceState;
struct RecordedCall;
} // namespace host::device::recording

namespace host::device::replay {

/// A device that answers its widgets what was recorded, and where nothing was, what it would have
/// answered by what is known of its variables. It does nothing else.
class ReplayHost : public plugin::gui::DeviceHost
{
public:
    using Variant = olm::core::variant::Variant;
    using Kind = plugin::gui::VariableKind;

    explicit ReplayHost(const recording::DeviceState& state);

    /// What the next call is answered, whichever it is; empty for one without an answer.
    void answerNext(const Variant& answer) { m_answer = answer; }

    /// A variable has changed.
    void set(Kind kind, const std::string& name, const Variant& value);
    void setConnectionState(int state);
    int connectionState() const;
    /// Takes over what a recorded call to the host tells of the device.
    void learn(const recording::RecordedCall& call);
    /// The device is what it was then: variables that had no value have none.
    void restore(const recording::DeviceState& state);

    /// The variables that widgets have registered and that have a value, or had one before they
    /// were restored.
    trace::Arguments followed() const;

    /// In the order in which they were built.
    const std::vector<plugin::gui::DeviceWidget*>& widgets() const { return m_widgets; }

    void registerInput(const char* name, bool on) override;
    void registerOutput(const char* name, bool on) override;
    void registerStateVariable(const char* name, bool on) override;
    void registerConfigVariable(const char* name, bool on) override;
    Variant read(Kind kind, const char* name) const override;
    void write(Kind kind, const char* name, const Variant& value) override;
    Variant property(Kind kind, const char* name, const char* property) const override;
    void setProperty(Kind kind, const char* name, const char* property,
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
    void setRegistered(Kind kind, const char* name, bool on);
    Variant answer(const Variant& usual) const;

    mutable std::optional<Variant> m_answer;
    variables::Variables m_variables; // nobody is told of their changes but by what was recorded
    std::set<variables::Variables::Key> m_had;  // a value, before they were restored
    std::map<unsigned int, Variant> m_commands; // what they answer
    std::vector<plugin::gui::DeviceWidget*> m_widgets;
    mutable std::map<QString, QAction> m_helpActions; // by context
};

} // namespace host::device::replay

#endif
