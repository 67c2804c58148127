// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_JOINTTABLE_H
#define HOST_DEVICE_READERS_JOINTTABLE_H

#include "host/device/readers/JointPositions.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace host::device::readers {

/// Which of the robot's joints are the arm's axes, and what their numbers mean: those of our own
/// robot until told otherwise.
class JointTable
{
    Q_DECLARE_TR_FUNCTIONS(host::device::readers::JointTable)

public:
    static constexpr int axisCount = 9;

    /// Of the numbers that the robot gives. Axes are in degrees, or in millimetres where the joint
    /// slides.
    enum class Unit
    {
        Radians,
        Degrees,
        Metres
    };

    struct Joint
    {
        QString name; ///< empty where the axis has no joint
        Unit unit = Unit::Radians;
        bool isReversed = false;
        double offset = 0; ///< of the axis where the robot says 0; degrees or millimetres

        /// Where the axis is, degrees or millimetres, when the robot says @p position.
        float place(double position) const;
        /// What the robot says when the axis is at @p place.
        double position(double place) const;

        bool operator==(const Joint& other) const;
        bool operator!=(const Joint& other) const { return !(*this == other); }
    };

    /// Of each axis what was told of it.
    using Axes = std::array<std::optional<float>, axisCount>;

    JointTable();
    /// The first joints, as many as there are axes; radians.
    explicit JointTable(const QStringList& joints);

    /// "axis0" to "axis8".
    static QString ownName(int axis);

    const Joint& joint(int axis) const { return m_joints.at(static_cast<std::size_t>(axis)); }
    void setJoint(int axis, const Joint& joint)
    {
        m_joints.at(static_cast<std::size_t>(axis)) = joint;
    }

    /// Whether the joint is that of an axis.
    bool contains(const QString& joint) const;

    /// Nothing where an axis is told to be at what is no position; @p fault then says which.
    std::optional<Axes> axes(const JointPositions& joints, QString* fault) const;

    bool operator==(const JointTable& other) const { return m_joints == other.m_joints; }

private:
    std::array<Joint, axisCount> m_joints;
};

} // namespace host::device::readers

#endif
