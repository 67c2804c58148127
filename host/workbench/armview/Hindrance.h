// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_ARMVIEW_HINDRANCE_H
#define HOST_WORKBENCH_ARMVIEW_HINDRANCE_H

#include "host/workbench/robotview/RobotState.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace host::workbench::armview {

/// Why an arm, or a part of it, does not move, as far as is known before it is told to.
class Hindrance
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::armview::Hindrance)

public:
    /// The switch of the robot that ends it.
    enum class Switch
    {
        None,
        Torque,
        FirstLine,
        SecondLine,
        ThirdLine,
        Stop, ///< which is released
    };

    /// What the device knows of its robot beside its state.
    struct Link
    {
        int connectionState = 0; ///< as Device has it
        bool isOffered = true;   ///< that the arm can be commanded
        QString command;         ///< what the robot calls that topic
    };

    QString words; ///< a sentence
    Switch remedy = Switch::None;
    bool isOfAll = true; ///< nothing of the arm moves

    /// The first that there is, the one that nothing moves with before the others.
    static std::optional<Hindrance> find(const Link& link, const robotview::RobotState& robot,
                                         robotview::RobotState::TimePoint now);

    /// Whether the axis has no power, as far as is known.
    static bool isUnpowered(const robotview::RobotState& robot, int axis);
};

} // namespace host::workbench::armview

#endif
