// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_ACTIONCOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_ACTIONCOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>

class QWidget;

namespace host::workbench::script {

/// What device-plugin-check did to a plugin's widget, done again on the screen.
class ActionCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::ActionCommands)

public:
    static Commands all();

private:
    static Attempt play(Scene& scene, const Arguments& arguments);
    static QWidget* pluginWidget(const Scene& scene, const QString& name);
};

} // namespace host::workbench::script

#endif
