// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_DEVICECOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_DEVICECOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>

namespace host::workbench::script {

/// What the device does to the plugin: sets variables, sends messages, injects faults.
class DeviceCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::DeviceCommands)

public:
    static Commands all();

    /// What is expected of the placeholder @p name in place of @p value; empty if that is fine.
    static QString expected(const QString& name, const QString& value);

private:
    static Progress set(Scene& scene, const Arguments& arguments);
    static Progress send(Scene& scene, const Arguments& arguments);
    static Progress inject(Scene& scene, const Arguments& arguments);
};

} // namespace host::workbench::script

#endif
