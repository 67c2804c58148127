// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RawPeer.h"
#include "StuckPort.h"
#include "TestCase.h"
#include "Witness.h"

#include <QSignalSpy>
#include <QtTest>

#include <utility>

namespace client_closing_test {

using rosbridge::client::Client;
using namespace std::chrono_literals;

namespace {

void turnEventLoop(int turns)
{
    for (int turn = 0; turn < turns; ++turn)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Whatever is still under way on a link has time to show while another one comes about.
void makeAnotherLink()
{
    const Peer peer;
    Client client(noHurry());
    client.open({"localhost", peer.address().port});
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
}

} // namespace

/// A Client's link may be closed, replaced and deleted at any time.
class ClientClosingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_server_is_told_when_the_client_leaves_data();
    void the_server_is_told_when_the_client_leaves();
    void closing_while_connecting_is_immediate_and_final_data();
    void closing_while_connecting_is_immediate_and_final();
    void closing_after_any_turn_of_the_event_loop_is_final_data();
    void closing_after_any_turn_of_the_event_loop_is_final();
    void deleting_after_any_turn_of_the_event_loop_is_safe_data();
    void deleting_after_any_turn_of_the_event_loop_is_safe();
    void closing_when_closed_does_nothing();
    void opening_again_replaces_the_link();
    void a_link_may_be_reopened_from_inside_closed();
    void the_owner_may_delete_the_client_inside_its_signals();
};

void ClientClosingTest::the_server_is_told_when_the_client_leaves_data()
{
    QTest::addColumn<bool>("isDeleted");
    QTest::newRow("closed") << false;
    QTest::newRow("deleted") << true;
}

void ClientClosingTest::the_server_is_told_when_the_client_leaves()
{
    QFETCH(bool, isDeleted);

    RawPeer peer;
    auto client = std::make_unique<Client>(noHurry());
    client->open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client->state(), Client::State::Open, patience);
    if (isDeleted)
        client.reset();
    else
        client->close();

    QTRY_COMPARE_WITH_TIMEOUT(peer.socket->state(), QAbstractSocket::UnconnectedState, patience);
    QByteArray frame = peer.socket->readAll();
    QCOMPARE(frame.left(2), QByteArray("\x88\x82")); // close, with a masked code of two bytes
    QCOMPARE(frame.size(), 8);
    const int code = quint8(frame[2] ^ frame[6]) << 8 | quint8(frame[3] ^ frame[7]);
    QCOMPARE(code, 1000); // normal
}

void ClientClosingTest::closing_while_connecting_is_immediate_and_final_data()
{
    QTest::addColumn<QString>("phase");
    QTest::newRow("before anything") << "start";
    QTest::newRow("host lookup") << "lookup";
    QTest::newRow("TCP connection") << "tcp";
    QTest::newRow("WebSocket handshake") << "handshake";
}

void ClientClosingTest::closing_while_connecting_is_immediate_and_final()
{
    QFETCH(QString, phase);

    RawPeer peer;
    const StuckPort stuck;
    QVERIFY(stuck.isStuck());
    Client client(noHurry());
    Witness witness(client);
    if (phase == "lookup") {
        client.open({"localhost", peer.address().port});
        QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    } else if (phase == "tcp") {
        client.open(stuck.address());
        QCoreApplication::processEvents();
    } else {
        client.open(peer.address());
        if (phase == "handshake")
            QTRY_VERIFY_WITH_TIMEOUT(peer.socket && peer.socket->bytesAvailable(), patience);
    }
    QCOMPARE(client.state(), Client::State::Connecting);
    client.close();
    QCOMPARE(client.state(), Client::State::Closed);
    QCOMPARE(witness.events, QStringList("Requested"));

    if (phase == "handshake") { // an answer that comes too late
        QSignalSpy gone(peer.socket, &QTcpSocket::disconnected);
        peer.shakeHands();
        QTRY_COMPARE_WITH_TIMEOUT(gone.size(), 1, patience);
    }
    makeAnotherLink();
    QCOMPARE(witness.events, QStringList("Requested"));
    QVERIFY(phase != "start" || !peer.socket); // not even a connection was made
}

void ClientClosingTest::closing_after_any_turn_of_the_event_loop_is_final_data()
{
    QTest::addColumn<QString>("host");
    QTest::newRow("address") << "127.0.0.1";
    QTest::newRow("name") << "localhost";
}

void ClientClosingTest::closing_after_any_turn_of_the_event_loop_is_final()
{
    QFETCH(QString, host);

    const Peer peer;
    bool wasOpen = false; // then every turn from the first on has been tried
    for (int turns = 0; !wasOpen; ++turns) {
        Client client(noHurry());
        Witness witness(client);
        client.open({host, peer.address().port});
        turnEventLoop(turns);
        wasOpen = client.state() == Client::State::Open;
        client.close();
        const QStringList events = witness.events;
        QCOMPARE(events, wasOpen ? QStringList({"opened", "Requested"}) : QStringList("Requested"));
        makeAnotherLink();
        QCOMPARE(witness.events, events);
    }
}

void ClientClosingTest::deleting_after_any_turn_of_the_event_loop_is_safe_data()
{
    closing_after_any_turn_of_the_event_loop_is_final_data();
}

void ClientClosingTest::deleting_after_any_turn_of_the_event_loop_is_safe()
{
    QFETCH(QString, host);

    const Peer peer;
    bool wasOpen = false;
    for (int turns = 0; !wasOpen; ++turns) {
        auto client = std::make_unique<Client>(noHurry());
        Witness witness(*client);
        client->open({host, peer.address().port});
        turnEventLoop(turns);
        wasOpen = client->state() == Client::State::Open;
        const QStringList events = witness.events;
        client.reset();
        makeAnotherLink();
        QCOMPARE(witness.events, events);
    }
}

void ClientClosingTest::closing_when_closed_does_nothing()
{
    Client client;
    Witness witness(client);
    client.close();
    QCOMPARE(witness.events, QStringList());
}

void ClientClosingTest::opening_again_replaces_the_link()
{
    const Peer first;
    const Peer second;
    Client client(noHurry());
    Witness witness(client);
    client.open(first.address());
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    client.open(second.address());
    QCOMPARE(witness.events, QStringList({"opened", "Requested"}));
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "Requested", "opened"}),
                              patience);
    QTRY_VERIFY_WITH_TIMEOUT(second.socket(), patience);
}

void ClientClosingTest::a_link_may_be_reopened_from_inside_closed()
{
    const Peer peer;
    Client client(noHurry());
    Witness witness(client);
    connect(&client, &Client::closed, &client, [&] { client.open(peer.address()); });
    client.open({"127.0.0.1", unusedPort()});
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"Refused", "opened"}), patience);

    // The same answer to a close that open() itself begins: one link results, not two.
    client.open({"127.0.0.1", unusedPort()});
    QTRY_COMPARE_WITH_TIMEOUT(witness.events,
                              QStringList({"Refused", "opened", "Requested", "opened"}), patience);
    client.disconnect(&client);
}

void ClientClosingTest::the_owner_may_delete_the_client_inside_its_signals()
{
    const Peer peer;
    auto* client = new Client(noHurry());
    connect(client, &Client::opened, this, [&] { delete std::exchange(client, nullptr); });
    client->open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(!client, patience);

    client = new Client(noHurry());
    connect(client, &Client::closed, this, [&] { delete std::exchange(client, nullptr); });
    client->open({"127.0.0.1", unusedPort()});
    QTRY_VERIFY_WITH_TIMEOUT(!client, patience);

    client = new Client(noHurry());
    connect(client, &Client::closed, this, [&] { delete std::exchange(client, nullptr); });
    client->open(peer.address());
    client->open(peer.address()); // closes the first
    QVERIFY(!client);

    client = new Client({100ms, 2s, 5s});
    connect(client, &Client::closed, this, [&] { delete std::exchange(client, nullptr); });
    const RawPeer silent;
    client->open(silent.address());
    QTRY_VERIFY_WITH_TIMEOUT(!client, patience);
}

TEST_WITHOUT_WINDOWS(ClientClosingTest)

} // namespace client_closing_test

#include "ClientClosingTest.moc"
