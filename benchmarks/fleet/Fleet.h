// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_FLEET_H
#define QUANDREL_FLEET_H

#include "benchmarks/ServerProcess.h"
#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/Window.h"

#include <QTemporaryDir>

#include <deque>

/// The workbench's window with several devices, each with a robot of its own that sends all it
/// can. The window is wide enough to show them all.
class Fleet
{
public:
    /// Which docks are open.
    enum class Docks
    {
        None,
        Usual, ///< those that open by themselves
        All,   ///< every one, all in sight side by side
    };

    Fleet(int robots, Docks docks);

    /// Connects all and waits until each has shown scans for a while. False, with a warning, where
    /// one does not get that far.
    bool connectAll();

    host::device::Device& firstDevice() { return m_devices.front(); }

    /// The tab in front, of every device: 0 base, 1 manipulator, 2 laser.
    void setTab(int index);
    /// Has the tabs in front paint all of themselves, changed or not.
    void repaintTabs();

private:
    void spreadDocks();

    QTemporaryDir m_settings;
    std::deque<ServerProcess> m_robots;
    host::workbench::plugin::PluginEnvironment m_environment;
    host::loading::PluginLoader m_plugin{QStringLiteral(DEVICE_PLUGIN_FILE)};
    std::deque<host::device::Device> m_devices;
    host::workbench::window::Window m_window{m_plugin, m_environment};
};

#endif
