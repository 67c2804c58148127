// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SESSION_H
#define HOST_WORKBENCH_SESSION_H

#include "host/device/Device.h"
#include "host/device/replay/Replay.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/bugreport/BugReport.h"
#include "host/workbench/window/Window.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace host::workbench {

class Options;

/// What the options of a program set up: the plugin, the devices, each with its simulated robot
/// unless it does without, or a recording in their place, and the window that shows them.
class Session
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::Session)

public:
    /// The devices keep their settings in the folder @p settings. @p environment outlives the
    /// session.
    Session(const Options& options, const QString& settings,
            plugin::PluginEnvironment& environment);

    /// Why there is nothing in the window; empty if there is.
    const QString& error() const { return m_error; }

    const loading::PluginLoader& plugin() const { return m_plugin; }

    window::Window& window() { return m_window; }

    /// On what is now.
    bugreport::BugReport bugReport();

private:
    struct Station
    {
        std::optional<EmbeddedRobot> robot;
        std::optional<device::Device> device;
    };

    void openReplay(const QString& file);
    bool startRobots(const Options& options);
    void addDevice(int index, const Options& options, const QString& settings);
    void tellBadLines();
    void showBugReport();

    plugin::PluginEnvironment& m_environment;
    const QString m_settings;
    std::vector<Station> m_stations;
    QStringList m_badLines; // of the recording, the same for each robot
    QString m_error;
    std::optional<device::replay::Replay> m_replay; // in place of devices
    const loading::PluginLoader m_plugin;
    window::Window m_window;
};

} // namespace host::workbench

#endif
