// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_SETTINGS_H
#define HOST_DEVICE_SETTINGS_H

#include "host/device/connection/Commands.h"
#include "olm/core/variant/Variant.h"
#include "rosbridge/protocol/Topics.h"

#include <QObject>
#include <QString>

#include <map>
#include <string>

namespace host::device::connection {
class Connection;
class Listener;
} // namespace host::device::connection

namespace host::device {

class Sensors;

/// The configuration variables that stand for something of the robot: whether its drive is
/// disabled, which lines of its arm are on, what its camera's resolution is. The robot is the truth
/// about them: what it tells goes before what is stored, and nothing is sent to it but what a
/// widget has just asked for.
class Settings : public QObject
{
    Q_OBJECT

public:
    using Variant = olm::core::variant::Variant;

    /// All outlive the settings.
    Settings(const connection::Connection& connection, connection::Listener& listener,
             const Sensors& sensors, connection::Commands& commands);

    /// A widget wrote @p value into the configuration variable @p name, which was @p before. The
    /// lines of the arm wait for enableLine(). Other variables are ignored.
    void write(const std::string& name, const Variant& before, const Variant& value);
    /// A widget switches a line of the arm; @p line counts from 0.
    void enableLine(int line, bool on);

    /// The link is over: nothing is known of its robot any more.
    void forget() { m_states.clear(); }

    /// For a person to read, where no widget shows a new value of the variable; otherwise empty.
    static QString inWords(const std::string& name, const Variant& value);

Q_SIGNALS:
    /// What the variable @p name is on the robot: the robot told so, or has done or refused what a
    /// widget asked for.
    void told(const std::string& name, const olm::core::variant::Variant& value);

private:
    struct State
    {
        Variant known;   // what it is, as far as was told or done
        int waiting = 0; // commands without an answer: what is told meanwhile may be older
    };

    void listen(const std::string& name, const rosbridge::protocol::Topic& topic,
                plugin::plugin::DataRole log);
    void tell(const std::string& name, const Variant& value);
    bool isConnected() const;
    connection::Commands::Done sent(const std::string& name, const Variant& value);

    const connection::Connection& m_connection;
    connection::Listener& m_listener;
    connection::Commands& m_commands;
    std::map<std::string, State> m_states; // of this link
};

} // namespace host::device

#endif
