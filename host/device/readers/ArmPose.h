// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_ARMPOSE_H
#define HOST_DEVICE_READERS_ARMPOSE_H

#include <QCborMap>
#include <QCoreApplication>
#include <QString>

#include <array>
#include <optional>

namespace host::device::readers {

/// Where the arm's axes are, out of the robot's sensor_msgs/JointState messages. A message may tell
/// of some joints only, and of joints that are none of the arm's.
class ArmPose
{
    Q_DECLARE_TR_FUNCTIONS(host::device::readers::ArmPose)

public:
    static constexpr int axisCount = 9;

    using Axes = std::array<float, axisCount>;

    /// A message of the wrong shape changes nothing and gives what is wrong with which field;
    /// otherwise the empty text.
    QString read(const QCborMap& jointState);

    /// Degrees; nothing until every axis was told.
    std::optional<Axes> axes() const;

    void forget();

private:
    std::array<std::optional<float>, axisCount> m_axes;
};

} // namespace host::device::readers

#endif
