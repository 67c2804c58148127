// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RawPeer.h"
#include "TestCase.h"
#include "Witness.h"

#include "rosbridge/websocket/Trust.h"

#include <QtTest>

namespace client_security_test {

using rosbridge::client::Client;
using rosbridge::protocol::Address;

namespace {

/// Believes what a test says, and keeps what it was asked.
class TestTrust : public rosbridge::websocket::Trust
{
public:
    QList<QSslCertificate> authorities() const override { return believedAuthorities; }

    QString objection(const Address& server, const QSslCertificate& shown,
                      const QString& reason) override
    {
        asked << server.toString() + ": " + reason;
        return shown == believed ? QString() : QStringLiteral("Nobody knows it.");
    }

    QList<QSslCertificate> believedAuthorities;
    QSslCertificate believed;
    QStringList asked;
};

} // namespace

/// Client over TLS: whose certificate is believed, and what becomes of the rest.
class ClientSecurityTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_certificate_that_an_authority_vouches_for_is_believed();
    void a_certificate_that_cannot_be_verified_is_refused_unless_it_is_believed_data();
    void a_certificate_that_cannot_be_verified_is_refused_unless_it_is_believed();
    void without_anybody_to_ask_it_is_refused();
    void the_handshake_names_the_host_and_the_path();
    void the_usual_port_is_not_named();
    void a_large_message_arrives_whole_and_pings_are_answered();
    void a_server_that_does_not_encrypt_is_told_so();
    void a_server_that_only_encrypts_is_told_so();
    void a_server_that_closes_after_the_encryption_began_gave_no_answer();
};

void ClientSecurityTest::a_certificate_that_an_authority_vouches_for_is_believed()
{
    TestTrust trust;
    trust.believedAuthorities << certificate("authority.pem");
    RawPeer peer("issued.pem");
    Client client(noHurry());
    client.setTrust(&trust);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    QCOMPARE(trust.asked, QStringList());
}

void ClientSecurityTest::
    a_certificate_that_cannot_be_verified_is_refused_unless_it_is_believed_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("reason");
    QTest::newRow("self-signed") << "self-signed.pem"
                                 << "nobody but itself vouches for it";
    QTest::newRow("for another host") << "issued-elsewhere.pem"
                                      << "it was issued for another host";
    QTest::newRow("unknown authority") << "issued.pem"
                                       << "this computer does not know who issued it";
}

void ClientSecurityTest::a_certificate_that_cannot_be_verified_is_refused_unless_it_is_believed()
{
    QFETCH(QString, shown);
    TestTrust trust;
    if (shown == "issued-elsewhere.pem")
        trust.believedAuthorities << certificate("authority.pem");
    RawPeer peer(shown);
    Client client(noHurry());
    client.setTrust(&trust);
    Witness witness(client);

    client.open(peer.address());
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("Untrusted"), patience);
    const QString server = peer.address().toString();
    QVERIFY(server.startsWith("wss://"));
    QCOMPARE(witness.text, server + " was not connected to. Nobody knows it.");
    QTEST(trust.asked.value(0).mid(server.size() + 2), "reason");
    QCOMPARE(trust.asked.size(), 1);

    trust.believed = certificate(shown);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(qobject_cast<QSslSocket*>(peer.socket)->isEncrypted(), patience);
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
}

void ClientSecurityTest::without_anybody_to_ask_it_is_refused()
{
    const RawPeer peer("self-signed.pem");
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("Untrusted"), patience);
    QVERIFY2(witness.text.contains("cannot be verified: nobody but itself vouches for it"),
             qPrintable(witness.text));
}

void ClientSecurityTest::the_handshake_names_the_host_and_the_path()
{
    TestTrust trust;
    trust.believed = certificate("self-signed.pem");
    RawPeer peer("self-signed.pem");
    Client client(noHurry());
    client.setTrust(&trust);
    Address address = peer.address();
    address.host = "localhost";
    address.path = "/rosbridge?a=b";
    client.open(address);
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);
    QCOMPARE(peer.request.value(0), QByteArray("GET /rosbridge?a=b HTTP/1.1"));
    QVERIFY(peer.request.contains("Host: localhost:" + QByteArray::number(address.port)));
}

void ClientSecurityTest::the_usual_port_is_not_named()
{
    using rosbridge::websocket::request;
    const auto host = [](const Address& address) {
        return request(address, "key").split('\n').value(1).trimmed();
    };
    QCOMPARE(host({"robot", 443, true, {}}), QByteArray("Host: robot"));
    QCOMPARE(host({"robot", 80, true, {}}), QByteArray("Host: robot:80"));
    QCOMPARE(host({"robot", 80, false, {}}), QByteArray("Host: robot"));
    QCOMPARE(host({"::1", 9090, false, {}}), QByteArray("Host: [::1]:9090"));
    QCOMPARE(host({QString::fromUtf8("b\xc3\xbc.example"), 80, false, {}}),
             QByteArray("Host: xn--b-eha.example"));
}

void ClientSecurityTest::a_large_message_arrives_whole_and_pings_are_answered()
{
    TestTrust trust;
    trust.believed = certificate("self-signed.pem");
    RawPeer peer("self-signed.pem");
    Client client(noHurry());
    client.setTrust(&trust);
    client.open(peer.address());
    peer.shakeHands();
    QTRY_COMPARE_WITH_TIMEOUT(client.state(), Client::State::Open, patience);

    constexpr int size = 3000000; // many times what either end buffers
    QString received;
    client.subscribe("/text", "std_msgs/String", {}, [&received](const QCborMap& message) {
        received = message.value(QLatin1String("data")).toString();
    });
    using rosbridge::websocket::frame;
    using rosbridge::websocket::Opcode;
    using rosbridge::websocket::Role;
    const QByteArray text =
        R"({"op":"publish","topic":"/text","msg":{"data":")" + QByteArray(size, 'x') + R"("}})";
    peer.socket->write(frame(Opcode::Text, text, Role::Server));
    peer.socket->write(frame(Opcode::Ping, "here?", Role::Server));
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), size, patience);
    const int pong = 0x8a;
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket->peek(4096).contains(char(pong)), patience);
}

void ClientSecurityTest::a_server_that_does_not_encrypt_is_told_so()
{
    const RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    Address address = peer.address();
    address.isSecure = true;
    client.open(address);
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket && peer.socket->bytesAvailable(), patience);
    peer.socket->write("HTTP/1.1 400 Bad Request\r\n\r\n");
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
    QVERIFY2(witness.text.contains("write ws:// in place of wss://"), qPrintable(witness.text));
}

void ClientSecurityTest::a_server_that_only_encrypts_is_told_so()
{
    const RawPeer peer("self-signed.pem");
    Client client(noHurry());
    Witness witness(client);
    Address address = peer.address();
    address.isSecure = false;
    client.open(address);
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
    QVERIFY2(witness.text.contains("if it encrypts, write wss://"), qPrintable(witness.text));
}

void ClientSecurityTest::a_server_that_closes_after_the_encryption_began_gave_no_answer()
{
    TestTrust trust;
    trust.believed = certificate("self-signed.pem");
    const RawPeer peer("self-signed.pem");
    Client client(noHurry());
    client.setTrust(&trust);
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket && peer.socket->bytesAvailable(), patience);
    peer.socket->readAll();
    peer.socket->close();
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
    QVERIFY2(witness.text.contains("it closed the connection without an answer"),
             qPrintable(witness.text));
}

TEST_WITHOUT_WINDOWS(ClientSecurityTest)

} // namespace client_security_test

#include "ClientSecurityTest.moc"
