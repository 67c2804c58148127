// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Watcher.h"

#include "robot/Robot.h"

#include <QCborArray>
#include <QtTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace robot_stop_test {

using robot::Robot;
using rosbridge::client::Client;

namespace {

constexpr const char* velocityCommand = "/cmd_vel";
constexpr const char* armCommand = "/arm/command";

QString field(const QCborMap& message, const char* name)
{
    return message.value(QLatin1String(name)).toString();
}

/// x and y in metres, the sine of half the heading, and the arm's first axis in radians.
using Place = std::array<double, 4>;

constexpr Place nowhere{NAN, NAN, NAN, NAN}; // near nothing

/// But for what a person who bumps into the robot can do to it.
bool isNear(const Place& a, const Place& b)
{
    constexpr double tolerance = 0.01;
    return std::equal(a.begin(), a.end(), b.begin(),
                      [](double one, double other) { return std::abs(one - other) < tolerance; });
}

/// A robot and two of its clients: the pilot is in control, the bystander is not.
class Scene
{
public:
    bool open()
    {
        QString error;
        if (!robot.listen({QStringLiteral("127.0.0.1"), 0}, &error))
            return false;
        pilot = std::make_unique<Watcher>(robot.port());
        bystander = std::make_unique<Watcher>(robot.port());
        if (!QTest::qWaitFor([this] { return pilot->isOpen() && bystander->isOpen(); }, patience))
            return false;
        pilot->subscribe(QStringLiteral("/odom"), QStringLiteral("nav_msgs/Odometry"));
        pilot->subscribe(QStringLiteral("/joint_states"), QStringLiteral("sensor_msgs/JointState"));
        bystander->subscribe(QStringLiteral("/stopped"), QStringLiteral("std_msgs/Bool"));
        bystander->subscribe(QStringLiteral("/rosout"), QStringLiteral("rosgraph_msgs/Log"));
        return call(*pilot, "/control/acquire").ok &&
               call(*pilot, "/arm/torque", {{QStringLiteral("data"), true}}).ok;
    }

    static Client::Result call(Watcher& client, const char* service, const QCborMap& args = {})
    {
        client.answers.clear();
        client.call(service, args);
        if (!QTest::qWaitFor([&client] { return !client.answers.isEmpty(); }, patience))
            return {};
        return client.answers.first();
    }

    void drive() const
    {
        const QCborMap twist{{QStringLiteral("linear"), QCborMap{{QStringLiteral("x"), -0.3}}},
                             {QStringLiteral("angular"), QCborMap{{QStringLiteral("z"), 0.5}}}};
        pilot->client.publish(QLatin1String(velocityCommand), twist);
    }

    void moveArm(double target) const
    {
        const QCborMap point{{QStringLiteral("positions"), QCborArray{target}},
                             {QStringLiteral("velocities"), QCborArray{0.2}}};
        pilot->client.publish(QLatin1String(armCommand),
                              {{QStringLiteral("joint_names"), QCborArray{"axis0"}},
                               {QStringLiteral("points"), QCborArray{point}}});
    }

    /// The newest one; /odom and /joint_states have the same fields from message to message.
    QCborMap last(const char* topic)
    {
        const QVector<QCborMap>& received = pilot->messages[QLatin1String(topic)];
        return received.isEmpty() ? QCborMap() : received.last();
    }

    /// m/s and rad/s, in one number that is 0 at rest only.
    double speed()
    {
        const QCborValue twist =
            last("/odom").value(QLatin1String("twist"))[QLatin1String("twist")];
        return std::abs(twist[QLatin1String("linear")][QLatin1String("x")].toDouble()) +
               std::abs(twist[QLatin1String("angular")][QLatin1String("z")].toDouble());
    }

    QCborValue armPosition() { return last("/joint_states").value(QLatin1String("position")); }

    double armSpeed()
    {
        return last("/joint_states").value(QLatin1String("velocity"))[0].toDouble();
    }

    /// Whether drive and arm come to rest.
    bool rests()
    {
        return QTest::qWaitFor([this] { return speed() == 0.0 && armSpeed() == 0.0; }, patience);
    }

    /// Where the robot and its arm come to rest after the bystander's stop; nowhere if they do not.
    Place placeOfStop() { return call(*bystander, "/stop").ok && rests() ? placeLater() : nowhere; }

    /// Where the robot and its arm are, ten messages later.
    Place placeLater()
    {
        QVector<QCborMap>& odometry = pilot->messages[QStringLiteral("/odom")];
        QVector<QCborMap>& joints = pilot->messages[QStringLiteral("/joint_states")];
        odometry.clear();
        joints.clear();
        if (!QTest::qWaitFor([&] { return odometry.size() > 10 && joints.size() > 10; }, patience))
            return nowhere;
        const QCborValue pose = last("/odom").value(QLatin1String("pose"))[QLatin1String("pose")];
        return {pose[QLatin1String("position")][QLatin1String("x")].toDouble(),
                pose[QLatin1String("position")][QLatin1String("y")].toDouble(),
                pose[QLatin1String("orientation")][QLatin1String("z")].toDouble(),
                last("/joint_states").value(QLatin1String("position"))[0].toDouble()};
    }

    /// What the log says of calls of the stop's services.
    QStringList log() const
    {
        QStringList lines;
        for (const QCborMap& line : bystander->messages[QStringLiteral("/rosout")]) {
            if (field(line, "msg").contains(QLatin1String("called /stop")))
                lines.append(field(line, "msg").section(QStringLiteral(" called "), 1));
        }
        return lines;
    }

    Robot robot{1};
    std::unique_ptr<Watcher> pilot;
    std::unique_ptr<Watcher> bystander;
};

} // namespace

/// The stop of the whole robot, as two of its clients see it.
class RobotStopTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_bystander_stops_all_that_the_pilot_moves();
    void a_stopped_robot_refuses_commands_with_the_reason();
    void switches_do_not_undo_a_stop();
    void after_the_release_nothing_moves_until_it_is_commanded();
    void the_stop_outlives_its_clients();
    void every_call_is_logged();
};

void RobotStopTest::a_bystander_stops_all_that_the_pilot_moves()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.drive();
    scene.moveArm(5.0);
    QTRY_VERIFY_WITH_TIMEOUT(scene.speed() > 0.5 && scene.armSpeed() > 0.1, patience);

    const Place place = scene.placeOfStop();
    QVERIFY(place[3] > 0.0); // where it was, not where it began
    QVERIFY(isNear(scene.placeLater(), place));
    QTRY_COMPARE_WITH_TIMEOUT(
        scene.bystander->messages[QStringLiteral("/stopped")],
        (QVector<QCborMap>{{{QStringLiteral("data"), false}}, {{QStringLiteral("data"), true}}}),
        patience);
}

void RobotStopTest::a_stopped_robot_refuses_commands_with_the_reason()
{
    Scene scene;
    QVERIFY(scene.open());
    const Place place = scene.placeOfStop();
    scene.drive();
    scene.moveArm(5.0);
    QTRY_COMPARE_WITH_TIMEOUT(scene.pilot->complaints.size(), 2, patience);
    for (const QString& complaint : std::as_const(scene.pilot->complaints))
        QVERIFY2(complaint.contains(QStringLiteral("stopped")) &&
                     complaint.contains(QStringLiteral("/stop/release")),
                 qPrintable(complaint));
    QVERIFY(isNear(scene.placeLater(), place));
}

void RobotStopTest::switches_do_not_undo_a_stop()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.moveArm(5.0);
    const Place place = scene.placeOfStop();
    for (const char* const service :
         {"/drive/disable", "/arm/torque", "/arm/line0", "/arm/line1", "/arm/line2"}) {
        for (const bool data : {true, false, true, service[1] == 'a'}) {
            const Client::Result answer =
                Scene::call(*scene.pilot, service, {{QStringLiteral("data"), data}});
            QVERIFY2(answer.ok, qPrintable(answer.error));
            const QString message = field(answer.values, "message");
            QVERIFY2(message.endsWith(QStringLiteral("the robot is stopped: nothing moves")),
                     qPrintable(message));
        }
    }
    scene.drive();
    scene.moveArm(5.0);
    QVERIFY(isNear(scene.placeLater(), place));
}

void RobotStopTest::after_the_release_nothing_moves_until_it_is_commanded()
{
    Scene scene;
    QVERIFY(scene.open());
    scene.moveArm(5.0);
    const Place place = scene.placeOfStop();
    scene.pilot->complaints.clear(); // the stop may have overtaken the command
    QVERIFY(!Scene::call(*scene.bystander, "/stop/release").ok);
    QVERIFY(Scene::call(*scene.pilot, "/stop/release").ok);
    QVERIFY(isNear(scene.placeLater(), place)); // neither to its target nor about the building
    QVERIFY(Scene::call(*scene.pilot, "/drive/disable", {{QStringLiteral("data"), false}}).ok);
    QVERIFY(isNear(scene.placeLater(), place));

    scene.drive();
    scene.moveArm(5.0);
    QTRY_VERIFY_WITH_TIMEOUT(scene.speed() > 0.5 && scene.armSpeed() > 0.1, patience);
    QTRY_COMPARE_WITH_TIMEOUT(scene.speed(), 0.0, patience); // when the command is too old
    QCOMPARE(scene.pilot->complaints, QStringList());
}

void RobotStopTest::the_stop_outlives_its_clients()
{
    Scene scene;
    QVERIFY(scene.open());
    QVERIFY(Scene::call(*scene.bystander, "/stop").ok);
    scene.pilot->client.close();
    scene.bystander->client.close();
    Watcher late(scene.robot.port());
    QTRY_VERIFY_WITH_TIMEOUT(late.isOpen(), patience);
    late.subscribe(QStringLiteral("/stopped"), QStringLiteral("std_msgs/Bool"));
    QTRY_COMPARE_WITH_TIMEOUT(late.messages[QStringLiteral("/stopped")],
                              (QVector<QCborMap>{{{QStringLiteral("data"), true}}}), patience);
}

void RobotStopTest::every_call_is_logged()
{
    Scene scene;
    QVERIFY(scene.open());
    QVERIFY(Scene::call(*scene.bystander, "/stop").ok);
    QVERIFY(Scene::call(*scene.pilot, "/stop").ok);
    QVERIFY(Scene::call(*scene.pilot, "/stop/release").ok);
    QVERIFY(Scene::call(*scene.pilot, "/stop/release").ok);
    QTRY_COMPARE_WITH_TIMEOUT(
        scene.log(),
        (QStringList{QStringLiteral("/stop: the robot is stopped"),
                     QStringLiteral("/stop: the robot was stopped already"),
                     QStringLiteral("/stop/release: the stop is released; nothing moves until it "
                                    "is commanded"),
                     QStringLiteral("/stop/release: the robot was not stopped")}),
        patience);
}

TEST_WITHOUT_WINDOWS(RobotStopTest)

} // namespace robot_stop_test

#include "RobotStopTest.moc"
