// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_FAKEHOST_H
#define QUANDREL_FAKEHOST_H

#include "Roles.h"
#include "plugin/gui/DeviceHost.h"

#include <QAction>
#include <QHash>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using Kind = plugin::gui::VariableKind;
using olm::core::variant::Variant;

/// A host of one device that a test holds in its hands: it answers from plain maps, writes
/// down every call in order ("write config ipAddress"). Delivery.h lets it speak to its widgets.
class FakeHost : public plugin::gui::DeviceHost
{
public:
    mutable QStringList calls;
    std::map<std::pair<Kind, std::string>, Variant> variables;
    QHash<QString, Variant> properties;                        ///< by the property's name alone
    std::map<int, Variant> answers{{ConnectionStateRole, -1}}; ///< to commands, by role
    std::map<int, Variant> sent;        ///< the newest value sent with each role
    bool connectAnswer = true;          ///< of connectDevice() and disconnectDevice()
    std::function<void()> onConnect;    ///< what the host does while it is asked to connect
    QHash<QString, QString> dictionary; ///< a text that is not in it stays as it is
    QString language = "en";
    QString throwAt;      ///< the call that throws std::runtime_error
    int throwAtCall = -1; ///< the same by its index in calls
    /// What was written, in order, by name.
    std::vector<std::pair<std::string, Variant>> writes;
    QList<plugin::gui::DeviceWidget*> widgets;

    ~FakeHost() override { qDeleteAll(m_helpActions); }

    void set(Kind kind, const char* name, const Variant& value) { variables[{kind, name}] = value; }

    void registerInput(const char* name, bool on) override { call("register input", name, on); }
    void registerOutput(const char* name, bool on) override { call("register output", name, on); }
    void registerStateVariable(const char* n, bool on) override { call("register state", n, on); }
    void registerConfigVariable(const char* n, bool on) override { call("register config", n, on); }
    Variant read(Kind kind, const char* name) const override
    {
        call("read", kindNames[static_cast<int>(kind)], name);
        const auto found = variables.find({kind, name});
        return found == variables.end() ? Variant() : found->second;
    }
    void write(Kind kind, const char* name, const Variant& value) override
    {
        call("write", kindNames[static_cast<int>(kind)], name);
        writes.emplace_back(name, value);
        set(kind, name, value);
    }
    Variant property(Kind kind, const char* name, const char* property) const override
    {
        call("property", kindNames[static_cast<int>(kind)], name, property);
        return properties.value(property);
    }
    void setProperty(Kind kind, const char* name, const char* property,
                     const Variant& value) override
    {
        call("set property", kindNames[static_cast<int>(kind)], name, property);
        properties.insert(property, value);
    }
    void beginTransaction(const QString& name) override { call("begin", name); }
    void endTransaction() override { call("end"); }
    bool connectDevice() override
    {
        call("connect");
        if (onConnect)
            onConnect();
        return connectAnswer;
    }
    bool disconnectDevice() override { return call("disconnect"), connectAnswer; }
    Variant simulationDirectExec(const Variant& role, const Variant& value) override
    {
        const int number = role.get<SimulationDirectExecRole>();
        call("exec", number);
        sent[number] = value;
        const auto found = answers.find(number);
        return found == answers.end() ? Variant() : found->second;
    }
    QString translate(const QString& text) const override { return dictionary.value(text, text); }
    QString currentLanguage() const override { return language; }
    QAction* helpAction(const QString& context) const override
    {
        call("help", context);
        QAction*& action = m_helpActions[context];
        return action ? action : action = new QAction("Help on " + context, nullptr);
    }
    void widgetAdded(plugin::gui::DeviceWidget& widget) override { widgets.append(&widget); }
    void widgetRemoved(plugin::gui::DeviceWidget& widget) override { widgets.removeAll(&widget); }

private:
    template <class... Words>
    void call(const char* operation, const Words&... words) const
    {
        calls.append(QStringList{operation, QVariant(words).toString()...}.join(' '));
        if (calls.last() == throwAt || calls.size() - 1 == throwAtCall)
            throw std::runtime_error(calls.last().toStdString());
    }

    static constexpr const char* kindNames[] = {"input", "output", "state", "config"};
    mutable QHash<QString, QAction*> m_helpActions;
};

#endif
