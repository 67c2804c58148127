// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_REPLAY_RECORDEDPLUGIN_H
#define TESTS_HOST_WORKBENCH_REPLAY_RECORDEDPLUGIN_H

#include "Patience.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/readers/ScanMessage.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

/// A recording of the plugin in its window, on the way to a robot and back.
struct RecordedPlugin
{
    bool record(bool fromBeginning)
    {
        FakeRobot robot;
        robot.obey();
        host::workbench::plugin::PluginEnvironment environment;
        host::device::Device device("Quandrel", folder.path(), environment);
        device.overrideAddress(robot.address());
        host::workbench::window::Window window(plugin, environment);
        QString error;
        if (fromBeginning && !device.recorder().start(file, &error))
            return false;
        auto& view = window.add(device, QString());
        window.show();
        if (!fromBeginning && !device.recorder().start(file, &error))
            return false;
        device.connectDevice();
        if (!QTest::qWaitFor([&] { return device.connectionState() == 3; }, patience))
            return false;
        robot.log("base", "a line");
        QCborMap scan = scanMessage(1);
        scan.insert(QStringLiteral("intensities"), QCborArray());
        robot.publish("/scan", scan);
        for (int tab = 0; tab < 3; ++tab) {
            view.findChild<QTabWidget*>()->setCurrentIndex(tab);
            QTest::qWait(100); // and is painted
        }
        device.disconnectDevice();
        const auto isTold = [&] {
            for (auto i = device.traffic().begin(); i < device.traffic().end(); ++i) {
                if (qstrcmp(device.traffic().call(i)->name, "disconnected") == 0)
                    return true;
            }
            return false;
        };
        const bool isOver = QTest::qWaitFor(isTold, patience);
        window.close();
        return isOver;
    }

    const QTemporaryDir folder;
    const QString file = folder.filePath("device.bag");
    const host::loading::PluginLoader plugin{DEVICE_PLUGIN_FILE};
};

#endif
