// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_WINDOW_DOCKINWINDOW_H
#define TESTS_HOST_WORKBENCH_WINDOW_DOCKINWINDOW_H

#include "Patience.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QTemporaryDir>
#include <QtTest>

/// One dock of a device, opened in its window, with the plugin's real widgets.
template <class Dock>
struct DockInWindow
{
    DockInWindow()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
        dock->toggleViewAction()->trigger();
        QVERIFY(dock->isVisible());
    }

    template <class Widget>
    Widget* part(const char* name) const
    {
        return dock->template findChild<Widget*>(name);
    }

    const QTemporaryDir settings;
    const host::loading::PluginLoader plugin{DEVICE_PLUGIN_FILE};
    host::workbench::plugin::PluginEnvironment environment;
    host::device::Device device{"Quandrel", settings.path(), environment};
    host::workbench::window::Window window{plugin, environment};
    host::workbench::window::DeviceView& view = window.add(device, QString());
    Dock* dock = view.findChild<Dock*>();
};

/// What a table shows there.
inline QString cell(const QAbstractItemModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

#endif
