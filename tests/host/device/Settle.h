// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TESTS_SETTLE_H
#define HOST_DEVICE_TESTS_SETTLE_H

#include "FakeRobot.h"
#include "Probe.h"

#include "host/device/Device.h"

#include <QtTest>

/// Waits until all that device and robot have sent each other has arrived, and what was said of it
/// has reached the widget, which hears "1000 settled" last. False where that takes too long.
inline bool settle(host::device::Device& device, FakeRobot& robot, const Probe& probe, int patience)
{
    const auto settled = [&probe] { return probe.count("1000 settled"); };
    const int before = settled();
    // The answer comes after all that the robot was sent and has sent; its words come after those
    // that the device itself has found until then.
    device.connection().call(QStringLiteral("/settle"), {},
                             [&robot](const rosbridge::client::Client::Result&) {
                                 robot.log(QStringLiteral("base"), QStringLiteral("settled"));
                             });
    return QTest::qWaitFor([&] { return settled() > before; }, patience);
}

#endif
