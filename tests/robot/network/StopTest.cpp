// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Stop.h"
#include "TestCase.h"

#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/protocol/Codec.h"
#include "rosbridge/server/Publication.h"

#include <QSignalSpy>
#include <QtTest>

namespace stop_test {

using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using robot::network::Stop;
using rosbridge::server::Peer;
using rosbridge::server::ServiceReply;

namespace {

/// Two clients without sockets, of whom the first is in control.
class Scene
{
public:
    Scene() { call(pilot, "/control/acquire"); }

    ServiceReply call(const Peer& caller, const char* service)
    {
        return network.services().call(caller, QLatin1String(service), QCborMap());
    }

    /// The latched state.
    bool isStopped()
    {
        const auto state = network.topics().find(QStringLiteral("/stopped"))->last;
        const QByteArray bytes =
            state->frame(state->topic(), rosbridge::server::Encoding::Json).bytes;
        const QCborMap message = rosbridge::protocol::decodeText(bytes, nullptr).value();
        return message.value(QLatin1String("msg")).toMap().value(QLatin1String("data")).toBool();
    }

    const Peer pilot{1, QStringLiteral("client 1")};
    const Peer watcher{2, QStringLiteral("client 2")};
    Clock clock;
    Network network{clock, robotLimits()};
};

QString messageOf(const ServiceReply& reply)
{
    return reply.values.value(QLatin1String("message")).toString();
}

bool succeeded(const ServiceReply& reply)
{
    return reply.error.isEmpty() && reply.values.value(QLatin1String("success")).toBool();
}

} // namespace

/// Stop, and the services and the topic by which clients know it.
class StopTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_tells_once_that_everything_has_to_stand_still();
    void it_gives_the_reason_for_a_refusal_while_it_is_engaged();
    void anybody_may_stop_the_robot();
    void stopping_twice_is_no_failure();
    void only_the_client_in_control_releases_the_stop();
    void releasing_what_is_not_stopped_is_answered_in_words();
    void the_robot_stays_stopped_when_control_changes_hands();
};

void StopTest::it_tells_once_that_everything_has_to_stand_still()
{
    Stop stop;
    QSignalSpy engaged(&stop, &Stop::engaged);
    QVERIFY(!stop.isEngaged());
    stop.engage();
    QVERIFY(stop.isEngaged());
    stop.engage();
    QCOMPARE(engaged.count(), 1);
    stop.release();
    QVERIFY(!stop.isEngaged());
    stop.engage();
    QCOMPARE(engaged.count(), 2);
}

void StopTest::it_gives_the_reason_for_a_refusal_while_it_is_engaged()
{
    Stop stop;
    const QString message = QStringLiteral("torque on");
    QCOMPARE(stop.refusal(), QString());
    QCOMPARE(stop.qualified(message), message);
    stop.engage();
    QVERIFY(stop.refusal().contains(QStringLiteral("/stop/release")));
    QCOMPARE(stop.qualified(message),
             QStringLiteral("torque on; the robot is stopped: nothing moves"));
    stop.release();
    QCOMPARE(stop.refusal(), QString());
    QCOMPARE(stop.qualified(message), message);
}

void StopTest::anybody_may_stop_the_robot()
{
    Scene scene;
    QVERIFY(!scene.isStopped());
    const ServiceReply reply = scene.call(scene.watcher, "/stop");
    QVERIFY(succeeded(reply));
    QCOMPARE(messageOf(reply), QStringLiteral("the robot is stopped"));
    QVERIFY(scene.network.stop().isEngaged());
    QVERIFY(scene.isStopped());
}

void StopTest::stopping_twice_is_no_failure()
{
    Scene scene;
    scene.call(scene.watcher, "/stop");
    const ServiceReply reply = scene.call(scene.pilot, "/stop");
    QVERIFY(succeeded(reply));
    QCOMPARE(messageOf(reply), QStringLiteral("the robot was stopped already"));
    QVERIFY(scene.isStopped());
}

void StopTest::only_the_client_in_control_releases_the_stop()
{
    Scene scene;
    scene.call(scene.watcher, "/stop");
    QCOMPARE(scene.call(scene.watcher, "/stop/release").error,
             scene.network.control().refusal(scene.watcher));
    QVERIFY(scene.isStopped());
    const ServiceReply reply = scene.call(scene.pilot, "/stop/release");
    QVERIFY(succeeded(reply));
    QCOMPARE(messageOf(reply),
             QStringLiteral("the stop is released; nothing moves until it is commanded"));
    QVERIFY(!scene.network.stop().isEngaged());
    QVERIFY(!scene.isStopped());
}

void StopTest::releasing_what_is_not_stopped_is_answered_in_words()
{
    Scene scene;
    const ServiceReply reply = scene.call(scene.pilot, "/stop/release");
    QVERIFY(succeeded(reply));
    QCOMPARE(messageOf(reply), QStringLiteral("the robot was not stopped"));
    QVERIFY(!scene.isStopped());
}

void StopTest::the_robot_stays_stopped_when_control_changes_hands()
{
    Scene scene;
    scene.call(scene.pilot, "/stop");
    scene.call(scene.pilot, "/control/release");
    QVERIFY(scene.isStopped());
    scene.call(scene.watcher, "/control/acquire");
    QVERIFY(scene.isStopped());
    QVERIFY(!scene.call(scene.pilot, "/stop/release").error.isEmpty());
    QVERIFY(succeeded(scene.call(scene.watcher, "/stop/release")));
    QVERIFY(!scene.isStopped());
}

TEST_WITHOUT_WINDOWS(StopTest)

} // namespace stop_test

#include "StopTest.moc"
