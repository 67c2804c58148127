#ifndef HOST_WORKBENCH_TOUR_TOUR_H
#define HOST_WORKBENCH_TOUR_TOUR_H

#include "host/workbench/tour/Operator.h"

#include <QCoreApplication>
#include <QString>

namespace host::workbench::plugin {
class PluginLoader;
class PluginEnvironment;
} // namespace host::workbench::plugin

namespace host::workbench::window {
class Window;
} // namespace host::workbench::window

namespace host::workbench::tour {

/// Operates the window as a person would, with mouse and keys, through every state of the
/// connection, every tab of the dialog and every dock, and writes a picture of each. Each step
/// waits for what it is to show, so that the pictures show it however busy the machine is.
class Tour
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::tour::Tour)

public:
    /// @p window shows one device with @p plugin, which works; all of them outlive the tour.
    /// @p folder is where the pictures go, made where it is missing.
    Tour(const QString& folder, window::Window& window, const plugin::PluginLoader& plugin,
         plugin::PluginEnvironment& environment);

    /// Prints the pictures' names to the standard output as they are written. False when a step
    /// could not be reached or its picture not be written: the standard error says which and
    /// why. Runs the event loop.
    bool run();
    /// Makes run() end at the step under way.
    void stop() { m_operator.stop(); }

private:
    bool showFailure();

    window::Window& m_window;
    const plugin::PluginLoader& m_plugin;
    plugin::PluginEnvironment& m_environment;
    Operator m_operator;
};

} // namespace host::workbench::tour

#endif
