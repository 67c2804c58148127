// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_REPLAY_REPLAYHOST_H
#define HOST_DEVICE_REPLAY_REPLAYHOST_H

#include "plugin/gui/DeviceHost.h"

#include <QAction>

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace host::device::recording {
struct InitialState;
} // namespace host::device::recording

namespace host::device::replay {

/// A device that answers its widgets what was recorded, and where nothing was, what it would have
/// answered by what is known of its variables. It does nothing else.
class ReplayHost : public plugin::gui::DeviceHost
{
public:
    using Variant = olm::core::variant::Variant;
    using Kind = plugin::gui::VariableKind;

    explicit ReplayHost(const recording::InitialState& state);

    /// What the next call is answered, whichever it is; empty for one without an answer.
    void answerNext(const Variant& answer) { m_answer = answer; }

    /// A variable has changed.
    void set(Kind kind, const std::string& name, const Variant& value);

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
    Variant answer(const Variant& usual) const;

    mutable std::optional<Variant> m_answer;
    std::map<std::pair<Kind, std::string>, Variant> m_variables;
    std::map<std::tuple<Kind, std::string, std::string>, Variant> m_properties;
    std::vector<plugin::gui::DeviceWidget*> m_widgets;
    mutable std::map<QString, QAction> m_helpActions; // by context
};

} // namespace host::device::replay

#endif
