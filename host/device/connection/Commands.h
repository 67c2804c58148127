// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_COMMANDS_H
#define HOST_DEVICE_CONNECTION_COMMANDS_H

#include "olm/core/variant/Variant.h"
#include "plugin/plugin/DataRole.h"

#include <QCborMap>
#include <QObject>
#include <QString>

#include <functional>

namespace host::device::connection {

class Connection;
class Listener;

/// What the device asks of its robot: to be as a setting says, and to switch the arm. What a robot
/// does it says in its own log; why something was not done is said here.
class Commands : public QObject
{
    Q_OBJECT

public:
    using Variant = olm::core::variant::Variant;

    static constexpr int lineCount = 3;

    /// Told once, whether the robot has done what it was asked for; not where the link ends before.
    using Done = std::function<void(bool isDone)>;

    /// Both outlive the commands.
    Commands(Connection& connection, Listener& listener);

    void disableDriveSystem(bool on, const Done& done);
    /// @p size is a Vector<unsigned int> of width and height; anything else is not done.
    void setCameraResolution(const Variant& size, const Done& done);
    /// @p line counts from 0.
    void enableLine(int line, bool on, const Done& done);
    void toggleTorque();

Q_SIGNALS:
    void message(plugin::plugin::DataRole role, const QString& text);

private:
    QString readTorque(const QCborMap& state);
    void setBool(const QString& service, bool on, const QString& what, plugin::plugin::DataRole log,
                 const Done& done);
    void call(const QString& service, const QCborMap& args, const QString& what,
              plugin::plugin::DataRole log, const Done& done);
    void refuse(const QString& what, const QString& why, plugin::plugin::DataRole log,
                const Done& done);

    Connection& m_connection;
    bool m_isTorqueOn = false;
};

} // namespace host::device::connection

#endif
