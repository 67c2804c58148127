// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/window/DockInWindow.h"

#include "host/workbench/operation/DriveDock.h"
#include "host/workbench/operation/DrivePad.h"

#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QtTest>

namespace drive_dock_test {

using host::workbench::operation::DriveDock;
using host::workbench::operation::DrivePad;

namespace {

/// The dock of a device whose robot listens to commands.
struct Fixture : DockInWindow<DriveDock>
{
    Fixture()
    {
        robot.obey();
        QObject::connect(&life, &QTimer::timeout, &life,
                         [this] { robot.publish(QStringLiteral("/odom"), {}); });
        life.start(100);
        device.overrideAddress(robot.address());
    }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, patience);
    }

    bool says(const QString& part) const
    {
        return QTest::qWaitFor([&] { return words->text().contains(part); }, patience);
    }

    bool hasSent(const QString& part) const
    {
        return QTest::qWaitFor([&] { return robot.publications().join('\n').contains(part); },
                               patience);
    }

    FakeRobot robot;
    QTimer life;
    QLabel* words = part<QLabel>("words");
    DrivePad* pad = part<DrivePad>("pad");
    QDoubleSpinBox* linear = part<QDoubleSpinBox>("linear");
    QDoubleSpinBox* angular = part<QDoubleSpinBox>("angular");
};

} // namespace

/// Driving in the window.
class DriveDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_key_drives_at_the_speeds_that_are_set();
    void it_says_why_it_does_not_drive();
    void a_dock_that_is_closed_does_not_drive();
    void it_is_translated();
};

void DriveDockTest::a_key_drives_at_the_speeds_that_are_set()
{
    Fixture f;
    QCOMPARE(f.linear->suffix(), QString(" m/s"));
    QCOMPARE(f.angular->suffix(), QString(" rad/s"));
    f.linear->setValue(0.75);
    f.angular->setValue(1.5);
    QCOMPARE(f.device.driving().limits().linear, 0.75);
    QVERIFY(f.connect());
    QVERIFY(f.says("Ready"));
    QCOMPARE(f.robot.publications(), QStringList());
    f.pad->setFocus();
    QTest::keyPress(f.pad, Qt::Key_Up);
    QTest::keyPress(f.pad, Qt::Key_D);
    QVERIFY(f.hasSent(R"("z":-1.5},"linear":{"x":0.75,)"));
    QCOMPARE(f.words->text(), QString("Driving."));
    QTest::keyRelease(f.pad, Qt::Key_Up);
    QTest::keyRelease(f.pad, Qt::Key_D);
    QVERIFY(f.hasSent(R"("z":0},"linear":{"x":0,)"));
    QVERIFY(f.says("Ready"));
}

void DriveDockTest::it_says_why_it_does_not_drive()
{
    Fixture f;
    QVERIFY(f.says("Not connected."));
    f.robot.answerTrigger("/control/acquire", false, "somebody");
    QVERIFY(f.connect(4));
    QVERIFY(f.says("not in control"));
    f.robot.answerTrigger("/control/acquire", true);
    f.device.control().take();
    QVERIFY(f.says("Ready"));
    f.life.stop();
    QVERIFY(f.says("Nothing has come from the robot for a second."));
    f.life.start(100);
    QVERIFY(f.says("Ready"));
    f.robot.publish("/drive/disabled", {{"data", true}});
    QVERIFY(f.says("The drive system is disabled."));
    f.robot.publish("/stopped", {{"data", true}});
    QVERIFY(f.says("The robot is stopped."));
}

void DriveDockTest::a_dock_that_is_closed_does_not_drive()
{
    Fixture f;
    QVERIFY(f.connect());
    QVERIFY(f.says("Ready"));
    f.view.findChild<QDockWidget*>("RobotDock")->close(); // it follows the odometry, too
    const auto followers = [&f] { return f.robot.subscriberCount("/odom", "nav_msgs/Odometry"); };
    QTRY_COMPARE_WITH_TIMEOUT(followers(), 1, patience);
    f.pad->setFocus();
    QTest::keyPress(f.pad, Qt::Key_Up);
    QVERIFY(f.device.driving().isDriving());
    f.dock->close();
    QVERIFY(!f.device.driving().isDriving());
    QTRY_COMPARE_WITH_TIMEOUT(followers(), 0, patience);
}

void DriveDockTest::it_is_translated()
{
    Fixture f;
    f.environment.language().use("de");
    QTRY_COMPARE_WITH_TIMEOUT(f.dock->windowTitle(), QString("Fahren"), patience);
    QCOMPARE(f.words->text(), QString("Nicht verbunden."));
    QCOMPARE(f.linear->value(), f.device.driving().limits().linear);
}

TEST_WITH_WINDOWS(DriveDockTest)

} // namespace drive_dock_test

#include "DriveDockTest.moc"
