// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RawLink.h"
#include "RawPeer.h"
#include "TestCase.h"
#include "Witness.h"

#include <QtTest>

namespace client_refusal_test {

using rosbridge::client::Client;

/// Client and servers that are there, but do not want it: that is told apart from the network's
/// faults, with what to do.
class ClientRefusalTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_http_says_is_told_with_a_remedy_data();
    void what_http_says_is_told_with_a_remedy();
    void a_server_that_wants_authentication_is_told_apart_data();
    void a_server_that_wants_authentication_is_told_apart();
    void a_server_that_has_said_something_is_lost_as_any();
};

void ClientRefusalTest::what_http_says_is_told_with_a_remedy_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("remedy");
    QTest::newRow("password") << QByteArray("401 Unauthorized\r\nWWW-Authenticate: Basic "
                                            "realm=\"robot\"")
                              << "wants a user name and a password (\"401 Unauthorized\")"
                              << "This program cannot log in";
    QTest::newRow("password of a proxy")
        << QByteArray("407 Proxy Authentication Required") << "wants a user name and a password"
        << "This program cannot log in";
    QTest::newRow("forbidden") << QByteArray("403 Forbidden")
                               << "does not let this computer in (\"403 Forbidden\")"
                               << "Change on the server who may connect";
    QTest::newRow("not found") << QByteArray("404 Not Found")
                               << "no robot at this path (\"404 Not Found\")"
                               << "Check the port in the address, and the path after it";
    for (const char* code : {"301", "302", "303", "307", "308"})
        QTest::newRow(code) << code + QByteArray(" Elsewhere\r\nLocation: https://other/rosbridge")
                            << "refers to another address, \"https://other/rosbridge\""
                            << "enter it, beginning with ws:// or wss://";
    QTest::newRow("bad gateway") << QByteArray("502 Bad Gateway")
                                 << "it answers \"502 Bad Gateway\""
                                 << "Check whether the port is the robot's";
    QTest::newRow("endless") << "404 " + QByteArray(5000, 'x') << "404 xxx"
                             << "Check the port in the address, and the path after it";
}

void ClientRefusalTest::what_http_says_is_told_with_a_remedy()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, part);
    QFETCH(QString, remedy);

    const RawPeer peer;
    Client client(noHurry());
    Witness witness(client);
    client.open(peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(peer.socket && peer.socket->bytesAvailable(), patience);
    peer.socket->write("HTTP/1.1 " + answer + "\r\n\r\n");
    QTRY_COMPARE_WITH_TIMEOUT(witness.events, QStringList("ProtocolError"), patience);
    QVERIFY2(witness.text.startsWith(peer.address().toString()), qPrintable(witness.text));
    QVERIFY2(witness.text.contains(part), qPrintable(witness.text));
    QVERIFY2(witness.text.contains(remedy), qPrintable(witness.text));
    QVERIFY(witness.text.size() < 600);
}

void ClientRefusalTest::a_server_that_wants_authentication_is_told_apart_data()
{
    QTest::addColumn<QByteArray>("close");
    QTest::newRow("without a code") << QByteArray("\x88\x00", 2);
    QTest::newRow("normal") << QByteArray("\x88\x02\x03\xe8", 4);
    QTest::newRow("policy") << QByteArray("\x88\x02\x03\xf0", 4);
}

void ClientRefusalTest::a_server_that_wants_authentication_is_told_apart()
{
    // rosbridge closes the link at the first message that is not "auth", and says nothing.
    QFETCH(QByteArray, close);
    RawLink link;
    QVERIFY(link.client.publish("/any", {}));
    QTRY_VERIFY_WITH_TIMEOUT(link.peer.socket->bytesAvailable(), patience);
    link.peer.socket->write(close);
    QTRY_COMPARE_WITH_TIMEOUT(link.witness.events, QStringList({"opened", "Lost"}), patience);
    QVERIFY2(
        link.witness.text.contains("may want authentication (the operation \"auth\"). This program "
                                   "cannot log in"),
        qPrintable(link.witness.text));
}

void ClientRefusalTest::a_server_that_has_said_something_is_lost_as_any()
{
    RawLink link;
    QVERIFY(!link.client.hasHeard());
    link.peer.socket->write(QByteArray("\x81\x02{}\x88\x00", 6));
    QTRY_COMPARE_WITH_TIMEOUT(link.witness.events, QStringList({"opened", "Lost"}), patience);
    QVERIFY2(link.witness.text.contains(" is lost: "), qPrintable(link.witness.text));
    QVERIFY(link.client.hasHeard());
}

TEST_WITHOUT_WINDOWS(ClientRefusalTest)

} // namespace client_refusal_test

#include "ClientRefusalTest.moc"
