#ifndef HOST_WORKBENCH_TOUR_WORKBENCHTOUR_H
#define HOST_WORKBENCH_TOUR_WORKBENCHTOUR_H

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/tour/Operator.h"

#include <QCoreApplication>

class QAction;
class QDockWidget;

namespace host::workbench::plugin {
class PluginLoader;
class PluginEnvironment;
} // namespace host::workbench::plugin

namespace host::workbench::tour {

/// The part of the tour that shows what the workbench adds to the plugin: its docks, the help, and
/// several devices side by side.
class WorkbenchTour
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::tour::WorkbenchTour)

public:
    /// See Tour.
    WorkbenchTour(Operator& person, const plugin::PluginLoader& plugin,
                  plugin::PluginEnvironment& environment);

    /// Begins without a connection.
    bool run();

private:
    bool connectRobot();
    bool showRobot();
    bool showHelp();
    bool showNames();
    bool showVariables();
    bool showTraffic();
    bool showFaults();
    bool showTwoDevices();
    QDockWidget* findDock(const char* name) const;
    bool toggle(QDockWidget& dock);
    bool chooseFromMenu(QAction& entry, const QString& picture = QString());
    bool chooseFault(const char* name, const QString& picture = QString());

    Operator& m_operator;
    const plugin::PluginLoader& m_plugin;
    plugin::PluginEnvironment& m_environment;
    EmbeddedRobot m_robot{0};
};

} // namespace host::workbench::tour

#endif
