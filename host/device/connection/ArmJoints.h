// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_ARMJOINTS_H
#define HOST_DEVICE_CONNECTION_ARMJOINTS_H

#include "host/device/readers/JointTable.h"
#include "host/device/variables/SettingsFile.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace host::device::connection {

/// Which joints of one device's robot are the arm's axes: what somebody entered, remembered for the
/// device; otherwise those of our own robot, or a guess where the robot has none of these. Nothing
/// is sent to the robot by any of it.
class ArmJoints : public QObject
{
    Q_OBJECT

public:
    using Joint = readers::JointTable::Joint;

    /// Until now nothing is remembered: from now on it is, for the device. Returns the problem, or
    /// nothing.
    QString load(const QString& folder, const QString& deviceName);

    /// What is in effect.
    const readers::JointTable& table() const { return m_table; }

    /// Sets the joint of @p axis, and keeps those of the others, guessed or not, at once and for
    /// the time to come.
    void set(int axis, const Joint& joint);
    /// Forgets what was set.
    void reset();

    // What the robot tells, in its own order.
    void seePresent(const QStringList& joints);
    void seeTargets(const QStringList& joints);
    /// The link is over.
    void forgetRobot();

    /// All joints that the robot told of; first those that are told where to go.
    QStringList seen() const;

    /// Those that belong to an arm, by their names, and to no axis.
    QStringList notShown() const;

Q_SIGNALS:
    /// The table is another one.
    void changed();
    /// The robot told of other joints than before.
    void told();
    /// The table cannot be remembered, with what to do.
    void problem(const QString& words);

private:
    /// Names in the order in which they came first.
    struct Seen
    {
        QStringList list;
        QSet<QString> set;
    };

    readers::JointTable guess() const;
    void see(Seen& seen, const QStringList& joints);
    void update();
    void save();

    std::optional<variables::SettingsFile> m_file; // none until load()
    std::optional<readers::JointTable> m_entered;
    readers::JointTable m_table;
    Seen m_present;
    Seen m_targets;
};

} // namespace host::device::connection

#endif
