// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/ReplayHost.h"

#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/recording/CallText.h"
#include "host/device/recording/DeviceState.h"

#include <QHash>

#include <algorithm>
#include <set>
#include <utility>

namespace host::device::replay {

namespace {

using Kind = plugin::gui::VariableKind;

/// What a call to the host tells of a variable or of a note on it.
struct Access
{
    Kind kind;
    bool isWrite;
    int names; // which is how many of the arguments
};

const Access* accessBy(const QString& function)
{
    static const auto all = [] {
        struct
        {
            Kind kind;
            QString name;
        } const kinds[] = {
            {Kind::Input, QStringLiteral("Input")},
            {Kind::Output, QStringLiteral("Output")},
            {Kind::State, QStringLiteral("StateVariable")},
            {Kind::Config, QStringLiteral("ConfigVariable")},
        };
        QHash<QString, Access> accesses;
        for (const auto& [kind, name] : kinds) {
            accesses.insert(QStringLiteral("read") + name, {kind, false, 1});
            accesses.insert(QStringLiteral("write") + name, {kind, true, 1});
            accesses.insert(QStringLiteral("get%1Property").arg(name), {kind, false, 2});
            accesses.insert(QStringLiteral("set%1Property").arg(name), {kind, true, 2});
        }
        return accesses;
    }();
    const auto found = all.find(function);
    return found == all.end() ? nullptr : &*found;
}

} // namespace

ReplayHost::ReplayHost(const recording::DeviceState& state)
{
    restore(state);
}

void ReplayHost::set(Kind kind, const std::string& name, const Variant& value)
{
    m_variables.set(kind, name.c_str(), value);
}

void ReplayHost::setConnectionState(int state)
{
    m_commands[connection::currentConnectionState] = state;
}

int ReplayHost::connectionState() const
{
    return m_commands.at(connection::currentConnectionState).get<int>();
}

void ReplayHost::learn(const recording::RecordedCall& call)
{
    const trace::Arguments& arguments = *call.arguments;
    if (const Access* const access = accessBy(call.function)) {
        const auto names = static_cast<std::size_t>(access->names);
        const bool isThere = access->isWrite ? arguments.size() == names + 1
                                             : arguments.size() == names && call.result;
        if (!isThere)
            return;
        const Variant& value = access->isWrite ? arguments.back().value : *call.result;
        const std::string name = arguments[0].value.toString();
        if (names == 1)
            set(access->kind, name, value);
        else
            m_variables.setProperty(access->kind, name.c_str(),
                                    arguments[1].value.toString().c_str(), value);
    } else if (call.result && call.function == QLatin1String("simulationDirectExec") &&
               !arguments.empty()) {
        m_commands[arguments[0].value.get<SimulationDirectExecRole>()] = *call.result;
    }
}

void ReplayHost::restore(const recording::DeviceState& state)
{
    std::set<variables::Variables::Key> before;
    for (const auto& key : m_variables.keys()) {
        if (!m_variables.value(key.first, key.second.c_str()).isEmpty()) {
            before.insert(key);
            set(key.first, key.second, {});
        }
    }
    for (const auto& variable : state.variables)
        set(variable.kind, variable.name, variable.value);
    for (const auto& property : state.properties)
        m_variables.setProperty(property.kind, property.variable.c_str(), property.name.c_str(),
                                property.value);
    setConnectionState(state.connectionState);
    m_had = std::move(before);
}

trace::Arguments ReplayHost::followed() const
{
    trace::Arguments arguments;
    for (const auto& key : m_variables.keys()) {
        const Variant value = m_variables.value(key.first, key.second.c_str());
        if (m_variables.isFollowed(key) && (!value.isEmpty() || m_had.count(key) > 0))
            arguments.push_back({key.second, value, key.first});
    }
    return arguments;
}

ReplayHost::Variant ReplayHost::answer(const Variant& usual) const
{
    return std::exchange(m_answer, std::nullopt).value_or(usual);
}

void ReplayHost::setRegistered(Kind kind, const char* name, bool on)
{
    answer({});
    if (on)
        m_variables.follow(kind, name);
    else
        m_variables.unfollow(kind, name);
}

void ReplayHost::registerInput(const char* name, bool on)
{
    setRegistered(Kind::Input, name, on);
}

void ReplayHost::registerOutput(const char* name, bool on)
{
    setRegistered(Kind::Output, name, on);
}

void ReplayHost::registerStateVariable(const char* name, bool on)
{
    setRegistered(Kind::State, name, on);
}

void ReplayHost::registerConfigVariable(const char* name, bool on)
{
    setRegistered(Kind::Config, name, on);
}

ReplayHost::Variant ReplayHost::read(Kind kind, const char* name) const
{
    return answer(m_variables.value(kind, name));
}

void ReplayHost::write(Kind kind, const char* name, const Variant& value)
{
    answer({});
    set(kind, name, value);
}

ReplayHost::Variant ReplayHost::property(Kind kind, const char* name, const char* property) const
{
    return answer(m_variables.property(kind, name, property));
}

void ReplayHost::setProperty(Kind kind, const char* name, const char* property,
                             const Variant& value)
{
    answer({});
    m_variables.setProperty(kind, name, property, value);
}

void ReplayHost::beginTransaction(const QString& /*name*/)
{
    answer({});
}

void ReplayHost::endTransaction()
{
    answer({});
}

bool ReplayHost::connectDevice()
{
    return answer(false).get<bool>();
}

bool ReplayHost::disconnectDevice()
{
    return answer(false).get<bool>();
}

ReplayHost::Variant ReplayHost::simulationDirectExec(const Variant& role, const Variant& /*value*/)
{
    const auto found = m_commands.find(role.get<SimulationDirectExecRole>());
    return answer(found == m_commands.end() ? Variant() : found->second);
}

QString ReplayHost::translate(const QString& text) const
{
    return answer(text).get<QString>();
}

QString ReplayHost::currentLanguage() const
{
    return answer(QStringLiteral("en")).get<QString>();
}

/// It does nothing: the help is not the plugin's.
QAction* ReplayHost::helpAction(const QString& context) const
{
    QAction& action = m_helpActions[context];
    action.setText(answer(context).get<QString>());
    return &action;
}

void ReplayHost::widgetAdded(plugin::gui::DeviceWidget& widget)
{
    m_widgets.push_back(&widget);
}

void ReplayHost::widgetRemoved(plugin::gui::DeviceWidget& widget)
{
    m_widgets.erase(std::remove(m_widgets.begin(), m_widgets.end(), &widget), m_widgets.end());
}

} // namespace host::device::replay
