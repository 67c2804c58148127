// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"

#include "host/workbench/EmbeddedRobot.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

namespace embedded_robot_test {

using host::workbench::EmbeddedRobot;
using rosbridge::protocol::Address;

/// EmbeddedRobot: where it listens.
class EmbeddedRobotTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_listens_on_the_loopback_address_it_names();
    void it_takes_the_port_it_is_given();
    void it_takes_another_port_where_that_one_is_taken();
};

void EmbeddedRobotTest::it_listens_on_the_loopback_address_it_names()
{
    const EmbeddedRobot robot(0);
    QVERIFY2(robot.error().isEmpty(), qPrintable(robot.error()));
    QString error;
    const auto address = Address::parse(robot.address(), &error);
    QVERIFY2(address, qPrintable(error));
    QCOMPARE(address->host, QString("127.0.0.1"));

    QTcpSocket client;
    client.connectToHost(address->host, address->port);
    QVERIFY(client.waitForConnected(30000));
}

void EmbeddedRobotTest::it_takes_the_port_it_is_given()
{
    // Somebody else may take the port that was free a moment ago, but not time and again.
    const auto takesIt = [] {
        QTcpServer server;
        if (!server.listen(QHostAddress::LocalHost))
            return false;
        const quint16 port = server.serverPort();
        server.close();
        return EmbeddedRobot(port).address() == QString("127.0.0.1:%1").arg(port);
    };
    QVERIFY(takesIt() || takesIt() || takesIt());
}

void EmbeddedRobotTest::it_takes_another_port_where_that_one_is_taken()
{
    QTcpServer other;
    QVERIFY(other.listen(QHostAddress::LocalHost));
    const EmbeddedRobot robot(other.serverPort());
    QVERIFY2(robot.error().isEmpty(), qPrintable(robot.error()));
    QVERIFY(!robot.address().isEmpty());
    QVERIFY(robot.address() != QString("127.0.0.1:%1").arg(other.serverPort()));
}

TEST_WITHOUT_WINDOWS(EmbeddedRobotTest)

} // namespace embedded_robot_test

#include "EmbeddedRobotTest.moc"
