// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_OPERATION_DRIVING_H
#define HOST_DEVICE_OPERATION_DRIVING_H

#include "host/device/operation/HoldToRun.h"
#include "host/device/operation/Velocity.h"
#include "host/device/variables/SettingsFile.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>

namespace host::device::connection {
class Connection;
class Offer;
} // namespace host::device::connection

namespace host::device::operation {

class Stopping;

/// Drives the robot while a person holds a key or a pad, and no longer: whatever stands in the way,
/// a stop and a second without news from the robot among it, ends it.
class Driving : public QObject
{
    Q_OBJECT

public:
    using Push = HoldToRun::Push;

    static constexpr Velocity slowest{0.01, 0.01};
    static constexpr Velocity fastest{5.0, 6.0};

    /// All outlive it.
    Driving(connection::Connection& connection, const connection::Offer& offer,
            const Stopping& stopping);

    /// Until now no limits are remembered: from now on they are, for the device. Returns the
    /// problem, or nothing.
    QString load(const QString& folder, const QString& deviceName);

    /// The speeds of a whole push.
    const Velocity& limits() const { return m_limits; }
    /// Remembers them; what is not between slowest and fastest is brought there.
    void setLimits(const Velocity& limits);

    /// Somebody is about to drive: follows the robot's odometry, since nobody drives a robot that
    /// is not heard.
    void setReady(bool isReady);

    /// A person holds it in this direction; from the first call to letGo() counts as one press.
    void hold(const Push& push);
    void letGo();

    bool isDriving() const { return m_hold.isRunning(); }

    /// Why it does not drive, or has ended while it is held, and what to do; empty where it drives
    /// or could.
    QString obstacle() const;

Q_SIGNALS:
    /// The obstacle, as far as it does not come with time alone, or whether it drives.
    void changed();
    /// The limits cannot be remembered, with what to do.
    void problem(const QString& words);

private:
    QString obstacleOfRobot() const;
    QString obstacleOfControl() const;
    void check();
    void end(const QString& why);
    void send();

    connection::Connection& m_connection;
    const connection::Offer& m_offer;
    const Stopping& m_stopping;
    Velocity m_limits{0.3, 0.8};
    std::optional<variables::SettingsFile> m_file; // none until load()
    std::optional<int> m_odometry;                 // the follower's id while ready
    bool m_isDriveDisabled = false;
    HoldToRun m_hold;
    QString m_end;  // why it ended, as long as it is held
    QTimer m_timer; // while it drives
};

} // namespace host::device::operation

#endif
