#ifndef HOST_DEVICE_CONNECTION_COMMANDS_H
#define HOST_DEVICE_CONNECTION_COMMANDS_H

#include "olm/core/variant/Variant.h"
#include "plugin/plugin/DataRole.h"
#include "rosbridge/client/Client.h"

#include <QObject>
#include <QString>
#include <QVector>

#include <functional>

namespace host::device::connection {

class Connection;
class Listener;
class Offer;

/// What the device asks of its robot: to be as the configuration says, and to switch the arm. What
/// a robot does it says in its own log; why something was not done is said here. What the robot
/// does not offer is not asked of it: the offer said so already.
class Commands : public QObject
{
    Q_OBJECT

public:
    using Variant = olm::core::variant::Variant;

    static constexpr int lineCount = 3;

    /// All outlive the commands.
    Commands(Connection& connection, Listener& listener, const Offer& offer);

    void disableDriveSystem(bool on);
    /// @p size is a Vector<unsigned int> of width and height; anything else is ignored.
    void setCameraResolution(const Variant& size);
    /// @p line counts from 0.
    void enableLine(int line, bool on);
    void toggleTorque();

    /// Sends what @p settings sends, except what the robot does not offer: that was said, and
    /// nobody asked for it just now.
    void sendOffered(const std::function<void()>& settings);

Q_SIGNALS:
    void message(plugin::plugin::DataRole role, const QString& text);

private:
    using Result = rosbridge::client::Client::Result;

    struct Failure
    {
        plugin::plugin::DataRole log;
        QString what;
        QString why;
    };

    QString readTorque(const QCborMap& state);
    void setBool(const QString& service, bool on, const QString& what,
                 plugin::plugin::DataRole log);
    void call(const QString& service, const QCborMap& args, const QString& what,
              plugin::plugin::DataRole log);

    void refuse(const Failure& failure);
    void onFailed(const Failure& failure);
    void sayFailures();

    Connection& m_connection;
    const Offer& m_offer;
    int m_waiting = 0;           // calls of this link without an answer
    QVector<Failure> m_failures; // of a robot that does not tell what it offers
    bool m_isTorqueOn = false;
    bool m_isOnlyOffered = false; // within sendOffered()
};

} // namespace host::device::connection

#endif
