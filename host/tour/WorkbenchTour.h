// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_TOUR_WORKBENCHTOUR_H
#define HOST_TOUR_WORKBENCHTOUR_H

#include "host/tour/Operator.h"
#include "host/workbench/EmbeddedRobot.h"

#include <QCoreApplication>

class QAction;
class QDockWidget;

namespace host::workbench::plugin {
class PluginLoader;
class PluginEnvironment;
} // namespace host::workbench::plugin

namespace host::tour {

/// The part of the tour that shows what the workbench adds to the plugin: its docks, the help, and
/// several devices side by side.
class WorkbenchTour
{
    Q_DECLARE_TR_FUNCTIONS(host::tour::WorkbenchTour)

public:
    /// See Tour.
    WorkbenchTour(Operator& person, const workbench::plugin::PluginLoader& plugin,
                  workbench::plugin::PluginEnvironment& environment);

    /// Begins without a connection.
    bool run();

private:
    bool connectRobot();
    bool showRobot();
    bool showDriving();
    bool showCamera();
    bool showArm();
    bool showPlots();
    bool showHelp();
    bool showNames();
    bool showVariables();
    bool showTraffic();
    bool showEvents();
    bool showFaults();
    bool showTwoDevices();
    template <class Dock>
    Dock* openDock();
    bool waitForWay(double metres);
    bool open(QDockWidget* dock); // null fails
    bool toggle(QDockWidget& dock);
    bool chooseFromMenu(QAction& entry, const QString& picture = QString());
    bool chooseFault(const char* name, const QString& picture = QString());

    Operator& m_operator;
    const workbench::plugin::PluginLoader& m_plugin;
    workbench::plugin::PluginEnvironment& m_environment;
    workbench::EmbeddedRobot m_robot{0};
};

} // namespace host::tour

#endif
