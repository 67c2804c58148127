// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/Device.h"

#include "host/device/Environment.h"
#include "host/device/connection/MessageRole.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/faults/FaultyClient.h"
#include "host/device/trace/ClassName.h"
#include "host/device/trace/TracedCall.h"
#include "host/device/variables/ConfigDefaults.h"
#include "host/device/variables/Latin1.h"
#include "host/device/variables/PositionStore.h"
#include "olm/core/Vector.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/HostCall.h"
#include "plugin/gui/Interface.h"

#include <QDebug>
#include <QMetaObject>
#include <QScopeGuard>

#include <cstring>
#include <string>
#include <vector>

namespace host::device {

using plugin::gui::DeviceWidget;
using plugin::gui::VariableKind;
using plugin::plugin::DataRole;

namespace {

constexpr const char* addressName = "ipAddress";

bool haveSameType(const Device::Variant& a, const Device::Variant& b)
{
    // By name, as Variant::get() compares.
    return std::strcmp(a.any().type().name(), b.any().type().name()) == 0;
}

/// Of the settings' types.
bool isSame(const Device::Variant& a, const Device::Variant& b)
{
    using Size = olm::core::Vector<unsigned int>;
    return haveSameType(a, b) && a.toBool() == b.toBool() && a.get<Size>() == b.get<Size>();
}

} // namespace

Device::Device(const QString& name, const QString& storageFolder, Environment& environment,
               const connection::Timing& timing, QObject* parent)
    : QObject(parent),
      m_name(name),
      m_environment(environment),
      m_storage(storageFolder, name),
      m_connection(timing,
                   [this](const rosbridge::client::Client::Timeouts& timeouts) {
                       return std::make_unique<faults::FaultyClient>(timeouts, m_faults);
                   }),
      m_reconnection(m_connection, timing),
      m_offer(m_connection, timing),
      m_silentTopics(m_connection, m_offer, timing.silence),
      m_control(m_connection, timing)
{
    loadConfig();
    m_variables.set(VariableKind::State, "connectedToSimulator", false);

    connect(&m_variables, &variables::Variables::changed, this, &Device::deliver);
    connect(&m_connection, &connection::Connection::stateChanged, this, &Device::onStateChanged);
    connect(&m_connection, &connection::Connection::statusChanged, this, &Device::statusChanged);
    connect(&m_connection, &connection::Connection::simulatorChanged, this,
            [this](bool isSimulator) {
                m_variables.set(VariableKind::State, "connectedToSimulator", isSimulator);
            });
    connect(&m_connection, &connection::Connection::message, this, &Device::report);
    connect(&m_offer, &connection::Offer::message, this, &Device::report);
    connect(&m_silentTopics, &connection::SilentTopics::message, this, &Device::report);
    connect(&m_listener, &connection::Listener::message, this, &Device::report);
    connect(&m_robotLog, &connection::RobotLog::message, this, &Device::sendMessage);
    connect(&m_robotLog, &connection::RobotLog::logged, &m_events, &events::Events::add);
    connect(&m_commands, &connection::Commands::message, this, &Device::report);
    connect(&m_stopping, &operation::Stopping::message, this, &Device::report);
    connect(&m_stopping, &operation::Stopping::problem, this, &Device::say);
    connect(&m_control, &operation::Control::problem, this, &Device::say);
    connect(&m_driving, &operation::Driving::problem, this, &Device::say);
    connect(&m_recorder, &recording::Recorder::problem, this, &Device::say);
    say(m_driving.load(storageFolder, name));
    connect(&m_sensors, &Sensors::scanned, this, &Device::onScan);
    connect(&m_sensors, &Sensors::cameraRateChanged, this, [this](unsigned int rate) {
        m_variables.set(VariableKind::Input, "cameraFrequency", rate);
    });
    connect(&m_faults, &faults::Faults::wrongTypeChanged, &m_variables,
            &variables::Variables::repeat);
    connect(&m_faults, &faults::Faults::writeRefused, this, &Device::onWriteRefused);
    connect(&m_faults, &faults::Faults::changed, this,
            [this] { m_connection.pretendController(m_faults.otherController()); });
    connect(&m_settings, &Settings::told, this, &Device::takeOver);
    connect(&remappings(), &connection::Remappings::problem, this, &Device::say);
    say(remappings().load(storageFolder, name));
    connection::Certificates& certificates = m_connection.certificates();
    connect(&certificates, &connection::Certificates::problem, this, &Device::say);
    // Further attempts would only ask again. Not at once: the attempt has not failed yet.
    connect(
        &certificates, &connection::Certificates::questionChanged, this,
        [this] {
            if (m_connection.certificates().question())
                m_reconnection.giveUp();
        },
        Qt::QueuedConnection);
    say(certificates.load(storageFolder, name));
    connect(&m_joints, &connection::ArmJoints::problem, this, &Device::say);
    say(m_joints.load(storageFolder, name));
}

Device::~Device() = default;

void Device::loadConfig()
{
    say(m_storage.load());
    for (const auto& [name, value] : m_storage.values())
        m_variables.set(VariableKind::Config, name.c_str(), value);
    for (const variables::ConfigDefault& variable : variables::configDefaults()) {
        const char* const name = variable.name.c_str();
        const Variant stored = m_variables.value(VariableKind::Config, name);
        if (haveSameType(stored, variable.value))
            continue;
        m_variables.set(VariableKind::Config, name, variable.value);
        if (!stored.isEmpty())
            say(tr("The stored setting \"%1\" in %2 has the wrong type. The default is used: set "
                   "it again, or correct the file.")
                    .arg(QLatin1String(name), m_storage.fileName()));
    }
}

DeviceWidget* Device::loadWidget(const plugin::gui::Interface& factory, const char* widgetName)
{
    ++m_loads;
    const auto finish = qScopeGuard([this] { --m_loads; });
    DeviceWidget* const widget = build(factory, widgetName);
    if (m_loads == 1)
        m_widgets.translateNew();
    return widget;
}

DeviceWidget* Device::build(const plugin::gui::Interface& factory, const char* widgetName)
{
    const std::string deviceName = factory.info().vendor() + ' ' + factory.info().name();
    const trace::Arguments arguments{{"device", deviceName}, {"widget", std::string(widgetName)}};
    trace::TracedCall call(m_traffic,
                           {trace::PluginCall::Direction::ToPlugin, "loadDeviceWidget", nullptr,
                            std::make_shared<const trace::Arguments>(arguments)});
    DeviceWidget* const widget =
        factory.loadDeviceWidget(deviceName.c_str(), widgetName, m_tracedHost);
    call.answer(widget ? Variant(trace::className(typeid(*widget))) : Variant());
    return widget;
}

void Device::translateWidgets()
{
    m_widgets.deliver("translate", {}, [](DeviceWidget& widget) { widget.translate(); });
}

void Device::setDefaultAddress(const QString& address)
{
    const auto stored = m_storage.values();
    const auto found = stored.find(addressName);
    if (found == stored.end() || !haveSameType(found->second, std::string()))
        overrideAddress(address);
}

void Device::overrideAddress(const QString& address)
{
    m_variables.set(VariableKind::Config, addressName, variables::toLatin1(address));
}

void Device::registerInput(const char* name, bool on)
{
    setRegistered(VariableKind::Input, name, on);
}

void Device::registerOutput(const char* name, bool on)
{
    setRegistered(VariableKind::Output, name, on);
}

void Device::registerStateVariable(const char* name, bool on)
{
    setRegistered(VariableKind::State, name, on);
}

void Device::registerConfigVariable(const char* name, bool on)
{
    setRegistered(VariableKind::Config, name, on);
}

void Device::setRegistered(VariableKind kind, const char* name, bool on)
{
    if (on)
        m_variables.follow(kind, name);
    else
        m_variables.unfollow(kind, name);
}

Device::Variant Device::read(VariableKind kind, const char* name) const
{
    return m_variables.value(kind, name);
}

void Device::write(VariableKind kind, const char* name, const Variant& value)
{
    const QWidget* const widget = plugin::gui::HostCall::caller();
    const Variant before = read(kind, name);
    m_variables.set(kind, name, value, widget ? trace::className(typeid(*widget)) : QString());
    if (kind != VariableKind::Config)
        return;
    if (QLatin1String(name) == QLatin1String(addressName) &&
        before.get<std::string>() != value.get<std::string>())
        m_connection.certificates().dismiss(); // a question about another robot
    m_storage.set(name, value);
    if (!m_variables.isInTransaction())
        say(m_storage.save());
    m_settings.write(name, before, value);
}

Device::Variant Device::property(VariableKind kind, const char* name, const char* property) const
{
    return m_variables.property(kind, name, property);
}

void Device::setProperty(VariableKind kind, const char* name, const char* property,
                         const Variant& value)
{
    m_variables.setProperty(kind, name, property, value);
}

void Device::beginTransaction(const QString& name)
{
    m_variables.beginTransaction(name);
}

void Device::endTransaction()
{
    if (m_variables.endTransaction())
        say(m_storage.save());
}

bool Device::connectDevice()
{
    m_reconnection.forget();
    const auto address = read(VariableKind::Config, addressName).get<std::string>();
    return m_connection.open(variables::fromLatin1(address));
}

bool Device::disconnectDevice()
{
    m_reconnection.forget();
    return m_connection.close();
}

Device::Variant Device::simulationDirectExec(const Variant& role, const Variant& value)
{
    bool isRole = false;
    const auto number = role.get<SimulationDirectExecRole>(&isRole);
    if (!isRole) {
        qWarning("A command was not carried out: it has no role of SimulationDirectExecRole's.");
        return {};
    }
    switch (number) {
    case connection::laserStartText:
        return tr("Scans are shown as they arrive while the device is connected.");
    case connection::currentConnectionState:
        return connectionState();
    case connection::toggleTorque:
        m_commands.toggleTorque();
        return {};
    case connection::storePosition:
        storePose();
        return {};
    case connection::enableFirstLine:
    case connection::enableFirstLine + 1:
    case connection::enableFirstLine + 2:
        m_settings.enableLine(static_cast<int>(number - connection::enableFirstLine),
                              value.toBool());
        return {};
    default:
        qWarning("The device does not know the command with the role %u.",
                 static_cast<unsigned int>(number));
        return {};
    }
}

QString Device::translate(const QString& text) const
{
    return m_environment.translate(text);
}

QString Device::currentLanguage() const
{
    return m_environment.currentLanguage();
}

QAction* Device::helpAction(const QString& context) const
{
    return m_environment.helpAction(context);
}

void Device::widgetAdded(DeviceWidget& widget)
{
    m_widgets.add(widget);
    // One that a widget builds by itself is complete when the event loop runs again.
    QMetaObject::invokeMethod(this, &Device::welcomeWidgets, Qt::QueuedConnection);
}

void Device::widgetRemoved(DeviceWidget& widget)
{
    m_widgets.remove(widget);
}

void Device::welcomeWidgets()
{
    // An event loop within a constructor must not see the half-built widget.
    if (m_loads == 0)
        m_widgets.translateNew();
}

void Device::say(const QString& problem)
{
    if (problem.isEmpty())
        return;
    m_events.add({events::Level::Error, tr("device"), problem});
    QMetaObject::invokeMethod(
        this, [this, problem] { Q_EMIT this->problem(problem); }, Qt::QueuedConnection);
}

/// A person is told once of each function: it may throw as often as it is called.
void Device::onThrown(const QString& function, const QString& what)
{
    qWarning("%s threw an exception: %s", qPrintable(function), qPrintable(what));
    if (m_throwing.contains(function))
        return;
    m_throwing.insert(function);
    say(tr("The plugin's function %1 threw an exception: %2. The rest works on. Ask the plugin's "
           "author for a fixed version.")
            .arg(function, what));
}

void Device::deliver(const plugin::gui::HistoryBundleContent& content)
{
    plugin::gui::HistoryBundleContent seen;
    trace::Arguments arguments;
    content.forEach([&](VariableKind kind, const std::string& name, const Variant& value) {
        arguments.push_back({name, m_faults.seen(kind, name, value), kind});
        seen.insert(kind, name, arguments.back().value);
    });
    const plugin::gui::DeviceHistoryBundle bundle(seen);
    m_widgets.deliver("update", std::move(arguments),
                      [&](DeviceWidget& widget) { widget.update(bundle); });
}

/// What the robot tells of its settings goes before what is stored, and is stored.
void Device::takeOver(const std::string& name, const Variant& value)
{
    if (isSame(read(VariableKind::Config, name.c_str()), value))
        return;
    m_variables.set(VariableKind::Config, name.c_str(), value);
    // Widgets read the resolution when this is news, and at no other time.
    m_variables.repeat({VariableKind::State, "connectedToSimulator"});
    m_storage.set(name, value);
    if (!m_variables.isInTransaction())
        say(m_storage.save());
    const QString words = Settings::inWords(name, value);
    if (!words.isEmpty())
        report(connection::manipulatorLogLine, words);
}

void Device::onScan(const olm::core::LaserScanMessage& scan)
{
    if (!m_faults.isScanFrozen())
        m_variables.set(VariableKind::Input, "scan", scan);
}

void Device::storePose()
{
    const std::optional<readers::ArmPose::Axes> pose = m_sensors.armPose();
    report(connection::manipulatorLogLine,
           pose ? variables::PositionStore(*this).add(*pose)
                : tr("The arm's position was not stored: the positions of some axes are "
                     "unknown. Connect to a robot with an arm and try again."));
}

void Device::onStateChanged(int state)
{
    const bool isConnecting =
        state > connection::Connection::notConnected && state < connection::Connection::connected;
    if (isConnecting)
        m_joints.forgetRobot(); // not before: what it told is still looked at
    if (state == connection::Connection::notConnected) {
        m_sensors.reset();
        m_settings.forget();
    }
    Q_EMIT connectionStateChanged(state);
    sendMessage(connection::connectionStateMessage, state);
    const bool isConnected = state >= connection::Connection::connected;
    if (isConnected == m_isConnected)
        return;
    m_isConnected = isConnected;
    if (isConnected)
        notify("connected", {}, [](DeviceWidget& widget) { widget.connected(); });
    else
        notify("disconnected", {}, [](DeviceWidget& widget) { widget.disconnected(); });
}

/// The widget is told that what it wrote does not hold.
void Device::onWriteRefused(const variables::Variables::Key& key)
{
    m_variables.repeat(key);
    report(connection::baseLogLine, tr("\"%1\" was not changed: the device refuses writes.")
                                        .arg(QLatin1String(key.second.c_str())));
}

/// In the log of a tab, and among the events.
void Device::report(DataRole log, const QString& text)
{
    m_events.add(
        {log == connection::emphasisedBaseLogLine ? events::Level::Warning : events::Level::Info,
         tr("device"), text});
    sendMessage(log, text);
}

void Device::sendMessage(DataRole role, const Variant& value)
{
    notify("on_messageReceived", {{"role", static_cast<int>(role)}, {"value", value}},
           [role, value](DeviceWidget& widget) { widget.on_messageReceived(role, value); });
}

/// In the order of the calls, out of the event loop.
void Device::notify(const char* what, const trace::Arguments& arguments,
                    const std::function<void(DeviceWidget&)>& call)
{
    QMetaObject::invokeMethod(
        this, [this, what, arguments, call] { m_widgets.deliver(what, arguments, call); },
        Qt::QueuedConnection);
}

} // namespace host::device
