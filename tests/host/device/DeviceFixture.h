// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_DEVICEFIXTURE_H
#define HOST_DEVICE_TESTS_DEVICEFIXTURE_H

#include "FakeRobot.h"
#include "NoHurry.h"
#include "Probe.h"
#include "Settle.h"

#include "host/device/Device.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "olm/core/LaserScanMessage.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// A device with a widget on it, and a robot to connect to.
struct DeviceFixture
{
    DeviceFixture() { device.overrideAddress(robot.address()); }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, 60000);
    }

    bool settle() { return ::settle(device, robot, *probe, 60000); }

    int count(const char* call) const { return probe->count(call); }

    bool hears(const char* call)
    {
        return QTest::qWaitFor([&] { return count(call) > 0; }, 60000);
    }

    bool isCalled(const char* call)
    {
        return QTest::qWaitFor([&] { return robot.calls().contains(QLatin1String(call)); }, 60000);
    }

    void exec(unsigned int role, const olm::core::variant::Variant& value = {})
    {
        probe->simulationDirectExec(SimulationDirectExecRole(role), value);
    }

    template <class T>
    T config(const char* name) const
    {
        return device.read(plugin::gui::VariableKind::Config, name).get<T>();
    }

    olm::core::LaserScanMessage scan() const
    {
        return device.read(plugin::gui::VariableKind::Input, "scan")
            .get<olm::core::LaserScanMessage>();
    }

    unsigned int cameraRate() const
    {
        return device.read(plugin::gui::VariableKind::Input, "cameraFrequency").get<unsigned int>();
    }

    /// The robot's camera takes a picture.
    void takePicture(int width = 640, int height = 480)
    {
        robot.publish(QStringLiteral("/camera/camera_info"),
                      {{QStringLiteral("width"), width}, {QStringLiteral("height"), height}});
    }

    /// The robot's camera takes fifty pictures a second while @p timer runs.
    void film(QTimer& timer)
    {
        QObject::connect(&timer, &QTimer::timeout, [this] { takePicture(); });
        timer.start(20);
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    host::device::Device device{"robot", folder.path(), environment, noHurry()};
    const Factory factory{[](const char*, const char*, plugin::gui::DeviceDelegate& delegate) {
        return new Probe(delegate);
    }};
    std::unique_ptr<Probe> probe{dynamic_cast<Probe*>(device.loadWidget(factory, "dialog"))};
};

#endif
