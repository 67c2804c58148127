// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_CONNECTIONCOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_CONNECTIONCOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>

namespace host::workbench::script {

/// The connection to the robot, and what is seen of the robot.
class ConnectionCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::ConnectionCommands)

public:
    static Commands all();

    /// What is expected of the placeholder @p name in place of @p value; empty if that is fine.
    static QString expected(const QString& name, const QString& value);

private:
    static Attempt connect(Scene& scene, const Arguments& arguments);
    static Attempt disconnect(Scene& scene, const Arguments& arguments);
    static Attempt waitForState(Scene& scene, const std::function<bool(int)>& isMeant);
    static Attempt waitForRobot(Scene& scene, const Arguments& arguments);
    static Attempt waitForMotion(Scene& scene, const Arguments& arguments);
};

} // namespace host::workbench::script

#endif
