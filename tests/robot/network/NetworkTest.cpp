// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/robot/Watcher.h"

#include "robot/network/Clock.h"
#include "robot/network/Network.h"
#include "robot/network/RobotLimits.h"
#include "rosbridge/protocol/Address.h"

#include <QSignalSpy>
#include <QtTest>

namespace network_test {

using robot::network::Clock;
using robot::network::Network;
using robot::network::robotLimits;
using rosbridge::client::Client;
using rosbridge::server::Access;
using rosbridge::server::Peer;
using rosbridge::server::ServiceReply;

namespace {

bool succeeded(const Client::Result& result)
{
    return result.ok && result.values.value(QLatin1String("success")).toBool();
}

} // namespace

/// Network: what the robot's parts share, over real sockets.
class NetworkTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void several_networks_in_one_process_do_not_know_each_other();
    void commands_are_obeyed_only_from_the_client_in_control();
    void control_is_free_when_the_robot_was_closed_and_listens_again();
    void it_tells_when_a_client_comes_and_knows_when_the_last_is_gone();
    void what_is_published_reaches_the_subscribers();
    void a_taken_port_is_an_error_that_names_it();
    void an_unknown_host_is_an_error_that_names_it();

private:
    const Clock m_clock;
};

void NetworkTest::several_networks_in_one_process_do_not_know_each_other()
{
    Network first(m_clock, robotLimits());
    Network second(m_clock, robotLimits());
    QString error;
    QVERIFY2(first.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY2(second.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY(first.port() != second.port());
    Watcher one(first.port());
    Watcher two(second.port());
    QTRY_VERIFY_WITH_TIMEOUT(one.isOpen() && two.isOpen(), patience);
    one.call("/control/acquire");
    two.call("/control/acquire");
    QTRY_VERIFY_WITH_TIMEOUT(one.answers.size() == 1 && two.answers.size() == 1, patience);
    QVERIFY(succeeded(one.answers.first()));
    QVERIFY(succeeded(two.answers.first()));
}

void NetworkTest::commands_are_obeyed_only_from_the_client_in_control()
{
    Network network(m_clock, robotLimits());
    int obeyed = 0;
    network.topics().addCommand(QStringLiteral("/drive"), QStringLiteral("test/Drive"),
                                Access::RequiresControl, [&obeyed](const Peer&, const QCborMap&) {
                                    ++obeyed;
                                    return QString();
                                });
    network.services().add(QStringLiteral("/brake"), {QStringLiteral("test/Brake"),
                                                      {},
                                                      Access::RequiresControl,
                                                      [&obeyed](const Peer&, const QCborMap&) {
                                                          ++obeyed;
                                                          return ServiceReply();
                                                      }});
    QString error;
    QVERIFY2(network.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher controller(network.port());
    Watcher watcher(network.port());
    QTRY_VERIFY_WITH_TIMEOUT(controller.isOpen() && watcher.isOpen(), patience);
    controller.call("/control/acquire");
    QTRY_COMPARE_WITH_TIMEOUT(controller.answers.size(), 1, patience);
    QVERIFY(succeeded(controller.answers.first()));

    watcher.client.publish(QStringLiteral("/drive"), {});
    watcher.call("/brake");
    QTRY_VERIFY_WITH_TIMEOUT(watcher.answers.size() == 1 && watcher.complaints.size() == 1,
                             patience);
    QVERIFY(!watcher.answers.first().ok);
    QVERIFY(watcher.answers.first().error.contains(QStringLiteral("in control")));
    QVERIFY(watcher.complaints.first().contains(QStringLiteral("in control")));
    QCOMPARE(obeyed, 0);

    controller.client.publish(QStringLiteral("/drive"), {});
    controller.call("/brake");
    QTRY_COMPARE_WITH_TIMEOUT(controller.answers.size(), 2, patience);
    QVERIFY(controller.answers.last().ok);
    QCOMPARE(obeyed, 2);
    QVERIFY(controller.complaints.isEmpty());
}

void NetworkTest::control_is_free_when_the_robot_was_closed_and_listens_again()
{
    Network network(m_clock, robotLimits());
    QString error;
    QVERIFY2(network.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher first(network.port());
    QTRY_VERIFY_WITH_TIMEOUT(first.isOpen(), patience);
    first.call("/control/acquire");
    QTRY_COMPARE_WITH_TIMEOUT(first.answers.size(), 1, patience);
    QVERIFY(succeeded(first.answers.first()));
    network.close();
    QCOMPARE(network.port(), quint16(0));

    QVERIFY2(network.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher second(network.port());
    QTRY_VERIFY_WITH_TIMEOUT(second.isOpen(), patience);
    second.call("/control/acquire");
    QTRY_COMPARE_WITH_TIMEOUT(second.answers.size(), 1, patience);
    QVERIFY(succeeded(second.answers.first()));
}

void NetworkTest::it_tells_when_a_client_comes_and_knows_when_the_last_is_gone()
{
    Network network(m_clock, robotLimits());
    QVector<bool> told;
    connect(&network, &Network::joined, this, [&] { told.append(network.hasClients()); });
    QString error;
    QVERIFY2(network.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY(!network.hasClients());
    Watcher first(network.port());
    Watcher second(network.port());
    QTRY_VERIFY_WITH_TIMEOUT(first.isOpen() && second.isOpen(), patience);
    QCOMPARE(told, (QVector<bool>{true, true}));
    first.client.close();
    second.client.close();
    QTRY_VERIFY_WITH_TIMEOUT(!network.hasClients(), patience);
}

void NetworkTest::what_is_published_reaches_the_subscribers()
{
    Network network(m_clock, robotLimits());
    const QString topic = QStringLiteral("/state");
    const QCborMap msg{{QStringLiteral("data"), 7}};
    network.topics().addPublished(topic, QStringLiteral("test/State"));
    network.publish(topic, msg);
    QString error;
    QVERIFY2(network.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    Watcher text(network.port());
    Watcher binary(network.port());
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
    network.publish(topic, msg);
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 2, patience);
    QCOMPARE(received, (QVector<QCborMap>{msg, msg}));
}

void NetworkTest::a_taken_port_is_an_error_that_names_it()
{
    Network first(m_clock, robotLimits());
    Network second(m_clock, robotLimits());
    QString error;
    QVERIFY2(first.listen({QStringLiteral("127.0.0.1"), 0}, &error), qPrintable(error));
    QVERIFY(!second.listen({QStringLiteral("127.0.0.1"), first.port()}, &error));
    QVERIFY2(error.contains(QString::number(first.port())), qPrintable(error));
    QCOMPARE(second.port(), quint16(0));
}

void NetworkTest::an_unknown_host_is_an_error_that_names_it()
{
    Network network(m_clock, robotLimits());
    QString error;
    QVERIFY(!network.listen({QStringLiteral("robot.invalid"), 0}, &error));
    QVERIFY2(error.contains(QStringLiteral("robot.invalid")), qPrintable(error));
}

TEST_WITHOUT_WINDOWS(NetworkTest)

} // namespace network_test

#include "NetworkTest.moc"
