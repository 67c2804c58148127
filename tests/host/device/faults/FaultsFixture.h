// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_FAULTS_TESTS_FAULTSFIXTURE_H
#define HOST_DEVICE_FAULTS_TESTS_FAULTSFIXTURE_H

#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"
#include "tests/host/device/Probe.h"
#include "tests/host/device/readers/ScanMessage.h"

#include "host/device/Device.h"
#include "host/device/faults/Faults.h"
#include "olm/core/LaserScanMessage.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// A device with a widget on it, a robot to connect to, and what shall go wrong.
struct FaultsFixture
{
    explicit FaultsFixture(const host::device::connection::Timing& timing = noHurry())
        : device(
              std::make_unique<host::device::Device>("robot", folder.path(), environment, timing)),
          faults(device->faults())
    {
        const Factory factory(
            [](const char*, const char*, plugin::gui::DeviceDelegate& delegate) -> Probe* {
                return new Probe(delegate);
            });
        probe.reset(dynamic_cast<Probe*>(device->loadWidget(factory, "dialog")));
        robot.obey();
        device->overrideAddress(robot.address());
    }

    ~FaultsFixture() { probe.reset(); }

    bool isState(int state) const
    {
        return QTest::qWaitFor([&] { return device->connectionState() == state; }, 60000);
    }

    bool connect(int state = 3) const { return device->connectDevice() && isState(state); }

    bool hears(const char* call) const
    {
        return QTest::qWaitFor([&] { return probe->count(call) > 0; }, 60000);
    }

    /// Whether a widget saw a variable's newest value, by a test of it.
    template <class Holds>
    bool sees(plugin::gui::VariableKind kind, const char* name, const Holds& holds)
    {
        device->variables().follow(kind, name);
        bool isSeen = false;
        probe->onUpdate = [&](const plugin::gui::DeviceHistoryBundle& bundle) {
            const auto* const history = kind == plugin::gui::VariableKind::Input
                                            ? bundle.getInputHistory(name)
                                            : bundle.getConfigVariableHistory(name);
            isSeen = isSeen || (history && holds(history->last()));
        };
        const bool result = QTest::qWaitFor([&] { return isSeen; }, 60000);
        probe->onUpdate = nullptr;
        device->variables().unfollow(kind, name);
        return result;
    }

    int scanNumber() const
    {
        return int(probe->readInput("scan").get<olm::core::LaserScanMessage>().sequenceNumber);
    }

    /// Whether a scan arrived that was sent now.
    bool scan(int number)
    {
        robot.publish(QStringLiteral("/scan"), scanMessage(number));
        return QTest::qWaitFor([&] { return scanNumber() == number; }, 60000);
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    std::unique_ptr<host::device::Device> device;
    host::device::faults::Faults& faults;
    std::unique_ptr<Probe> probe;
};

#endif
