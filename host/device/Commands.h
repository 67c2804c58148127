#ifndef HOST_DEVICE_COMMANDS_H
#define HOST_DEVICE_COMMANDS_H

#include "olm/core/variant/Variant.h"
#include "plugin/plugin/DataRole.h"
#include "robot/link/Client.h"

#include <QObject>
#include <QString>

namespace host::device {

class Connection;

/// What the device asks of its robot: to be as the configuration says, and to switch the arm. What
/// a robot does it says in its own log; why something was not done is said here.
class Commands : public QObject
{
    Q_OBJECT

public:
    using Variant = olm::core::variant::Variant;

    static constexpr int lineCount = 3;

    /// @p connection outlives the commands.
    explicit Commands(Connection& connection);

    void disableDriveSystem(bool on);
    /// @p size is a Vector<unsigned int> of width and height; anything else is ignored.
    void setCameraResolution(const Variant& size);
    /// @p line counts from 0.
    void enableLine(int line, bool on);
    void toggleTorque();

Q_SIGNALS:
    void message(plugin::plugin::DataRole role, const QString& text);

private:
    using Result = robot::link::Client::Result;

    void setBool(const QString& service, bool on, const QString& what,
                 plugin::plugin::DataRole log);
    void call(const QString& service, const QCborMap& args, const QString& what,
              plugin::plugin::DataRole log);

    Connection& m_connection;
    bool m_isTorqueOn = false;
};

} // namespace host::device

#endif
