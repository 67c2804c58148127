#include "TestCase.h"

#include "robot/Robot.h"
#include "robot/link/Client.h"

#include <QSignalSpy>
#include <QtTest>

using robot::Access;
using robot::Peer;
using robot::Robot;
using robot::ServiceReply;
using robot::link::Client;

namespace {

constexpr int patience = 30000; // many tests may share a slow machine

/// A client, and what the robot told it.
class Watcher
{
public:
    explicit Watcher(const Robot& robot)
    {
        QObject::connect(&client, &Client::statusReceived,
                         [this](const QString&, const QString& text) { complaints.append(text); });
        client.open({QStringLiteral("127.0.0.1"), robot.port()});
    }

    bool isOpen() const { return client.state() == Client::State::Open; }

    void call(const char* service)
    {
        client.callService(
            QLatin1String(service), {},
            [this](const Client::Result& result) { answers.append(result); },
            std::chrono::milliseconds(patience));
    }

    Client client;
    QStringList complaints;
    QVector<Client::Result> answers;
};

bool succeeded(const Client::Result& result)
{
    return result.ok && result.values.value(QLatin1String("success")).toBool();
}

} // namespace

/// Robot: the parts together, over real sockets.
class RobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void several_robots_in_one_process_do_not_know_each_other();
    void commands_are_obeyed_only_from_the_client_in_control();
    void control_is_free_when_the_robot_was_closed_and_listens_again();
    void what_is_published_reaches_the_subscribers();
    void a_taken_port_is_an_error_that_names_it();
    void an_unknown_host_is_an_error_that_names_it();
};

void RobotTest::several_robots_in_one_process_do_not_know_each_other()
{
    Robot first(1);
    Robot second(2);
    QCOMPARE(first.seed(), 1U);
    QCOMPARE(second.seed(), 2U);
    QString error;
    QVERIFY2(first.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY2(second.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY(first.port() != second.port());
    Watcher one(first);
    Watcher two(second);
    QTRY_VERIFY_WITH_TIMEOUT(one.isOpen() && two.isOpen(), patience);
    one.call("/control/acquire");
    two.call("/control/acquire");
    QTRY_VERIFY_WITH_TIMEOUT(one.answers.size() == 1 && two.answers.size() == 1, patience);
    QVERIFY(succeeded(one.answers.first()));
    QVERIFY(succeeded(two.answers.first()));
}

void RobotTest::commands_are_obeyed_only_from_the_client_in_control()
{
    Robot robot(1);
    int obeyed = 0;
    robot.topics().addCommand(QStringLiteral("/drive"), QStringLiteral("test/Drive"),
                              Access::RequiresControl, [&obeyed](const Peer&, const QCborMap&) {
                                  ++obeyed;
                                  return QString();
                              });
    robot.services().add(QStringLiteral("/stop"), {QStringLiteral("test/Stop"),
                                                   {},
                                                   Access::RequiresControl,
                                                   [&obeyed](const Peer&, const QCborMap&) {
                                                       ++obeyed;
                                                       return ServiceReply();
                                                   }});
    QString error;
    QVERIFY2(robot.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher controller(robot);
    Watcher watcher(robot);
    QTRY_VERIFY_WITH_TIMEOUT(controller.isOpen() && watcher.isOpen(), patience);
    controller.call("/control/acquire");
    QTRY_COMPARE_WITH_TIMEOUT(controller.answers.size(), 1, patience);
    QVERIFY(succeeded(controller.answers.first()));

    watcher.client.publish(QStringLiteral("/drive"), {});
    watcher.call("/stop");
    QTRY_VERIFY_WITH_TIMEOUT(watcher.answers.size() == 1 && watcher.complaints.size() == 1,
                             patience);
    QVERIFY(!watcher.answers.first().ok);
    QVERIFY(watcher.answers.first().error.contains(QStringLiteral("in control")));
    QVERIFY(watcher.complaints.first().contains(QStringLiteral("in control")));
    QCOMPARE(obeyed, 0);

    controller.client.publish(QStringLiteral("/drive"), {});
    controller.call("/stop");
    QTRY_COMPARE_WITH_TIMEOUT(controller.answers.size(), 2, patience);
    QVERIFY(controller.answers.last().ok);
    QCOMPARE(obeyed, 2);
    QVERIFY(controller.complaints.isEmpty());
}

void RobotTest::control_is_free_when_the_robot_was_closed_and_listens_again()
{
    Robot robot(1);
    QString error;
    QVERIFY2(robot.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher first(robot);
    QTRY_VERIFY_WITH_TIMEOUT(first.isOpen(), patience);
    first.call("/control/acquire");
    QTRY_COMPARE_WITH_TIMEOUT(first.answers.size(), 1, patience);
    QVERIFY(succeeded(first.answers.first()));
    robot.close();
    QCOMPARE(robot.port(), quint16(0));

    QVERIFY2(robot.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher second(robot);
    QTRY_VERIFY_WITH_TIMEOUT(second.isOpen(), patience);
    second.call("/control/acquire");
    QTRY_COMPARE_WITH_TIMEOUT(second.answers.size(), 1, patience);
    QVERIFY(succeeded(second.answers.first()));
}

void RobotTest::what_is_published_reaches_the_subscribers()
{
    Robot robot(1);
    const QString topic = QStringLiteral("/state");
    const QCborMap msg{{QStringLiteral("data"), 7}};
    robot.topics().addPublished(topic, QStringLiteral("test/State"));
    robot.publish(topic, msg);
    QString error;
    QVERIFY2(robot.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher text(robot);
    Watcher binary(robot);
    QTRY_VERIFY_WITH_TIMEOUT(text.isOpen() && binary.isOpen(), patience);

    QVector<QCborMap> received;
    const auto take = [&received](const QCborMap& message) { received.append(message); };
    Client::SubscribeOptions options;
    text.client.subscribe(topic, QStringLiteral("test/State"), options, take);
    options.compression = Client::Compression::Cbor;
    binary.client.subscribe(topic, QStringLiteral("test/State"), options, take);
    text.call("/rosapi/topics"); // answered after the subscription
    binary.call("/rosapi/topics");
    QTRY_VERIFY_WITH_TIMEOUT(text.answers.size() == 1 && binary.answers.size() == 1, patience);
    robot.publish(topic, msg);
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 2, patience);
    QCOMPARE(received, (QVector<QCborMap>{msg, msg}));
}

void RobotTest::a_taken_port_is_an_error_that_names_it()
{
    Robot first(1);
    Robot second(2);
    QString error;
    QVERIFY2(first.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY(!second.listen({QStringLiteral("127.0.0.1"), first.port()}, &error));
    QVERIFY2(error.contains(QString::number(first.port())), qPrintable(error));
    QCOMPARE(second.port(), quint16(0));
}

void RobotTest::an_unknown_host_is_an_error_that_names_it()
{
    Robot robot(1);
    QString error;
    QVERIFY(!robot.listen({QStringLiteral("robot.invalid"), 0}, &error));
    QVERIFY2(error.contains(QStringLiteral("robot.invalid")), qPrintable(error));
}

QTEST_GUILESS_MAIN(RobotTest)

#include "RobotTest.moc"
