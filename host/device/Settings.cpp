// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/Settings.h"

#include "host/device/Sensors.h"
#include "host/device/connection/Connection.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "host/device/readers/BoolReader.h"
#include "olm/core/Vector.h"

namespace host::device {

using connection::Commands;
namespace topic = rosbridge::protocol::topic;
using SizeVector = olm::core::Vector<unsigned int>;

namespace {

const std::string driveVariable = "disableDriveSystem";
const std::string resolutionVariable = "camera_resolution";

std::string lineVariable(int line)
{
    return "line" + std::to_string(line) + "_enabled";
}

/// -1 where the variable is that of no line.
int lineOf(const std::string& name)
{
    for (int line = 0; line < Commands::lineCount; ++line) {
        if (name == lineVariable(line))
            return line;
    }
    return -1;
}

} // namespace

Settings::Settings(const connection::Connection& connection, connection::Listener& listener,
                   const Sensors& sensors, Commands& commands)
    : m_connection(connection),
      m_listener(listener),
      m_commands(commands)
{
    listen(driveVariable, topic::driveDisabled, connection::baseLogLine);
    for (int line = 0; line < Commands::lineCount; ++line)
        listen(lineVariable(line), topic::armLineEnabled.at(static_cast<std::size_t>(line)),
               connection::manipulatorLogLine);
    connect(&sensors, &Sensors::pictureTaken, this, [this](const readers::CameraInfo& picture) {
        if (picture.width == 0 || picture.height == 0)
            return; // of a camera that does not know
        SizeVector size(2);
        size[0] = picture.width;
        size[1] = picture.height;
        tell(resolutionVariable, size);
    });
}

void Settings::write(const std::string& name, const Variant& before, const Variant& value)
{
    const bool isDrive = name == driveVariable;
    const bool isResolution = name == resolutionVariable;
    if (!isDrive && !isResolution && lineOf(name) < 0)
        return;
    if (isConnected() && m_states[name].known.isEmpty())
        m_states[name].known = before;
    if (isDrive)
        m_commands.disableDriveSystem(value.toBool(), sent(name, value));
    else if (isResolution)
        m_commands.setCameraResolution(value, sent(name, value));
}

void Settings::enableLine(int line, bool on)
{
    m_commands.enableLine(line, on, sent(lineVariable(line), on));
}

QString Settings::inWords(const std::string& name, const Variant& value)
{
    const int line = lineOf(name);
    if (line < 0)
        return {};
    return (value.toBool() ? tr("Line %1 of the robot is on.") : tr("Line %1 of the robot is off."))
        .arg(line + 1);
}

void Settings::listen(const std::string& name, const rosbridge::protocol::Topic& topic,
                      plugin::plugin::DataRole log)
{
    m_listener.listen(topic, log, [this, name](const QCborMap& message) {
        QString fault;
        if (const auto value = readers::readBool(message, &fault))
            tell(name, *value);
        return fault;
    });
}

void Settings::tell(const std::string& name, const Variant& value)
{
    State& state = m_states[name];
    state.known = value;
    if (state.waiting == 0)
        Q_EMIT told(name, value);
}

bool Settings::isConnected() const
{
    return m_connection.state() >= connection::Connection::connected;
}

/// What becomes of a command with which the variable becomes @p value. Without a connection there
/// is no robot that would know better.
Commands::Done Settings::sent(const std::string& name, const Variant& value)
{
    if (!isConnected())
        return [](bool) {};
    ++m_states[name].waiting;
    return [this, name, value](bool isDone) {
        State& state = m_states[name];
        --state.waiting;
        if (isDone)
            state.known = value;
        if (state.waiting == 0 && !state.known.isEmpty())
            Q_EMIT told(name, state.known);
    };
}

} // namespace host::device
