// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ArmRig.h"
#include "TestCase.h"
#include "robot/nodes/ArmNode.h"

#include "robot/Robot.h"
#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/client/Client.h"

#include <QCborArray>
#include <QEventLoop>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace arm_control_test {

using namespace arm_rig;
using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using robot::nodes::ArmNode;
using rosbridge::client::Client;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// The arm's switches, and who may use them and move the arm.
class ArmControlTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void switches_answer_log_and_publish_what_they_did();
    void a_new_client_gets_the_switches_at_once();
    void a_switch_takes_true_or_false_only();
    void only_the_client_in_control_moves_and_switches();
    void the_arm_stops_when_control_is_released();
    void the_arm_stops_when_the_client_in_control_is_gone();
    void giving_back_control_of_an_arm_at_rest_says_nothing();
    void the_robot_has_an_arm();
};

void ArmControlTest::switches_answer_log_and_publish_what_they_did()
{
    Rig rig;
    QVERIFY(rig.begin());
    QCOMPARE(rig.viewer.set("/arm/torque", true), QStringLiteral("torque on"));
    QCOMPARE(rig.viewer.set("/arm/line1", false),
             QStringLiteral("line 2 off: axes 4 to 6 do not move"));
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.last("/arm/line0_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.last("/arm/line1_enabled", "data"), QCborValue(false));
    QCOMPARE(rig.viewer.last("/arm/line2_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.set("/arm/line1", true), QStringLiteral("line 2 on"));
    QCOMPARE(rig.viewer.last("/arm/line1_enabled", "data"), QCborValue(true));
    QCOMPARE(rig.viewer.set("/arm/torque", false),
             QStringLiteral("torque off: the arm does not move"));
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(false));
    QCOMPARE(rig.viewer.log(),
             (QStringList{QStringLiteral("2 torque on"),
                          QStringLiteral("2 line 2 off: axes 4 to 6 do not move"),
                          QStringLiteral("2 line 2 on"),
                          QStringLiteral("2 torque off: the arm does not move")}));
}

void ArmControlTest::a_new_client_gets_the_switches_at_once()
{
    Rig rig;
    QVERIFY(rig.begin());
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(false));
    for (const char* const topic :
         {"/arm/line0_enabled", "/arm/line1_enabled", "/arm/line2_enabled"})
        QCOMPARE(rig.viewer.last(topic, "data"), QCborValue(true));
    rig.viewer.set("/arm/torque", true);
    rig.viewer.set("/arm/line2", false);

    Viewer late;
    QVERIFY(late.join(rig.network.port()));
    QCOMPARE(late.last("/arm/torque_enabled", "data"), QCborValue(true));
    QCOMPARE(late.last("/arm/line2_enabled", "data"), QCborValue(false));
}

void ArmControlTest::a_switch_takes_true_or_false_only()
{
    Rig rig;
    QVERIFY(rig.begin());
    const QString reason = QStringLiteral("data must be true or false");
    QVERIFY(rig.viewer.set("/arm/torque", 1).contains(reason));
    QVERIFY(rig.viewer.set("/arm/line0", QStringLiteral("true")).contains(reason));
    QVERIFY(rig.viewer.call("/arm/line0").error.contains(reason));
    QCOMPARE(rig.viewer.last("/arm/torque_enabled", "data"), QCborValue(false));
    QCOMPARE(rig.viewer.log(), QStringList());
}

void ArmControlTest::only_the_client_in_control_moves_and_switches()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    Viewer other;
    QVERIFY(other.join(rig.network.port()));
    other.move(trajectory({"axis0"}, {100}, {10}));
    QCOMPARE(other.complaints.size(), 1);
    QVERIFY(other.complaints.first().contains(QStringLiteral("in control")));
    for (const char* const service : {"/arm/torque", "/arm/line0", "/arm/line1", "/arm/line2"})
        QVERIFY(other.set(service, false).contains(QStringLiteral("in control")));

    rig.pass(seconds(1));
    QVERIFY(isNineZeros(rig.viewer.last("/joint_states", "position")));
    QCOMPARE(rig.viewer.log(), QStringList(QStringLiteral("2 torque on")));
}

void ArmControlTest::the_arm_stops_when_control_is_released()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis0"}, {100}, {10}));
    rig.pass(seconds(1));
    QVERIFY(rig.viewer.call("/control/release").ok);
    rig.pass(seconds(1));
    QVERIFY(isNear(rig.viewer.position(0), 10.0));
    QCOMPARE(rig.viewer.log().last(), QStringLiteral("2 control was released: the arm stops"));
}

void ArmControlTest::the_arm_stops_when_the_client_in_control_is_gone()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    rig.viewer.move(trajectory({"axis0"}, {100}, {10}));
    rig.pass(seconds(1));
    Viewer other;
    QVERIFY(other.join(rig.network.port()));
    rig.viewer.client.close();
    QTRY_COMPARE_WITH_TIMEOUT(other.log(),
                              QStringList(QStringLiteral("2 control was released: the arm stops")),
                              patience);
    rig.node.step(rig.now += seconds(1));
    QVERIFY(other.catchUp());
    QVERIFY(isNear(other.position(0), 10.0));
}

void ArmControlTest::giving_back_control_of_an_arm_at_rest_says_nothing()
{
    Rig rig;
    QVERIFY(rig.begin());
    rig.viewer.set("/arm/torque", true);
    QVERIFY(rig.viewer.call("/control/release").ok);
    QCOMPARE(rig.viewer.log(), QStringList(QStringLiteral("2 torque on")));
}

void ArmControlTest::the_robot_has_an_arm()
{
    robot::Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Viewer viewer;
    QVERIFY(viewer.join(robot.port()));
    QVERIFY(viewer.call("/control/acquire").ok);
    viewer.set("/arm/torque", true);
    viewer.move(trajectory({"axis3"}, {20}, {100}));
    QTRY_COMPARE_WITH_TIMEOUT(viewer.position(3), 20.0, patience);
    QCOMPARE(viewer.complaints, QStringList());
}

TEST_WITHOUT_WINDOWS(ArmControlTest)

} // namespace arm_control_test

#include "ArmControlTest.moc"
