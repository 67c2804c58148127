// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_ROBOTVIEW_DOCKOFROBOT_H
#define TESTS_HOST_WORKBENCH_ROBOTVIEW_DOCKOFROBOT_H

#include "Patience.h"

#include "host/device/Device.h"
#include "host/workbench/plugin/PluginEnvironment.h"

#include <QMainWindow>
#include <QTemporaryDir>
#include <QtTest>

/// A dock that looks into a device, in a window, hidden; no plugin.
template <class Dock>
struct DockOfRobot
{
    /// Of the robot at @p address.
    explicit DockOfRobot(const QString& address)
    {
        device.overrideAddress(address);
        dock = new Dock(device, &window);
        window.addDockWidget(Qt::RightDockWidgetArea, dock);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    }

    void join(int state = host::device::connection::Connection::connected)
    {
        QVERIFY(device.connectDevice());
        QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), state, patience);
    }

    /// The robot has got all that was sent to it until now.
    void waitForRobot()
    {
        bool isAnswered = false;
        device.connection().call("/nothing", {}, [&](const auto&) { isAnswered = true; });
        QTRY_VERIFY_WITH_TIMEOUT(isAnswered, patience);
    }

    template <class Widget>
    Widget* part(const char* name) const
    {
        return dock->template findChild<Widget*>(name);
    }

    QTemporaryDir folder;
    host::workbench::plugin::PluginEnvironment environment;
    host::device::connection::Timing timing = [] {
        host::device::connection::Timing timing;
        timing.frame = std::chrono::milliseconds(5);
        timing.firstQuestion = std::chrono::milliseconds(10); // as if seconds went by
        return timing;
    }();
    host::device::Device device{"robot", folder.path(), environment, timing};
    QMainWindow window;
    Dock* dock = nullptr;
};

#endif
