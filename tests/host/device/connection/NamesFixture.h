// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_TESTS_NAMESFIXTURE_H
#define HOST_DEVICE_CONNECTION_TESTS_NAMESFIXTURE_H

#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"
#include "tests/host/device/Probe.h"
#include "tests/host/device/Settle.h"

#include "host/device/Device.h"

#include <QCborArray>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <map>
#include <memory>

/// A device with a widget on it, and a robot to connect to.
struct NamesFixture
{
    explicit NamesFixture(const host::device::connection::Timing& timing = noHurry())
        : device(QStringLiteral("robot"), folder.path(), environment, timing)
    {
        device.overrideAddress(robot.address());
        probe.reset(dynamic_cast<Probe*>(device.loadWidget(factory, "dialog")));
    }

    /// The robot tells that it has all that is used, except what @p missing names.
    void offerAllBut(const QStringList& missing)
    {
        for (const host::device::connection::Remappings::Entry& entry :
             host::device::connection::Remappings::all()) {
            if (missing.contains(entry.name) || !entry.isRequired)
                continue;
            if (entry.kind == host::device::connection::Remappings::Kind::Service)
                robotServices.append(entry.name);
            else
                topics[entry.name] = entry.type;
        }
        tell();
    }

    /// Tells topics and robotServices.
    void tell()
    {
        QCborArray names;
        QCborArray types;
        for (const auto& [name, type] : topics) {
            names.append(name);
            types.append(type);
        }
        robot.answer(QStringLiteral("/rosapi/topics"),
                     {{QStringLiteral("topics"), names}, {QStringLiteral("types"), types}});
        robot.answer(QStringLiteral("/rosapi/services"),
                     {{QStringLiteral("services"), QCborArray::fromStringList(robotServices)}});
        robot.obey();
    }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, 60000);
    }

    bool settle() { return ::settle(device, robot, *probe, 60000); }

    bool isCalled(const char* call)
    {
        return QTest::qWaitFor([&] { return robot.calls().contains(QLatin1String(call)); }, 60000);
    }

    bool isReady()
    {
        return QTest::qWaitFor([&] { return readies.count() > 0; }, 60000) && settle();
    }

    int followers(const char* topic) const
    {
        return robot.subscriberCount(QLatin1String(topic), QStringLiteral("sensor_msgs/LaserScan"));
    }

    host::device::connection::Offer::State state(const char* name)
    {
        return device.offer().state(QLatin1String(name));
    }

    /// All lines in all logs, but those that settle().
    QStringList lines() const
    {
        QStringList lines = probe->calls.filter(QRegularExpression(QStringLiteral("^100[0124] ")));
        lines.removeAll(QStringLiteral("1000 settled"));
        return lines;
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    std::map<QString, QString> topics; // types by name
    QStringList robotServices;
    host::device::Device device;
    QSignalSpy readies{&device.offer(), &host::device::connection::Offer::ready};
    const Factory factory{[](const char*, const char*, plugin::gui::DeviceDelegate& delegate) {
        return new Probe(delegate);
    }};
    std::unique_ptr<Probe> probe;
};

#endif
