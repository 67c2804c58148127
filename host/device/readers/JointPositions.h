// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_JOINTPOSITIONS_H
#define HOST_DEVICE_READERS_JOINTPOSITIONS_H

#include <QCborMap>
#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace host::device::readers {

/// What a message tells of a robot's joints, in the robot's units. A message may tell of some
/// joints only, and of joints that are none of the arm's.
struct JointPositions
{
    Q_DECLARE_TR_FUNCTIONS(host::device::readers::JointPositions)

public:
    static constexpr int mostJoints = 1000; ///< a robot has some dozens

    QStringList names;
    QVector<float> positions; ///< as many

    // A message of the wrong shape gives nothing and, in @p fault, what is wrong with which field.

    /// Where the joints are, of a sensor_msgs/JointState.
    static std::optional<JointPositions> readPresent(const QCborMap& message, QString* fault);
    /// Where they are to go, of a control_msgs/JointTrajectoryControllerState.
    static std::optional<JointPositions> readTargets(const QCborMap& message, QString* fault);
};

} // namespace host::device::readers

#endif
