// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AmpleLimits.h"
#include "Patience.h"
#include "ResidentBytes.h"
#include "Scene.h"
#include "TestCase.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtEndian>
#include <QtTest>

#include <ctime>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace endpoint_flood_test {

using namespace std::chrono_literals;
using rosbridge::server::Access;
using rosbridge::server::Endpoint;
using rosbridge::server::Limits;
using rosbridge::server::Peer;
using rosbridge::server::ServiceReply;

namespace {

/// Sends @p bytes again and again, as fast as they are taken, until the connection is gone.
void flood(LazyPeer& peer, const QByteArray& bytes)
{
    const auto refill = [&peer, bytes] {
        while (peer.socket.state() == QAbstractSocket::ConnectedState &&
               peer.socket.bytesToWrite() < 1000000)
            peer.socket.write(bytes);
    };
    QObject::connect(&peer.socket, &QTcpSocket::bytesWritten, &peer.socket, refill);
    refill();
}

QByteArray closeFrame(quint16 code)
{
    QByteArray bytes(2, '\0');
    qToBigEndian(code, bytes.data());
    return bytes;
}

/// The limit on this program's open files, as it was when this is destroyed.
class FileLimit
{
public:
    FileLimit() { ::getrlimit(RLIMIT_NOFILE, &m_before); }
    ~FileLimit() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

    bool set(rlim_t files) const
    {
        const rlimit limit{files, m_before.rlim_max};
        return ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
    }

private:
    rlimit m_before{};
};

} // namespace

/// What an Endpoint does with clients that mean harm, or are broken.
class EndpointFloodTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void a_flood_of_pings_is_cut_off_and_takes_no_memory();
    void a_message_of_endless_empty_frames_is_cut_off();
    void a_request_without_end_is_cut_off();
    void a_client_over_the_rate_is_told_and_closed_data();
    void a_client_over_the_rate_is_told_and_closed();
    void a_frame_that_is_not_masked_is_a_violation();
    void clients_are_answered_by_turns();
    void whatever_a_peer_sends_is_a_sign_of_life();
    void no_more_connections_than_there_may_be_are_kept();
    void without_file_descriptors_it_waits_and_says_so_once();
};

void EndpointFloodTest::initTestCase()
{
    qRegisterMetaType<Peer>();
}

void EndpointFloodTest::a_flood_of_pings_is_cut_off_and_takes_no_memory()
{
    Limits limits = ampleLimits();
    limits.pingInterval = 1h;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    LazyPeer peer(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    const qint64 before = residentBytes();
    flood(peer, QByteArray("\x89\xfd\0\0\0\0", 6) + QByteArray(125, 'x'));
    QTRY_COMPARE_WITH_TIMEOUT(left.count(), 1, patience);
    QVERIFY(left.first().at(1).toString().contains(QStringLiteral("500 messages a second")));
    QTRY_COMPARE_WITH_TIMEOUT(peer.socket.state(), QAbstractSocket::UnconnectedState, patience);
    QVERIFY(residentBytes() - before < 16000000 + heldBackBytes);
}

void EndpointFloodTest::a_message_of_endless_empty_frames_is_cut_off()
{
    Scene scene{ampleLimits()};
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    LazyPeer peer(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    peer.socket.write(QByteArray("\x01\x80\0\0\0\0", 6));
    flood(peer, QByteArray("\x00\x80\0\0\0\0", 6));
    QTRY_COMPARE_WITH_TIMEOUT(left.count(), 1, patience);
    QVERIFY(left.first().at(1).toString().contains(QStringLiteral("empty frames")));
    QTRY_COMPARE_WITH_TIMEOUT(peer.socket.state(), QAbstractSocket::UnconnectedState, patience);
}

void EndpointFloodTest::a_request_without_end_is_cut_off()
{
    Limits limits = ampleLimits();
    limits.handshakeDeadline = 1h;
    const Scene scene(limits);
    QVERIFY(scene.isListening);
    LazyPeer peer(scene, "GET / HTTP/1.1\r\nX: ");
    QTRY_COMPARE_WITH_TIMEOUT(peer.socket.state(), QAbstractSocket::ConnectedState, patience);
    peer.socket.setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 10000);
    qint64 sent = 0;
    connect(&peer.socket, &QTcpSocket::bytesWritten, this,
            [&sent](qint64 bytes) { sent += bytes; });
    flood(peer, QByteArray(1000, 'x'));
    QTRY_COMPARE_WITH_TIMEOUT(peer.socket.state(), QAbstractSocket::UnconnectedState, patience);
    QVERIFY2(sent < 1000000, qPrintable(QString::number(sent)));
}

void EndpointFloodTest::a_client_over_the_rate_is_told_and_closed_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("messages") << 30 << 20000 << QByteArray("more than 500 messages a second");
    QTest::newRow("bytes") << 60000 << 100 << QByteArray("more than 262144 bytes a second");
}

void EndpointFloodTest::a_client_over_the_rate_is_told_and_closed()
{
    QFETCH(int, size);
    QFETCH(int, count);
    QFETCH(QByteArray, reason);
    Scene scene{ampleLimits()};
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    LazyPeer peer(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    // It goes on sending for a while after it was closed, and only then reads why.
    const QByteArray frame =
        LazyPeer::frame(QByteArray(R"({"op":"status","msg":""})").leftJustified(size));
    for (int i = 0; i < count; ++i)
        peer.socket.write(frame);
    peer.beginToRead();
    QTRY_VERIFY_WITH_TIMEOUT(peer.hasReceived(reason + "\"}"), patience); // in a status message
    QVERIFY(peer.hasReceived("{\"op\":\"status\""));
    QTRY_VERIFY_WITH_TIMEOUT(peer.hasReceived(closeFrame(1008) + reason), patience);
}

void EndpointFloodTest::a_frame_that_is_not_masked_is_a_violation()
{
    Scene scene{ampleLimits()};
    QVERIFY(scene.isListening);
    LazyPeer peer(scene);
    peer.beginToRead();
    peer.socket.write(QByteArray("\x81\x02{}", 4));
    QTRY_VERIFY_WITH_TIMEOUT(peer.hasReceived(closeFrame(1002)), patience);
}

void EndpointFloodTest::clients_are_answered_by_turns()
{
    constexpr int clients = 15;
    Scene scene{ampleLimits()};
    QVERIFY(scene.isListening);
    int answers = 0; // since the timer had its turn
    int most = 0;
    int all = 0;
    scene.services.add(
        QStringLiteral("/slow"),
        {QStringLiteral("test/Slow"), {}, Access::Anyone, [&](const Peer&, const QCborMap&) {
             QElapsedTimer time;
             time.start();
             while (time.elapsed() < 20) {
             }
             ++all;
             most = std::max(most, ++answers);
             return ServiceReply{{}, QString()};
         }});
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    std::vector<std::unique_ptr<LazyPeer>> peers;
    for (int i = 0; i < clients; ++i)
        peers.push_back(std::make_unique<LazyPeer>(scene));
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), clients, patience);

    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&answers] { answers = 0; });
    timer.start(1);
    for (const auto& peer : peers) { // all at once, before the endpoint sees any
        peer->send(R"({"op": "call_service", "service": "/slow"})");
        QVERIFY(peer->socket.flush());
    }
    QTRY_COMPARE_WITH_TIMEOUT(all, clients, patience);
    QVERIFY2(most <= 2, qPrintable(QString::number(most)));
}

void EndpointFloodTest::whatever_a_peer_sends_is_a_sign_of_life()
{
    Limits limits = ampleLimits();
    limits.pingInterval = 50ms;
    limits.peerDeadline = 1s;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy left(&scene.endpoint, &Endpoint::left);
    LazyPeer peer(scene);
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    const QByteArray frame = LazyPeer::frame(QByteArray(R"({"op":"status"})").leftJustified(200));
    QElapsedTimer time;
    time.start();
    for (int sent = 0; time.elapsed() < 2500; ++sent) { // one byte now and then, and no pong
        peer.socket.write(frame.mid(sent % int(frame.size()), 1));
        QTest::qWait(20);
    }
    QCOMPARE(left.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(left.count(), 1, patience);
}

void EndpointFloodTest::no_more_connections_than_there_may_be_are_kept()
{
    Limits limits = ampleLimits();
    limits.clients = 1;
    limits.handshakeDeadline = 300ms;
    Scene scene(limits);
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    std::vector<std::unique_ptr<LazyPeer>> silent;
    for (int i = 0; i < 40; ++i)
        silent.push_back(std::make_unique<LazyPeer>(scene, "GET"));
    const LazyPeer peer(scene); // has to wait until others gave up
    const auto kept = [&scene] { return int(scene.endpoint.findChildren<QTcpSocket*>().size()); };
    int most = 0;
    QTRY_VERIFY_WITH_TIMEOUT((most = std::max(most, kept()), joined.count() == 1), patience);
    QVERIFY2(most <= 17, qPrintable(QString::number(most)));
}

void EndpointFloodTest::without_file_descriptors_it_waits_and_says_so_once()
{
    Scene scene{ampleLimits()};
    QVERIFY(scene.isListening);
    QSignalSpy joined(&scene.endpoint, &Endpoint::joined);
    QSignalSpy failed(&scene.endpoint, &Endpoint::acceptFailed);
    const LazyPeer first(scene); // as it goes on while there are clients
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 1, patience);
    std::vector<std::unique_ptr<LazyPeer>> peers;
    for (int i = 0; i < 5; ++i) {
        peers.push_back(std::make_unique<LazyPeer>(scene));
        QVERIFY(peers.back()->socket.waitForConnected(patience)); // before it is accepted
    }
    {
        const FileLimit limit;
        const int next = ::dup(0); // the lowest that is free
        QVERIFY(next >= 0 && ::close(next) == 0 && limit.set(static_cast<rlim_t>(next)));
        const std::clock_t begin = std::clock();
        QElapsedTimer time;
        time.start();
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, patience);
        QTRY_VERIFY_WITH_TIMEOUT(time.elapsed() > 2500, patience); // tried again twice
        const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
        QVERIFY2(seconds < 1.0, qPrintable(QString::number(seconds)));
        QCOMPARE(failed.count(), 1);
        QCOMPARE(joined.count(), 1);
    }
    QTRY_COMPARE_WITH_TIMEOUT(joined.count(), 6, patience);
}

TEST_WITHOUT_WINDOWS(EndpointFloodTest)

} // namespace endpoint_flood_test

#include "EndpointFloodTest.moc"
