// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "NoHurry.h"
#include "Probe.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "olm/core/Vector.h"
#include "robot/Robot.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace real_robot_test {

using host::device::Device;
using Kind = plugin::gui::VariableKind;

namespace {

constexpr int patience = 60000;

/// A device with settings of its own.
struct Station
{
    explicit Station(quint16 port)
    {
        device.overrideAddress(QStringLiteral("127.0.0.1:%1").arg(port));
    }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, patience);
    }

    bool becomes(const char* name, bool value) const
    {
        return QTest::qWaitFor([&] { return device.read(Kind::Config, name).get<bool>() == value; },
                               patience);
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device{"robot", folder.path(), environment, noHurry()};
};

} // namespace

/// Devices and the simulated robot itself.
class RealRobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void a_robot_that_somebody_stopped_stays_so();
    void a_device_that_watches_sees_what_another_one_sets();

private:
    std::unique_ptr<robot::Robot> m_robot;
};

void RealRobotTest::init()
{
    m_robot = std::make_unique<robot::Robot>(1);
    QString error;
    QVERIFY2(m_robot->listen({"127.0.0.1", 0}, &error), qPrintable(error));
}

void RealRobotTest::a_robot_that_somebody_stopped_stays_so()
{
    olm::core::Vector<unsigned int> small(2);
    small[0] = 320;
    small[1] = 240;
    {
        Station first(m_robot->port());
        QVERIFY(first.connect());
        first.device.write(Kind::Config, "disableDriveSystem", true);
        first.device.write(Kind::Config, "camera_resolution", small);
        Station watcher(m_robot->port()); // until the robot has done it
        QVERIFY(watcher.connect(4));
        QVERIFY(watcher.becomes("disableDriveSystem", true));
        QVERIFY(first.device.disconnectDevice());
    }
    Station second(m_robot->port());
    QVERIFY(second.device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(second.device.connectionState() >= 3, patience);
    QVERIFY(second.becomes("disableDriveSystem", true));
    QTRY_COMPARE_WITH_TIMEOUT(second.device.read(Kind::Config, "camera_resolution")
                                  .get<olm::core::Vector<unsigned int>>(),
                              small, patience);
    Station third(m_robot->port()); // sees the robot, not what the second makes of it
    QVERIFY(third.connect(4));
    QVERIFY(third.becomes("disableDriveSystem", true));
}

void RealRobotTest::a_device_that_watches_sees_what_another_one_sets()
{
    Station driver(m_robot->port());
    Station watcher(m_robot->port());
    QVERIFY(driver.connect());
    QVERIFY(watcher.connect(4));
    for (const bool isDisabled : {true, false}) {
        driver.device.write(Kind::Config, "disableDriveSystem", isDisabled);
        QVERIFY(watcher.becomes("disableDriveSystem", isDisabled));
    }
    watcher.device.write(Kind::Config, "disableDriveSystem", true);
    QVERIFY(watcher.becomes("disableDriveSystem", false));
    QVERIFY(driver.becomes("disableDriveSystem", false));
}

TEST_WITH_WINDOWS(RealRobotTest)

} // namespace real_robot_test

#include "RealRobotTest.moc"
