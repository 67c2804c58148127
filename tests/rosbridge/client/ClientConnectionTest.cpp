#include "Peer.h"
#include "TestCase.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace client_connection_test {

using rosbridge::client::Client;
using rosbridge::protocol::Address;
using namespace std::chrono_literals;

namespace {

/// A TCP server that does by hand what a WebSocket server does, as far as the test wants.
class RawPeer : public QTcpServer
{
    Q_OBJECT

public:
    RawPeer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this,
                [this] { socket = nextPendingConnection(); });
    }

    Address address() const { return {serverAddress().toString(), serverPort()}; }

    /// Answers the handshake of the client that has come.
    void shakeHands()
    {
        QTRY_VERIFY_WITH_TIMEOUT(socket && socket->peek(4096).endsWith("\r\n\r\n"), patience);
        QByteArray key;
        while (socket->canReadLine()) {
            const QByteArray line = socket->readLine().trimmed();
            if (line.toLower().startsWith("sec-websocket-key:"))
                key = line.mid(line.indexOf(':') + 1).trimmed();
        }
        const QByteArray accept = QCryptographicHash::hash(
            key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11", QCryptographicHash::Sha1);
        socket->write("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
                      "Connection: Upgrade\r\nSec-WebSocket-Accept: " +
                      accept.toBase64() + "\r\n\r\n");
    }

    QTcpSocket* socket = nullptr;
};

/// A port of this machine that neither accepts nor refuses: its queue is full.
class StuckPort
{
public:
    StuckPort()
    {
        m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
        m_filler = ::socket(AF_INET, SOCK_STREAM, 0);
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(m_address);
        auto* address = reinterpret_cast<sockaddr*>(&m_address);
        m_isStuck = ::bind(m_listener, address, size) == 0 && ::listen(m_listener, 0) == 0 &&
                    ::getsockname(m_listener, address, &size) == 0 &&
                    ::connect(m_filler, address, size) == 0;
    }

    ~StuckPort()
    {
        ::close(m_filler);
        ::close(m_listener);
    }

    StuckPort(const StuckPort&) = delete;
    StuckPort& operator=(const StuckPort&) = delete;

    bool isStuck() const { return m_isStuck; }

    Address address() const { return {"127.0.0.1", ntohs(m_address.sin_port)}; }

private:
    int m_listener = -1;
    int m_filler = -1;
    sockaddr_in m_address = {};
    bool m_isStuck = false;
};

quint16 unusedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

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

/// What a client told of its connection, in order.
class Witness : public QObject
{
    Q_OBJECT

public:
    explicit Witness(Client& client)
    {
        connect(&client, &Client::opened, this, [this, &client] {
            events.append(client.state() == Client::State::Open ? "opened" : "opened?");
        });
        connect(&client, &Client::closed, this,
                [this, &client](Client::Cause cause, const QString& reason) {
                    const QString name = QVariant::fromValue(cause).toString();
                    events.append(client.state() == Client::State::Closed ? name : name + "?");
                    text = reason;
                });
    }

    QStringList events;
    QString text;
};

} // namespace

/// How a Client's link comes and goes: every end has its cause, and none is told twice.
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
    QTest::newRow("not found") << QByteArray("HTTP/1.1 404 Not Found\r\n\r\n");
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
    RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    peer.socket->abort();
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "Lost"}), patience);
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
    QTest::newRow("4 MiB and a byte") << QByteArray("\x82\x7f\0\0\0\0\x00\x40\x00\x01", 10);
    QTest::newRow("greatest length") << QByteArray("\x82\x7f\x7f\xff\xff\xff\xff\xff\xff\xff", 10);
    QTest::newRow("text that is not UTF-8") << QByteArray("\x81\x02\xc3\x28", 4);
}

void ClientConnectionTest::a_frame_that_is_none_is_a_protocol_error()
{
    QFETCH(QByteArray, frame);

    RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    peer.socket->write(frame);
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "ProtocolError"}), patience);
    QVERIFY2(witness.text.contains("did not understand the other: "), qPrintable(witness.text));
}

void ClientConnectionTest::the_server_is_told_when_the_client_leaves_data()
{
    QTest::addColumn<bool>("isDeleted");
    QTest::newRow("closed") << false;
    QTest::newRow("deleted") << true;
}

void ClientConnectionTest::the_server_is_told_when_the_client_leaves()
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

void ClientConnectionTest::closing_while_connecting_is_immediate_and_final_data()
{
    QTest::addColumn<QString>("phase");
    QTest::newRow("before anything") << "start";
    QTest::newRow("host lookup") << "lookup";
    QTest::newRow("TCP connection") << "tcp";
    QTest::newRow("WebSocket handshake") << "handshake";
}

void ClientConnectionTest::closing_while_connecting_is_immediate_and_final()
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

void ClientConnectionTest::closing_after_any_turn_of_the_event_loop_is_final_data()
{
    QTest::addColumn<QString>("host");
    QTest::newRow("address") << "127.0.0.1";
    QTest::newRow("name") << "localhost";
}

void ClientConnectionTest::closing_after_any_turn_of_the_event_loop_is_final()
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

void ClientConnectionTest::deleting_after_any_turn_of_the_event_loop_is_safe_data()
{
    closing_after_any_turn_of_the_event_loop_is_final_data();
}

void ClientConnectionTest::deleting_after_any_turn_of_the_event_loop_is_safe()
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

void ClientConnectionTest::closing_when_closed_does_nothing()
{
    Client client;
    Witness witness(client);
    client.close();
    QCOMPARE(witness.events, QStringList());
}

void ClientConnectionTest::opening_again_replaces_the_link()
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

void ClientConnectionTest::a_link_may_be_reopened_from_inside_closed()
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

void ClientConnectionTest::the_owner_may_delete_the_client_inside_its_signals()
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

TEST_WITHOUT_WINDOWS(ClientConnectionTest)

} // namespace client_connection_test

#include "ClientConnectionTest.moc"
