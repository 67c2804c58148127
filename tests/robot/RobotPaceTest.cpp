// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "Watcher.h"

#include "robot/Robot.h"
#include "rosbridge/protocol/Address.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QtTest>

#include <chrono>
#include <memory>

namespace robot_pace_test {

using robot::Robot;

namespace {

/// How often this thread goes to sleep in that time: where a robot steps every 10 ms, at least as
/// often as it steps.
int sleepsWithin(std::chrono::milliseconds time)
{
    int count = 0;
    QEventLoop loop;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &loop, [&count] { ++count; });
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
    return count;
}

/// A robot that listens.
class Scene
{
public:
    Scene()
    {
        QString error;
        if (!robot.listen({QStringLiteral("127.0.0.1"), 0}, &error))
            qWarning("%s", qPrintable(error));
    }

    /// One that is let in; null if it is not.
    std::unique_ptr<Watcher> client() const
    {
        auto client = std::make_unique<Watcher>(robot.port());
        if (!QTest::qWaitFor([&client] { return client->isOpen(); }, patience))
            client.reset();
        return client;
    }

    Robot robot{1};
};

/// Milliseconds.
double timeIn(const QCborValue& stamp)
{
    return stamp[QLatin1String("secs")].toDouble() * 1e3 +
           stamp[QLatin1String("nsecs")].toDouble() / 1e6;
}

} // namespace

/// Robot: how often it steps, with clients and without.
class RobotPaceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_rarely_wakes_up_while_nobody_is_connected();
    void the_first_client_finds_the_world_as_it_is_now();
    void the_first_client_gets_the_usual_rate();
    void it_goes_on_while_clients_come_and_go();
};

void RobotPaceTest::it_rarely_wakes_up_while_nobody_is_connected()
{
    const Scene scene;
    constexpr std::chrono::milliseconds time(500);
    constexpr int rarely = 20;
    QVERIFY(sleepsWithin(time) < rarely);
    QVERIFY(scene.client());
    // Once it has seen the client leave.
    QVERIFY(QTest::qWaitFor([time] { return sleepsWithin(time) < rarely; }, patience));
}

void RobotPaceTest::the_first_client_finds_the_world_as_it_is_now()
{
    const Scene scene;
    QElapsedTimer sinceThen; // the robot's clock began earlier
    sinceThen.start();
    sleepsWithin(std::chrono::milliseconds(250)); // between two steps
    const double before = static_cast<double>(sinceThen.elapsed());
    const std::unique_ptr<Watcher> first = scene.client();
    QVERIFY(first);
    const QString log = QStringLiteral("/rosout");
    first->subscribe(log, QStringLiteral("rosgraph_msgs/Log"));
    first->call("/control/acquire");
    QTRY_VERIFY_WITH_TIMEOUT(!first->messages[log].isEmpty(), patience);
    const QCborValue header = first->messages[log].first().value(QLatin1String("header"));
    const double stamp = timeIn(header[QLatin1String("stamp")]);
    QVERIFY2(stamp >= before, qPrintable(QStringLiteral("%1 < %2").arg(stamp).arg(before)));
}

void RobotPaceTest::the_first_client_gets_the_usual_rate()
{
    const Scene scene;
    const std::unique_ptr<Watcher> first = scene.client();
    QVERIFY(first);
    const QString topic = QStringLiteral("/clock");
    first->subscribe(topic, QStringLiteral("rosgraph_msgs/Clock"));
    QTRY_VERIFY_WITH_TIMEOUT(first->messages[topic].size() >= 30, patience);
    const QVector<QCborMap>& times = first->messages[topic];
    const QLatin1String clock("clock");
    const double span = timeIn(times.at(29).value(clock)) - timeIn(times.at(0).value(clock));
    // 290 where the machine is free, and 50 times as much at the pace without clients.
    QVERIFY2(span < 7000, qPrintable(QString::number(span)));
}

void RobotPaceTest::it_goes_on_while_clients_come_and_go()
{
    const Scene scene;
    const std::unique_ptr<Watcher> first = scene.client();
    QVERIFY(first);
    const QString topic = QStringLiteral("/clock");
    first->subscribe(topic, QStringLiteral("rosgraph_msgs/Clock"));
    QTRY_VERIFY_WITH_TIMEOUT(!first->messages[topic].isEmpty(), patience);

    QDeadlineTimer deadline(patience);
    first->messages[topic].clear();
    int comers = 0;
    while (first->messages[topic].size() < 20 && !deadline.hasExpired()) {
        const Watcher comer(scene.robot.port()); // refused where too many are still leaving
        if (QTest::qWaitFor([&comer] { return comer.isOpen(); }, 100))
            ++comers;
    }
    QVERIFY(comers > 1);
    QVERIFY(first->messages[topic].size() >= 20);
}

TEST_WITHOUT_WINDOWS(RobotPaceTest)

} // namespace robot_pace_test

#include "RobotPaceTest.moc"
