// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_WORKDAY_H
#define QUANDREL_WORKDAY_H

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/Window.h"
#include "robot/Robot.h"

#include <QTemporaryDir>

#include <array>
#include <functional>

class QAbstractButton;
class QDockWidget;

/// The workbench's window with two devices whose robots send all they can, with all docks open,
/// and a user who does what people do with it. Whatever does not happen in time ends the program
/// with a message.
class Workday
{
public:
    /// Fills what keeps the newest only, and connects both.
    Workday();

    /// Goes through everything once, flooded with lines and by other clients; begins and ends
    /// connected, in English, with the docks open, the help closed and the first tab in front.
    void cycle();

private:
    struct Station
    {
        Station(const QString& name, quint32 seed, const QString& settings,
                host::workbench::plugin::PluginEnvironment& environment);

        QString address() const;

        robot::Robot robot;
        host::device::Device device;
        host::workbench::window::DeviceView* view = nullptr;
        int scans = 0;

        QAbstractButton& connectButton() const;
    };

    void fill();
    void connectAll();
    void disconnectAll();
    void changeTabs();
    void changeSettings();
    void changeLanguage();
    void useHelp();
    void useDocks();

    /// Until each device has got another scan, which is when the window has caught up.
    void waitForScans();

    QTemporaryDir m_settings;
    host::workbench::plugin::PluginEnvironment m_environment;
    host::loading::PluginLoader m_plugin{QStringLiteral(DEVICE_PLUGIN_FILE)};
    std::array<Station, 2> m_stations;
    host::workbench::window::Window m_window{m_plugin, m_environment};
};

#endif
