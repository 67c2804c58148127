// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_APPLICATION_H
#define HOST_WORKBENCH_APPLICATION_H

#include "host/device/trace/CrashReport.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/WheelGuard.h"
#include "robot/MessageLimit.h"

#include <QApplication>
#include <QStringList>

namespace host::workbench {

namespace window {
class Window;
} // namespace window

class Options;

/// The process of a program that shows the window: Qt's application, as large as the command line
/// asks, off the screen where there is no display, and what all windows share. One per process.
class Application
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::Application)

public:
    /// @p name is the program's. The language is the system's.
    Application(const char* name, int argc, char** argv);

    /// Takes language and appearance from @p options, or else those chosen last, which are in the
    /// folder @p settings and kept there from now on. Returns what is wrong with that folder's
    /// file.
    QStringList restorePreferences(const Options& options, const QString& settings);

    /// The program's name first.
    const QStringList& arguments() const { return m_arguments; }

    bool hasDisplay() const { return m_hasDisplay; }

    plugin::PluginEnvironment& environment() { return m_environment; }

    // What the program ends with: each gives the exit status.
    /// Prints what @p options say that do not ask to run anything.
    static int answer(const Options& options);
    /// Prints @p reason on the standard error.
    static int fail(const QString& reason);
    /// Plays the recording that @p options name into the plugin, and prints whether it does the
    /// same.
    static int check(const Options& options);
    /// Shows @p window until it is closed or the program is terminated, with its docks where they
    /// were the last time. Gives `restart` where somebody asked for that.
    static int show(window::Window& window);
    /// Begins anew in the same process, with the same arguments; all that the program has opened is
    /// closed by now. Returns only where that is not possible.
    int startAgain();

    static constexpr int restart = -1;

private:
    char** const m_argv;
    const device::trace::CrashReport m_crashReport;
    const robot::MessageLimit m_messageLimit;
    const QStringList m_arguments;
    const bool m_hasDisplay;
    const QApplication m_application;
    const window::WheelGuard m_wheelGuard;
    plugin::PluginEnvironment m_environment;
};

} // namespace host::workbench

#endif
