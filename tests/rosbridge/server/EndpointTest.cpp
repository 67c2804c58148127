// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AmpleLimits.h"
#include "Patience.h"
#include "Scene.h"
#include "TestCase.h"

#include "rosbridge/client/Client.h"
#include "rosbridge/websocket/Socket.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace endpoint_test {

using namespace std::chrono_literals;
using rosbridge::client::Client;
using rosbridge::server::Endpoint;
using rosbridge::server::Limits;
using rosbridge::server::Peer;

/// Endpoint and ClientSession: what takes time or another amount of data than a robot has now.
/// The rest is tested through the program, by a client in another language.
class EndpointTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void a_peer_that_does_not_answer_pings_is_lost();
    void a_peer_that_answers_pings_is_not_lost();
    void a_slow_reader_loses_messages_of_topics_and_disturbs_nobody();
    void a_client_that_reads_no_answers_is_cut_off();
    void an_unfinished_handshake_is_not_waited_for();
    void a_peer_that_takes_no_leave_is_not_waited_for();
    void a_port_in_use_is_an_error();
    void it_listens_again_after_it_was_closed();
    void it_may_be_deleted_with_clients();
};

void EndpointTest::initTestCase()
{
    qRegisterMetaType<Peer>();
    qRegisterMetaType<Client::Cause>();
}

void EndpointTest::a_peer_that_does_not_answer_pings_is_lost()
{
    Limits limits = ampleLimits();
    limits.pingInterval = 50ms;
    limits.peerDeadline = 200ms;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    const LazyPeer peer(scene);
    QTRY_COMPARE_WITH_TIMEOUT(left.count(), 1, patience);
    QCOMPARE(joined.count(), 1);
    QVERIFY(left.first().at(1).toString().contains(QStringLiteral("0.2 s")));
}

void EndpointTest::a_peer_that_answers_pings_is_not_lost()
{
    Limits limits = ampleLimits();
    limits.pingInterval = 50ms;
    limits.peerDeadline = 2s;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    const LazyPeer lazy(scene);
    Client client;
    client.open({QStringLiteral("127.0.0.1"), scene.endpoint.port()});
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    QTRY_COMPARE_WITH_TIMEOUT(left.count(), 1, patience);
    QTest::qWait(0);
    QCOMPARE(client.state(), Client::State::Open);
    QCOMPARE(left.count(), 1);
}

void EndpointTest::a_slow_reader_loses_messages_of_topics_and_disturbs_nobody()
{
    Limits limits = ampleLimits();
    limits.outboxBytes = 1100000;
    limits.peerDeadline = 1h;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);

    LazyPeer lazy(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    lazy.send(R"({"op": "set_level", "level": "warning"})");
    lazy.send(R"({"op": "subscribe", "topic": "/picture"})");

    Client client;
    int received = 0;
    client.open({QStringLiteral("127.0.0.1"), scene.endpoint.port()});
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    client.subscribe(Scene::topic(), QString(), Client::SubscribeOptions(),
                     [&received](const QCborMap&) { ++received; });
    bool isSubscribed = false; // once a later request is answered
    client.callService(
        QStringLiteral("/nonsense"), {},
        [&isSubscribed](const Client::Result&) { isSubscribed = true; },
        std::chrono::milliseconds(patience));
    QTRY_VERIFY_WITH_TIMEOUT(isSubscribed, patience);

    // Far more than the outbox and the sockets' buffers hold together.
    const QByteArray megabyte(1000000, 'x');
    for (int i = 0; i < 16; ++i) {
        scene.publish(megabyte);
        QTRY_COMPARE_WITH_TIMEOUT(received, i + 1, patience);
    }
    scene.publish("last");
    QCOMPARE(left.count(), 0);

    lazy.beginToRead();
    QTRY_VERIFY_WITH_TIMEOUT(lazy.hasReceived("reads too slowly"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(lazy.hasReceived("\"last\""), patience);
    QCOMPARE(int(lazy.received().count("reads too slowly")), 1);
}

void EndpointTest::a_client_that_reads_no_answers_is_cut_off()
{
    Limits limits = ampleLimits();
    limits.outboxBytes = 4096;
    limits.messagesPerSecond = 1000000;
    limits.messageBurst = 1000000;
    Scene scene(limits);
    const QString much(200000, QLatin1Char('x'));
    scene.services.add(
        QStringLiteral("/much"),
        {QStringLiteral("test/Much"),
         {},
         rosbridge::server::Access::Anyone,
         [&much](const Peer&, const QCborMap&) {
             return rosbridge::server::ServiceReply{{{QStringLiteral("data"), much}}, QString()};
         }});
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    LazyPeer lazy(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    for (int i = 0; i < 200; ++i)
        lazy.send(R"({"op": "call_service", "service": "/much"})");
    QTRY_COMPARE_WITH_TIMEOUT(left.count(), 1, patience);
    QVERIFY(left.first().at(1).toString().contains(QStringLiteral("does not read")));
}

void EndpointTest::an_unfinished_handshake_is_not_waited_for()
{
    // Qt's own deadline would end both connections, and both at the same time.
    Limits patient = ampleLimits();
    patient.handshakeDeadline = 1h;
    Limits impatient = ampleLimits();
    impatient.handshakeDeadline = 100ms;
    const Scene patientScene(patient);
    const Scene impatientScene(impatient);
    QTcpSocket kept;
    QTcpSocket dropped;
    kept.connectToHost(QHostAddress::LocalHost, patientScene.endpoint.port());
    kept.write("GET / HTTP/1.1\r\n");
    QTRY_COMPARE_WITH_TIMEOUT(kept.bytesToWrite(), qint64(0), patience);
    QSignalSpy disconnected(&dropped, &QTcpSocket::disconnected);
    dropped.connectToHost(QHostAddress::LocalHost, impatientScene.endpoint.port());
    dropped.write("GET / HTTP/1.1\r\n");
    QTRY_COMPARE_WITH_TIMEOUT(disconnected.count(), 1, patience);
    QCOMPARE(kept.state(), QAbstractSocket::ConnectedState);
}

void EndpointTest::a_peer_that_takes_no_leave_is_not_waited_for()
{
    Limits limits = ampleLimits();
    limits.closeDeadline = 100ms;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    LazyPeer lazy(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    lazy.send(R"({"op": "subscribe", "topic": "/picture"})");

    const QPointer<rosbridge::websocket::Socket> socket =
        scene.endpoint.findChild<rosbridge::websocket::Socket*>();
    QVERIFY(socket);
    // Not all of it fits into the sockets' buffers, so that good-bye waits behind the rest.
    const QByteArray data(16000000, 'x');
    const auto isSending = [&scene, &socket, &data] { // which it is once it knows of the request
        scene.publish(data);
        return socket->bytesToWrite() >= data.size();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isSending(), patience);
    scene.endpoint.close();
    QTRY_VERIFY_WITH_TIMEOUT(socket.isNull(), patience);
}

void EndpointTest::a_port_in_use_is_an_error()
{
    Scene first{ampleLimits()};
    QVERIFY(first.isListening);
    Endpoint second(first.topics, first.services, ampleLimits());
    QVERIFY(!second.listen(QHostAddress::LocalHost, first.endpoint.port()));
    QVERIFY(!second.errorString().isEmpty());
    QCOMPARE(second.port(), quint16(0));
}

void EndpointTest::it_listens_again_after_it_was_closed()
{
    Scene scene{ampleLimits()};
    const quint16 port = scene.endpoint.port();
    Client client;
    QSignalSpy closed(&client, &Client::closed);
    client.open({QStringLiteral("127.0.0.1"), port});
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);

    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    scene.endpoint.close();
    QCOMPARE(left.count(), 1);
    QCOMPARE(scene.endpoint.port(), quint16(0));
    QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, patience);

    QVERIFY(scene.endpoint.listen(QHostAddress::LocalHost, 0));
    client.open({QStringLiteral("127.0.0.1"), scene.endpoint.port()});
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
}

void EndpointTest::it_may_be_deleted_with_clients()
{
    Client client;
    QSignalSpy closed(&client, &Client::closed);
    {
        const Scene scene{ampleLimits()};
        client.open({QStringLiteral("127.0.0.1"), scene.endpoint.port()});
        QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    }
    QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, patience);
    QCOMPARE(closed.first().first().value<Client::Cause>(), Client::Cause::Lost);
}

TEST_WITHOUT_WINDOWS(EndpointTest)

} // namespace endpoint_test

#include "EndpointTest.moc"
