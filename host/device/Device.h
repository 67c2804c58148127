// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_DEVICE_H
#define HOST_DEVICE_DEVICE_H

#include "host/device/Sensors.h"
#include "host/device/Settings.h"
#include "host/device/WidgetList.h"
#include "host/device/connection/ArmJoints.h"
#include "host/device/connection/Commands.h"
#include "host/device/connection/Connection.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/Offer.h"
#include "host/device/connection/Reconnection.h"
#include "host/device/connection/RobotLog.h"
#include "host/device/connection/SilentTopics.h"
#include "host/device/connection/Timing.h"
#include "host/device/events/Events.h"
#include "host/device/faults/Faults.h"
#include "host/device/faults/FaultyHost.h"
#include "host/device/operation/Control.h"
#include "host/device/operation/Driving.h"
#include "host/device/operation/Stopping.h"
#include "host/device/recording/Recorder.h"
#include "host/device/trace/TracedHost.h"
#include "host/device/trace/Traffic.h"
#include "host/device/variables/ConfigStorage.h"
#include "host/device/variables/Variables.h"
#include "plugin/gui/DeviceHost.h"
#include "plugin/plugin/DataRole.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <functional>

namespace plugin::gui {
class Interface;
}

namespace host::device {

class Environment;

/// One Quandrel robot as the plugin's widgets see it: its variables, its stored configuration
/// and its connection. What the robot itself keeps of the configuration, the robot knows best: to
/// connect changes nothing of a robot. Widgets are notified out of the event loop only, never
/// within a call of their own.
class Device : public QObject, public plugin::gui::DeviceHost
{
    Q_OBJECT

public:
    using Variant = olm::core::variant::Variant;

    /// @p name is shown to people and is the key of what is stored in @p storageFolder, which is
    /// made where it is missing. @p environment outlives the device.
    Device(const QString& name, const QString& storageFolder, Environment& environment,
           const connection::Timing& timing = {}, QObject* parent = nullptr);
    /// All widgets are gone by now.
    ~Device() override;

    QString name() const { return m_name; }

    /// Has @p factory build the widget @p widgetName of the device that the plugin says it serves,
    /// and translates all that was built.
    /// The caller owns it; null where the plugin has no such widget. What a constructor throws
    /// passes through, and nothing of the widget is left.
    plugin::gui::DeviceWidget* loadWidget(const plugin::gui::Interface& factory,
                                          const char* widgetName);
    /// The language changed.
    void translateWidgets();

    /// The address where none is stored: it is not stored either.
    void setDefaultAddress(const QString& address);
    /// Goes before the stored address, which stays as it is until a widget writes another.
    void overrideAddress(const QString& address);

    /// -1 not connected; 0, 1, 2 connecting; 3 connected; 4 connected, passive.
    int connectionState() const { return m_connection.state(); }

    /// One sentence for the status bar.
    QString status() const { return m_connection.status(); }

    /// For views that follow topics of their own.
    connection::Connection& connection() { return m_connection; }

    /// Of a link that was lost; does nothing by itself until it is told to.
    connection::Reconnection& reconnection() { return m_reconnection; }

    /// What the robot calls what the device uses of it; remembered beside the configuration.
    connection::Remappings& remappings() { return m_connection.remappings(); }

    /// What the robot has of that.
    connection::Offer& offer() { return m_offer; }

    // What a person has the robot do; the speeds to drive at are remembered beside the
    // configuration.
    operation::Control& control() { return m_control; }
    operation::Stopping& stopping() { return m_stopping; }
    operation::Driving& driving() { return m_driving; }

    /// Which of the robot's joints are the arm's axes; remembered beside the configuration, too.
    connection::ArmJoints& joints() { return m_joints; }

    /// What of the robot's own log is passed on.
    connection::RobotLog& robotLog() { return m_robotLog; }

    /// What the robot's sensors tell, for views that show it too.
    const Sensors& sensors() const { return m_sensors; }

    /// For developers' tools: what they set here counts as set by the device, and is not stored.
    variables::Variables& variables() { return m_variables; }

    /// What happened: the robot's own log, and what the device says in the logs of the tabs.
    events::Events& events() { return m_events; }

    /// All calls between this device and its widgets.
    trace::Traffic& traffic() { return m_traffic; }

    /// Records all of that, and what the robot tells.
    recording::Recorder& recorder() { return m_recorder; }

    /// The faults that are injected.
    faults::Faults& faults() { return m_faults; }

    /// Tells all widgets, out of the event loop. Developers' tools may send what no device would.
    void sendMessage(plugin::plugin::DataRole role, const Variant& value);

    // What the widgets ask of their device.
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

Q_SIGNALS:
    void connectionStateChanged(int state);
    void statusChanged(const QString& words);
    /// Something went wrong that people should know of, with what to do. Out of the event loop,
    /// so that what the constructor found is heard as well.
    void problem(const QString& words);

private:
    void setRegistered(plugin::gui::VariableKind kind, const char* name, bool on);
    plugin::gui::DeviceWidget* build(const plugin::gui::Interface& factory, const char* widgetName);
    void welcomeWidgets();
    void loadConfig();
    void say(const QString& problem);
    void report(plugin::plugin::DataRole log, const QString& text);
    void deliver(const plugin::gui::HistoryBundleContent& content);
    void takeOver(const std::string& name, const Variant& value);
    void onScan(const olm::core::LaserScanMessage& scan);
    void storePose();
    void onStateChanged(int state);
    void onThrown(const QString& function, const QString& what);
    void onWriteRefused(const variables::Variables::Key& key);
    void notify(const char* what, const trace::Arguments& arguments,
                const std::function<void(plugin::gui::DeviceWidget&)>& call);

    QString m_name;
    Environment& m_environment;
    events::Events m_events;
    variables::Variables m_variables;
    variables::ConfigStorage m_storage;
    faults::Faults m_faults;
    connection::Connection m_connection;
    connection::Reconnection m_reconnection;
    connection::Offer m_offer;
    connection::SilentTopics m_silentTopics;
    operation::Control m_control;
    connection::Listener m_listener{m_connection};
    connection::RobotLog m_robotLog{m_listener};
    operation::Stopping m_stopping{m_connection, m_offer, m_listener};
    operation::Driving m_driving{m_connection, m_offer, m_stopping};
    connection::ArmJoints m_joints;
    Sensors m_sensors{m_listener, m_joints};
    connection::Commands m_commands{m_connection, m_listener};
    Settings m_settings{m_connection, m_listener, m_sensors, m_commands};
    bool m_isConnected = false; // as the widgets were told
    trace::Traffic m_traffic;
    recording::Recorder m_recorder{{m_name, m_variables, m_traffic, m_connection, m_offer}};
    faults::FaultyHost m_faultyHost{*this, m_faults};
    trace::TracedHost m_tracedHost{m_faultyHost, m_traffic}; // what the widgets are built on
    QSet<QString> m_throwing; // the widgets' functions that have thrown
    WidgetList m_widgets{m_traffic, [this](const QString& function, const QString& what) {
                             onThrown(function, what);
                         }};
    int m_loads = 0; // loadWidget() calls under way
};

} // namespace host::device

#endif
