// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Link.h"
#include "RawLink.h"
#include "RawPeer.h"
#include "ResidentBytes.h"
#include "TestCase.h"
#include "Witness.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtEndian>
#include <QtTest>

namespace client_flood_test {

using rosbridge::client::Client;
using namespace std::chrono_literals;

namespace {

/// Sends @p bytes again and again, as fast as they are taken, until the connection is gone. What
/// was sent is counted in @p sent.
void flood(QTcpSocket* socket, const QByteArray& bytes, qint64* sent)
{
    const auto refill = [socket, bytes] {
        while (socket->state() == QAbstractSocket::ConnectedState &&
               socket->bytesToWrite() < 1000000)
            socket->write(bytes);
    };
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket, refill);
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket,
                     [sent](qint64 written) { *sent += written; });
    refill();
}

/// The header of a whole binary frame of @p size bytes.
QByteArray binaryHeader(qint64 size)
{
    QByteArray header("\x82\x7f", 2);
    header.resize(10);
    qToBigEndian(size, header.data() + 2);
    return header;
}

} // namespace

/// What a Client does with a server that means harm, is broken, or has much to tell.
class ClientFloodTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_flood_of_pings_takes_no_memory();
    void a_message_of_endless_empty_frames_ends_the_link();
    void an_answer_without_end_is_not_read();
    void the_reason_of_a_close_is_told();
    void a_large_message_on_a_slow_line_is_a_sign_of_life();
    void a_map_of_4096_by_4096_cells_arrives_data();
    void a_map_of_4096_by_4096_cells_arrives();
    void what_is_too_large_is_left_out_by_its_topics_name_data();
    void what_is_too_large_is_left_out_by_its_topics_name();
};

void ClientFloodTest::a_flood_of_pings_takes_no_memory()
{
    RawLink link;
    link.peer.socket->setReadBufferSize(1); // it never reads the answers
    const qint64 before = residentBytes();
    qint64 sent = 0;
    flood(link.peer.socket, (QByteArray("\x89\x7d", 2) + QByteArray(125, 'x')).repeated(1000),
          &sent);
    QTRY_VERIFY_WITH_TIMEOUT(sent > 60000000, patience);
    QVERIFY2(residentBytes() - before < 20000000 + heldBackBytes,
             qPrintable(QString::number(residentBytes())));
    QCOMPARE(link.client.state(), Client::State::Open);
}

void ClientFloodTest::a_message_of_endless_empty_frames_ends_the_link()
{
    RawLink link;
    link.peer.socket->write(QByteArray("\x01\x00", 2));
    qint64 sent = 0;
    flood(link.peer.socket, QByteArray("\x00\x00", 2), &sent);
    QTRY_COMPARE_WITH_TIMEOUT(link.witness.events, QStringList({"opened", "ProtocolError"}),
                              patience);
    QVERIFY2(link.witness.text.contains("a message has too many empty frames"),
             qPrintable(link.witness.text));
}

void ClientFloodTest::an_answer_without_end_is_not_read()
{
    const RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket, patience);
    peer.socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 10000);
    qint64 sent = 0;
    flood(peer.socket, QByteArray(1000, 'x'), &sent);
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
    QVERIFY2(witness.text.contains("its answer does not end"), qPrintable(witness.text));
    QVERIFY2(sent < 1000000, qPrintable(QString::number(sent)));
}

void ClientFloodTest::the_reason_of_a_close_is_told()
{
    const Peer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket() && client.state() == Client::State::Open, patience);
    peer.socket()->close(QWebSocketProtocol::CloseCodePolicyViolated,
                         "the robot serves at most 16 clients");
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "Lost"}), patience);
    QCOMPARE(witness.text, QStringLiteral("%1 closed the link: the robot serves at most 16 "
                                          "clients.")
                               .arg(peer.address().toString()));
}

void ClientFloodTest::a_large_message_on_a_slow_line_is_a_sign_of_life()
{
    RawPeer peer;
    Client client({30s, 100ms, 1s});
    Witness witness(client);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    peer.socket->write(binaryHeader(100000));
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 2500) { // a byte now and then, and no pong
        peer.socket->write("x");
        QTest::qWait(20);
    }
    QCOMPARE(witness.events, QStringList("opened"));
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList({"opened", "Lost"}), patience);
}

void ClientFloodTest::a_map_of_4096_by_4096_cells_arrives_data()
{
    QTest::addColumn<bool>("isBinary");
    QTest::newRow("JSON") << false;
    QTest::newRow("CBOR") << true;
}

void ClientFloodTest::a_map_of_4096_by_4096_cells_arrives()
{
    QFETCH(bool, isBinary);
#ifdef QUANDREL_SANITIZERS // with which each cell takes its time
    constexpr int cells = 1024 * 1024;
#else
    constexpr int cells = 4096 * 4096;
#endif
    Link link;
    qsizetype heard = 0;
    link.client->subscribe("/map", "nav_msgs/OccupancyGrid", {}, [&heard](const QCborMap& msg) {
        const QCborValue data = msg.value(QLatin1String("data"));
        heard = data.isArray() ? data.toArray().size() : data.toByteArray().size();
    });
    link.settle();
    if (isBinary)
        link.peer.sendBinary(rosbridge::protocol::encodeBinary(
            publication("/map", {{QStringLiteral("data"), QByteArray(cells, 'x')}})));
    else // as Python writes it, and as the map is where it is occupied
        link.peer.sendText(R"({"op": "publish", "topic": "/map", "msg": {"data": [)" +
                           QByteArray("100, ").repeated(cells - 1) + "100]}}");
    QTRY_COMPARE_WITH_TIMEOUT(heard, qsizetype(cells), patience);
}

void ClientFloodTest::what_is_too_large_is_left_out_by_its_topics_name_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("what");
    QTest::newRow("name first") << QByteArray(
                                       R"({"op": "publish", "topic": "/map_updates", "msg": )")
                                << QByteArray("}") << "A message of /map_updates";
    QTest::newRow("name last") << QByteArray(R"({"msg": )") << QByteArray(R"(, "topic": "/map"})")
                               << "A message of /map";
    QTest::newRow("not subscribed")
        << QByteArray(R"({"topic": "/other", "msg": )") << QByteArray("}") << "A message";
}

void ClientFloodTest::what_is_too_large_is_left_out_by_its_topics_name()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, end);
    QFETCH(QString, what);

    RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    QSignalSpy status(&client, &Client::statusReceived);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    int heard = 0;
    client.subscribe("/map", "nav_msgs/OccupancyGrid", {}, [](const QCborMap&) {});
    client.subscribe("/map_updates", "nav_msgs/OccupancyGrid", {},
                     [&heard](const QCborMap&) { ++heard; });

    // Smaller than a map of 16384 x 16384 cells, which is left out by the same rule, but quicker.
    constexpr qint64 size = 101000000;
    const qint64 before = residentBytes();
    peer.socket->write(binaryHeader(size) + begin);
    qint64 left = size - begin.size() - end.size();
    const auto refill = [&] {
        while (left > 0 && peer.socket->bytesToWrite() < 1000000) {
            const qint64 chunk = std::min<qint64>(left, 100000);
            peer.socket->write(QByteArray(int(chunk), '0'));
            left -= chunk;
        }
    };
    connect(peer.socket, &QTcpSocket::bytesWritten, this, refill);
    refill();
    QTRY_COMPARE_WITH_TIMEOUT(left, qint64(0), patience);
    QVERIFY(residentBytes() - before < 20000000 + heldBackBytes);
    const QByteArray next = R"({"op":"publish","topic":"/map_updates","msg":{}})";
    peer.socket->write(end + "\x81" + QByteArray(1, char(next.size())) + next);

    QTRY_COMPARE_WITH_TIMEOUT(heard, 1, patience); // the link goes on
    QCOMPARE(witness.events, QStringList("opened"));
    QCOMPARE(int(status.size()), 1);
    QCOMPARE(
        status.first(),
        QVariantList(
            {"error", what + " has 101 MB and was left out; at most 100 MB are accepted.", ""}));
}

TEST_WITHOUT_WINDOWS(ClientFloodTest)

} // namespace client_flood_test

#include "ClientFloodTest.moc"
