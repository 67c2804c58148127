// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "robot/nodes/DriveNode.h"
#include "robot/simulation/Simulation.h"
#include "rosbridge/protocol/Codec.h"
#include "rosbridge/server/Publication.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace drive_node_test {

using namespace std::chrono_literals;
using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using robot::nodes::DriveNode;
using robot::simulation::Pose2D;
using robot::simulation::Simulation;
using rosbridge::server::Peer;
using rosbridge::server::ServiceReply;

namespace {

/// A drive base whose time passes when the test says so, and two clients without sockets, of whom
/// the first is in control.
class Scene
{
public:
    Scene() { call("/control/acquire"); }

    ServiceReply call(const char* service, const QCborValue& args = QCborMap())
    {
        return network.services().call(pilot, QLatin1String(service), args);
    }

    QString drive(const QCborMap& twist)
    {
        return network.topics().deliver(pilot, QStringLiteral("/cmd_vel"), twist);
    }

    /// Where the robot is after @p time.
    Pose2D after(robot::simulation::Time time)
    {
        simulation.step(time);
        return simulation.world().robotPose();
    }

    /// The latched state.
    bool isDisabled()
    {
        const auto state = network.topics().find(QStringLiteral("/drive/disabled"))->last;
        const QByteArray bytes =
            state->frame(state->topic(), rosbridge::server::Encoding::Json).bytes;
        const QCborMap message = rosbridge::protocol::decodeText(bytes, nullptr).value();
        return message.value(QLatin1String("msg")).toMap().value(QLatin1String("data")).toBool();
    }

    const Peer pilot{1, QStringLiteral("client 1")};
    const Peer other{2, QStringLiteral("client 2")};
    Clock clock;
    Simulation simulation{1};
    Network network{clock, robotLimits()};
    DriveNode node{network, simulation.driveBase()};
};

/// geometry_msgs/Twist; the robot never drives backwards by itself.
QCborMap twist(const QCborValue& linear_x, const QCborValue& angular_z = 0)
{
    return {{QStringLiteral("linear"), QCborMap{{QStringLiteral("x"), linear_x}}},
            {QStringLiteral("angular"), QCborMap{{QStringLiteral("z"), angular_z}}}};
}

QCborMap setBool(const QCborValue& data)
{
    return {{QStringLiteral("data"), data}};
}

double distance(const Pose2D& a, const Pose2D& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

/// DriveNode: what the drive base does at a client's word.
class DriveNodeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_command_drives_the_robot_for_half_a_second();
    void a_command_ends_with_the_control_of_its_client();
    void a_field_that_is_missing_is_zero();
    void an_unfit_command_is_refused_with_the_field_data();
    void an_unfit_command_is_refused_with_the_field();
    void only_the_client_in_control_commands();
    void disabled_the_robot_stands_still_and_says_so();
    void an_unfit_disable_is_refused_and_changes_nothing_data();
    void an_unfit_disable_is_refused_and_changes_nothing();
};

void DriveNodeTest::a_command_drives_the_robot_for_half_a_second()
{
    Scene scene;
    const Pose2D start = scene.after(0ms);
    QCOMPARE(scene.drive(twist(-0.4)), QString());
    const Pose2D end = scene.after(500ms);
    QVERIFY(std::abs(start.x - end.x - 0.2) < 1e-3);
    QVERIFY(scene.after(500ms).x > end.x);
}

void DriveNodeTest::a_command_ends_with_the_control_of_its_client()
{
    Scene scene;
    QCOMPARE(scene.drive(twist(-0.4)), QString());
    scene.after(100ms);
    QVERIFY(scene.simulation.world().robotTwist().linear_x < -0.3);
    QVERIFY(scene.call("/control/release").error.isEmpty());
    scene.after(10ms);
    QVERIFY(scene.simulation.world().robotTwist().linear_x >= 0.0);
}

void DriveNodeTest::a_field_that_is_missing_is_zero()
{
    Scene scene;
    const Pose2D start = scene.after(0ms);
    QCOMPARE(scene.drive({}), QString());
    QVERIFY(distance(scene.after(400ms), start) < 1e-6);
    QCOMPARE(scene.drive({{QStringLiteral("angular"), QCborMap{{QStringLiteral("z"), 1}}}}),
             QString());
    const Pose2D turned = scene.after(100ms);
    QVERIFY(distance(turned, start) < 1e-6);
    QVERIFY(std::abs(turned.theta - start.theta - 0.1) < 1e-3);
}

void DriveNodeTest::an_unfit_command_is_refused_with_the_field_data()
{
    QTest::addColumn<QCborMap>("msg");
    QTest::addColumn<QString>("field");
    const QCborMap empty;
    const QString linear = QStringLiteral("linear");
    const QString angular = QStringLiteral("angular");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("unknown") << QCborMap{{QStringLiteral("lineer"), empty}} << "lineer";
    QTest::newRow("no object") << QCborMap{{linear, 1}} << "linear";
    QTest::newRow("null") << QCborMap{{angular, nullptr}} << "angular";
    QTest::newRow("text") << twist(QStringLiteral("fast")) << "linear.x";
    QTest::newRow("no number") << twist(0, nullptr) << "angular.z";
    QTest::newRow("not finite") << twist(0, nan) << "angular.z";
    QTest::newRow("unknown axis") << QCborMap{{linear, QCborMap{{QStringLiteral("w"), 0}}}}
                                  << "linear.w";
    QTest::newRow("unused axis") << QCborMap{{angular, QCborMap{{QStringLiteral("x"), true}}}}
                                 << "angular.x";
}

void DriveNodeTest::an_unfit_command_is_refused_with_the_field()
{
    QFETCH(QCborMap, msg);
    QFETCH(QString, field);
    Scene scene;
    scene.drive(twist(-0.4));
    const QString refusal = scene.drive(msg);
    QVERIFY2(refusal.contains(field), qPrintable(refusal));
    scene.after(100ms);
    QVERIFY(scene.simulation.world().robotTwist().linear_x < -0.3); // as before
}

void DriveNodeTest::only_the_client_in_control_commands()
{
    Scene scene;
    const QString refusal = scene.network.control().refusal(scene.other);
    QVERIFY(!refusal.isEmpty());
    QCOMPARE(scene.network.topics().deliver(scene.other, QStringLiteral("/cmd_vel"), twist(-0.4)),
             refusal);
    QCOMPARE(scene.network.services()
                 .call(scene.other, QStringLiteral("/drive/disable"), setBool(true))
                 .error,
             refusal);
    QVERIFY(!scene.isDisabled());
}

void DriveNodeTest::disabled_the_robot_stands_still_and_says_so()
{
    Scene scene;
    QVERIFY(!scene.isDisabled());
    const Pose2D start = scene.after(0ms);
    QVERIFY(distance(scene.after(1s), start) > 0.1);

    const ServiceReply disabled = scene.call("/drive/disable", setBool(true));
    QVERIFY2(disabled.error.isEmpty(), qPrintable(disabled.error));
    QVERIFY(disabled.values.value(QLatin1String("success")).toBool());
    QVERIFY(disabled.values.value(QLatin1String("message")).toString().contains("disabled"));
    QVERIFY(scene.isDisabled());
    const Pose2D there = scene.after(10ms);
    scene.drive(twist(-0.4));
    QVERIFY(distance(scene.after(400ms), there) < 1e-6);

    const ServiceReply enabled = scene.call("/drive/disable", QCborArray{false});
    QVERIFY(enabled.values.value(QLatin1String("success")).toBool());
    QVERIFY(!scene.isDisabled());
    QVERIFY(distance(scene.after(2s), there) > 0.05);
}

void DriveNodeTest::an_unfit_disable_is_refused_and_changes_nothing_data()
{
    QTest::addColumn<QCborMap>("args");
    QTest::newRow("nothing") << QCborMap();
    QTest::newRow("null") << setBool(nullptr);
    QTest::newRow("number") << setBool(1);
    QTest::newRow("text") << setBool(QStringLiteral("true"));
}

void DriveNodeTest::an_unfit_disable_is_refused_and_changes_nothing()
{
    QFETCH(QCborMap, args);
    Scene scene;
    const QString error = scene.call("/drive/disable", args).error;
    QVERIFY2(error.contains(QStringLiteral("data")), qPrintable(error));
    QVERIFY(!scene.isDisabled());
}

TEST_WITHOUT_WINDOWS(DriveNodeTest)

} // namespace drive_node_test

#include "DriveNodeTest.moc"
