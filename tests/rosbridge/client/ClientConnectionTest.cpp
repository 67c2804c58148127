// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RawLink.h"
#include "RawPeer.h"
#include "StuckPort.h"
#include "TestCase.h"
#include "Witness.h"

#include <QElapsedTimer>
#include <QtTest>

namespace client_connection_test {

using rosbridge::client::Client;
using rosbridge::protocol::Address;
using namespace std::chrono_literals;

/// How a Client's link comes about and how the other end ends it: every end has its cause.
class ClientConnectionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_server_that_answers_is_opened_and_closed_on_request();
    void a_name_is_looked_up();
    void a_port_nobody_listens_on_is_refused();
    void a_name_that_does_not_exist_is_unreachable();
    void a_host_that_does_not_answer_is_unreachable();
    void a_server_without_handshake_is_silent();
    void a_server_of_another_kind_is_a_protocol_error_data();
    void a_server_of_another_kind_is_a_protocol_error();
    void a_server_that_closes_before_the_handshake_is_a_protocol_error();
    void a_server_that_closes_is_lost();
    void a_server_that_breaks_off_is_lost();
    void a_server_that_answers_stays_open_and_one_that_falls_silent_is_lost();
    void a_frame_that_is_none_is_a_protocol_error_data();
    void a_frame_that_is_none_is_a_protocol_error();
};

void ClientConnectionTest::a_server_that_answers_is_opened_and_closed_on_request()
{
    const Peer peer;
    Client client(noHurry());
    Witness witness(client);

    client.open(peer.address());
    QCOMPARE(client.state(), Client::State::Connecting);
    QCOMPARE(witness.events, QStringList());
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);

    client.close();
    QCOMPARE(client.state(), Client::State::Closed);
    QCOMPARE(witness.events, QStringList({"opened", "Requested"}));
    QCOMPARE(
        witness.text,
        QStringLiteral("The link to %1 was closed on request.").arg(peer.address().toString()));
}

void ClientConnectionTest::a_name_is_looked_up()
{
    const Peer peer;
    Client client(noHurry());
    client.open({"localhost", peer.address().port});
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
}

void ClientConnectionTest::a_port_nobody_listens_on_is_refused()
{
    const Address address{"127.0.0.1", unusedPort()};
    Client client(noHurry());
    Witness witness(client);

    client.open(address);
    QCOMPARE(witness.events, QStringList()); // not from inside open()
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("Refused"), patience);
    QCOMPARE(witness.text, QStringLiteral("%1 refuses the connection. Check the port and whether "
                                          "the robot's program is running.")
                               .arg(address.toString()));
}

void ClientConnectionTest::a_name_that_does_not_exist_is_unreachable()
{
    Client client(noHurry());
    Witness witness(client);
    client.open({"robot.invalid", 9090});
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("Unreachable"), patience);
    QCOMPARE(witness.text, QStringLiteral("There is no host \"robot.invalid\". Check the address "
                                          "and the network."));
}

void ClientConnectionTest::a_host_that_does_not_answer_is_unreachable()
{
    const StuckPort port;
    QVERIFY(port.isStuck());
    Client client({200ms, 2s, 5s});
    Witness witness(client);
    client.open(port.address());
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("Unreachable"), patience);
    QCOMPARE(witness.text, QStringLiteral("%1 has not answered for 0.2 s. Check the address, the "
                                          "network and whether the robot is switched on.")
                               .arg(port.address().toString()));
}

void ClientConnectionTest::a_server_without_handshake_is_silent()
{
    const RawPeer peer;
    Client client({1s, 2s, 5s});
    Witness witness(client);
    client.open(peer.address());
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("Silent"), patience);
    QCOMPARE(witness.text, QStringLiteral("%1 accepts a connection but has not answered for 1 s. "
                                          "Check whether the port is the robot's, or restart the "
                                          "robot's program.")
                               .arg(peer.address().toString()));
}

void ClientConnectionTest::a_server_of_another_kind_is_a_protocol_error_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("web page") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    QTest::newRow("fault") << QByteArray("HTTP/1.1 500 Internal Server Error\r\n\r\n");
    QTest::newRow("wrong key") << QByteArray("HTTP/1.1 101 Switching Protocols\r\n"
                                             "Upgrade: websocket\r\nConnection: Upgrade\r\n"
                                             "Sec-WebSocket-Accept: AAAA\r\n\r\n");
    QTest::newRow("greeting") << QByteArray("SSH-2.0-Server_1.0\r\n\r\n");
}

void ClientConnectionTest::a_server_of_another_kind_is_a_protocol_error()
{
    QFETCH(QByteArray, answer);

    const RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket && peer.socket->bytesAvailable(), patience);
    peer.socket->write(answer);
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
    QVERIFY2(witness.text.startsWith(peer.address().toString() + " answers, but not as a robot: "),
             qPrintable(witness.text));
}

void ClientConnectionTest::a_server_that_closes_before_the_handshake_is_a_protocol_error()
{
    const RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket && peer.socket->bytesAvailable(), patience);
    peer.socket->readAll();
    peer.socket->close();
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
}

void ClientConnectionTest::a_server_that_closes_is_lost()
{
    const Peer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket() && client.state() == Client::State::Open, patience);
    peer.socket()->close(QWebSocketProtocol::CloseCodeGoingAway);
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "Lost"}), patience);
    QVERIFY2(witness.text.startsWith("The link to " + peer.address().toString() + " is lost: "),
             qPrintable(witness.text));
}

void ClientConnectionTest::a_server_that_breaks_off_is_lost()
{
    RawLink link;
    link.peer.socket->abort();
    QTRY_COMPARE_WITH_TIMEOUT(link.witness.events, QStringList({"opened", "Lost"}), patience);
}

void ClientConnectionTest::a_server_that_answers_stays_open_and_one_that_falls_silent_is_lost()
{
    // The interval is longer than either deadline, so that one which goes on too long shows.
    RawPeer peer;
    Client client({800ms, 900ms, 800ms});
    Witness witness(client);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);

    int pings = 0;
    connect(peer.socket, &QTcpSocket::readyRead, this, [&] {
        QCOMPARE(peer.socket->readAll().left(2), QByteArray("\x89\x80"));
        if (++pings == 1)
            peer.socket->write(QByteArray("\x8a\x00", 2));
    });
    QTRY_COMPARE_WITH_TIMEOUT(pings, 2, patience);
    QCOMPARE(witness.events, QStringList("opened"));

    QElapsedTimer silence;
    silence.start();
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "Lost"}), patience);
    QVERIFY2(silence.elapsed() > 400, qPrintable(QString::number(silence.elapsed())));
    QCOMPARE(witness.text, QStringLiteral("The link to %1 is lost: the robot has not answered for "
                                          "0.8 s. Check the network and whether the robot is "
                                          "switched on.")
                               .arg(peer.address().toString()));
}

void ClientConnectionTest::a_frame_that_is_none_is_a_protocol_error_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("reserved bits") << QByteArray("\xf1\x01x", 3);
    QTest::newRow("unknown opcode") << QByteArray("\x83\x01x", 3);
    QTest::newRow("1 GiB and a byte") << QByteArray("\x82\x7f\0\0\0\0\x40\x00\x00\x01", 10);
    QTest::newRow("greatest length") << QByteArray("\x82\x7f\x7f\xff\xff\xff\xff\xff\xff\xff", 10);
    QTest::newRow("text that is not UTF-8") << QByteArray("\x81\x02\xc3\x28", 4);
}

void ClientConnectionTest::a_frame_that_is_none_is_a_protocol_error()
{
    QFETCH(QByteArray, frame);

    RawLink link;
    link.peer.socket->write(frame);
    QTRY_COMPARE_WITH_TIMEOUT(link.witness.events, QStringList({"opened", "ProtocolError"}),
                              patience);
    QVERIFY2(link.witness.text.contains("did not understand the other: "),
             qPrintable(link.witness.text));
}

TEST_WITHOUT_WINDOWS(ClientConnectionTest)

} // namespace client_connection_test

#include "ClientConnectionTest.moc"
