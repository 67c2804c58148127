// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "rosbridge/websocket/Socket.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <memory>

namespace socket_test {

using namespace rosbridge::websocket;

class SocketTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_long_reason_ends_with_a_whole_character_data();
    void a_long_reason_ends_with_a_whole_character();
};

void SocketTest::a_long_reason_ends_with_a_whole_character_data()
{
    QTest::addColumn<QString>("reason");
    QTest::addColumn<int>("told"); // as much as 123 bytes hold
    QTest::newRow("of 1 byte") << QString(200, u'x') << 123;
    QTest::newRow("of 2 bytes") << QString(200, QChar(0xe4)) << 61;
    QTest::newRow("of 3 bytes, an end between two") << QString(200, QChar(0x20ac)) << 41;
    QTest::newRow("of 3 bytes, an end within one")
        << QString(u'x') + QString(200, QChar(0x20ac)) << 41;
}

void SocketTest::a_long_reason_ends_with_a_whole_character()
{
    QFETCH(QString, reason);
    QFETCH(int, told);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    auto* const tcp = new QTcpSocket;
    Socket client(tcp, Role::Client, 1000);
    tcp->connectToHost(QHostAddress::LocalHost, server.serverPort());
    QTRY_VERIFY_WITH_TIMEOUT(server.hasPendingConnections(), patience);
    Socket peer(server.nextPendingConnection(), Role::Server, 1000);
    const QSignalSpy ended(&client, &Socket::ended);
    connect(&client, &Socket::readyRead, &client, &Socket::take);
    peer.close(CloseCode::PolicyViolated, reason);
    QTRY_COMPARE_WITH_TIMEOUT(int(ended.count()), 1, patience);
    QCOMPARE(ended.first().last().toString(), reason.left(told));
}

TEST_WITHOUT_WINDOWS(SocketTest)

} // namespace socket_test

#include "SocketTest.moc"
