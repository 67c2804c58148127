// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Link.h"
#include "TestCase.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <limits>

namespace client_test {

using namespace rosbridge::client;
using namespace rosbridge::protocol;
using namespace std::chrono_literals;

/// What goes over a Client's open link besides calls: topics, status, and what is not understood.
class ClientTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void topics_are_advertised_published_and_unadvertised();
    void nothing_is_sent_without_link();
    void a_subscription_carries_its_options();
    void messages_reach_every_handler_of_their_topic();
    void binary_messages_carry_what_json_cannot();
    void an_ended_subscription_hears_nothing();
    void a_handler_may_unsubscribe_itself_and_others();
    void a_new_link_has_no_subscriptions();
    void status_is_passed_on();
    void what_was_wrong_with_a_call_is_told_by_its_answer_alone();
    void a_message_that_is_not_understood_is_reported_and_ignored_data();
    void a_message_that_is_not_understood_is_reported_and_ignored();
    void the_owner_may_delete_the_client_inside_callbacks();
};

void ClientTest::topics_are_advertised_published_and_unadvertised()
{
    Link link;
    QVERIFY(link.client->advertise("cmd_vel", "geometry_msgs/Twist"));
    QVERIFY(link.client->publish("/cmd_vel", number(1)));
    QVERIFY(link.client->unadvertise("cmd_vel"));

    const QCborMap advertise = link.next();
    QCOMPARE(text(advertise, "op"), QStringLiteral("advertise"));
    QCOMPARE(text(advertise, "id"), QStringLiteral("/cmd_vel"));
    QCOMPARE(text(advertise, "topic"), QStringLiteral("/cmd_vel"));
    QCOMPARE(text(advertise, "type"), QStringLiteral("geometry_msgs/Twist"));
    const QCborMap publish = link.next();
    QCOMPARE(text(publish, "op"), QStringLiteral("publish"));
    QCOMPARE(text(publish, "id"), QStringLiteral("/cmd_vel"));
    QCOMPARE(text(publish, "topic"), QStringLiteral("/cmd_vel"));
    QVERIFY(publish.value(QLatin1String("msg")).toMap() == number(1));
    const QCborMap unadvertise = link.next();
    QCOMPARE(text(unadvertise, "op"), QStringLiteral("unadvertise"));
    QCOMPARE(text(unadvertise, "topic"), QStringLiteral("/cmd_vel"));
}

void ClientTest::nothing_is_sent_without_link()
{
    Client client(noHurry());
    QVERIFY(!client.advertise("a", "b"));
    QVERIFY(!client.publish("a", {}));
    QVERIFY(!client.unadvertise("a"));
    QCOMPARE(client.subscribe("a", "b", {}, [](const QCborMap&) {}), QString());
    client.unsubscribe("a");

    const Peer peer;
    client.open(peer.address()); // connecting is not yet open
    QVERIFY(!client.publish("a", {}));
}

void ClientTest::a_subscription_carries_its_options()
{
    Link link;
    const auto ignore = [](const QCborMap&) {};
    const QString id = link.client->subscribe("scan", "sensor_msgs/LaserScan",
                                              {50ms, 2, Client::Compression::Cbor}, ignore);
    const QCborMap subscribe = link.next();
    QCOMPARE(text(subscribe, "op"), QStringLiteral("subscribe"));
    QCOMPARE(text(subscribe, "id"), id);
    QCOMPARE(text(subscribe, "topic"), QStringLiteral("/scan"));
    QCOMPARE(text(subscribe, "type"), QStringLiteral("sensor_msgs/LaserScan"));
    QCOMPARE(subscribe.value(QLatin1String("throttle_rate")).toInteger(), 50);
    QCOMPARE(subscribe.value(QLatin1String("queue_length")).toInteger(), 2);
    QCOMPARE(text(subscribe, "compression"), QStringLiteral("cbor"));

    QVERIFY(id != link.client->subscribe("/scan", "sensor_msgs/LaserScan", {}, ignore));
    const QCborMap plain = link.next();
    QCOMPARE(plain.value(QLatin1String("throttle_rate")).toInteger(-1), 0);
    QCOMPARE(plain.value(QLatin1String("queue_length")).toInteger(-1), 0);
    QCOMPARE(text(plain, "compression"), QStringLiteral("none"));

    link.client->unsubscribe(id);
    const QCborMap unsubscribe = link.next();
    QCOMPARE(text(unsubscribe, "op"), QStringLiteral("unsubscribe"));
    QCOMPARE(text(unsubscribe, "id"), id);
    QCOMPARE(text(unsubscribe, "topic"), QStringLiteral("/scan"));
}

void ClientTest::messages_reach_every_handler_of_their_topic()
{
    Link link;
    QStringList heard;
    for (const char* topic : {"scan", "/scan", "pose"})
        link.client->subscribe(topic, "any", {}, [&heard, topic](const QCborMap& msg) {
            const int value = int(msg.value(QLatin1String("data")).toInteger());
            heard.append(QStringLiteral("%1=%2").arg(topic).arg(value));
        });
    link.peer.send(publication("/pose", number(1)));
    link.peer.send(publication("scan", number(2)));
    link.peer.send(publication("other", number(3)));
    link.settle();
    heard.sort();
    QCOMPARE(heard, QStringList({"/scan=2", "pose=1", "scan=2"}));
}

void ClientTest::binary_messages_carry_what_json_cannot()
{
    Link link;
    std::optional<QVector<float>> ranges;
    link.client->subscribe("scan", "sensor_msgs/LaserScan", {0ms, 0, Client::Compression::Cbor},
                           [&](const QCborMap& msg) {
                               ranges = toFloats(msg.value(QLatin1String("ranges")), nullptr);
                           });
    const float infinity = std::numeric_limits<float>::infinity();
    const QCborMap scan{{QStringLiteral("ranges"), typedArray({1.5F, infinity})}};
    link.peer.sendBinary(encodeBinary(publication("/scan", scan)));
    QTRY_VERIFY_WITH_TIMEOUT(ranges, patience);
    QCOMPARE(*ranges, QVector<float>({1.5F, infinity}));

    link.peer.send(publication("/scan", scan));
    QTRY_VERIFY_WITH_TIMEOUT(std::isnan(ranges->last()), patience);
    QCOMPARE(ranges->size(), 2);
}

void ClientTest::an_ended_subscription_hears_nothing()
{
    Link link;
    int ended = 0;
    int kept = 0;
    const QString id = link.client->subscribe("scan", "any", {}, [&](const QCborMap&) { ++ended; });
    link.client->subscribe("scan", "any", {}, [&](const QCborMap&) { ++kept; });
    link.client->unsubscribe(id);
    link.client->unsubscribe(id);
    link.client->unsubscribe("unknown");
    link.peer.send(publication("/scan", number(1)));
    link.settle();
    QCOMPARE(ended, 0);
    QCOMPARE(kept, 1);
    int unsubscribes = 0;
    for (const QCborMap& message : link.peer.messages())
        unsubscribes += text(message, "op") == "unsubscribe" ? 1 : 0;
    QCOMPARE(unsubscribes, 1);
}

void ClientTest::a_handler_may_unsubscribe_itself_and_others()
{
    Link link;
    QStringList ids;
    int heard = 0;
    const auto handler = [&, owned = QString("kept alive while it runs")](const QCborMap&) {
        for (const QString& id : std::as_const(ids))
            link.client->unsubscribe(id);
        heard += owned.isEmpty() ? 0 : 1;
    };
    ids.append(link.client->subscribe("scan", "any", {}, handler));
    ids.append(link.client->subscribe("scan", "any", {}, handler));
    link.peer.send(publication("/scan", number(1)));
    link.peer.send(publication("/scan", number(2)));
    link.settle();
    QCOMPARE(heard, 1);
}

void ClientTest::a_new_link_has_no_subscriptions()
{
    Link link;
    int heard = 0;
    link.client->subscribe("scan", "any", {}, [&](const QCborMap&) { ++heard; });
    link.settle();
    const auto before = link.peer.messages().size();
    link.client->close();
    QWebSocket* const old = link.peer.socket();
    link.client->open(link.peer.address());
    QTRY_VERIFY_WITH_TIMEOUT(
        link.client->state() == Client::State::Open && link.peer.socket() != old, patience);
    link.peer.send(publication("/scan", number(1)));
    link.settle();
    QCOMPARE(heard, 0);
    QCOMPARE(link.peer.messages().size(), before + 1); // settle()'s own call
}

void ClientTest::status_is_passed_on()
{
    Link link;
    QSignalSpy status(link.client.get(), &Client::statusReceived);
    link.peer.sendText(R"({"op":"status","level":"error","msg":"unknown topic","id":"a:1"})");
    QTRY_COMPARE_WITH_TIMEOUT(status.size(), 1, patience);
    QCOMPARE(status.first(), QVariantList({"error", "unknown topic", "a:1"}));
}

void ClientTest::what_was_wrong_with_a_call_is_told_by_its_answer_alone()
{
    Link link;
    QSignalSpy status(link.client.get(), &Client::statusReceived);
    QStringList errors;
    link.client->callService(
        "missing", {}, [&](const Client::Result& result) { errors << result.error; }, 30s);
    const QString id = text(link.next(), "id");
    const QCborMap words{{"op", "status"}, {"level", "error"}, {"msg", "no such"}, {"id", id}};
    link.peer.send(words);
    link.peer.send(response(id, false, "no such service"));
    link.peer.send(words); // nobody waits for it any more
    link.settle();
    QCOMPARE(errors, QStringList("The service missing failed: no such service"));
    QCOMPARE(int(status.size()), 1);
}

void ClientTest::a_message_that_is_not_understood_is_reported_and_ignored_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("isBinary");
    QTest::addColumn<QString>("report");

    const auto text = [](const char* json, const char* report) {
        QTest::newRow(json) << QByteArray(json) << false << report;
    };
    text("hello", "the text is not valid JSON: illegal value, at byte 1");
    text("[]", "the message is not a JSON object");
    text("{}", "the message has no text field \"op\"");
    text(R"({"op":"fragment"})", "the operation \"fragment\" is not for clients");
    text(R"({"op":"call_service"})", "the operation \"call_service\" is not for clients");
    const char* publish = "\"publish\" needs a text \"topic\" and an object \"msg\"";
    text(R"({"op":"publish"})", publish);
    text(R"({"op":"publish","topic":1,"msg":{}})", publish);
    text(R"({"op":"publish","topic":"/scan","msg":[]})", publish);
    const char* response =
        "\"service_response\" needs a text \"id\" and a true or false \"result\"";
    text(R"({"op":"service_response"})", response);
    text(R"({"op":"service_response","id":1,"result":true})", response);
    text(R"({"op":"service_response","id":"a","result":1})", response);
    const char* status = "\"status\" needs a text \"level\" and a text \"msg\"";
    text(R"({"op":"status","level":1,"msg":"a"})", status);
    text(R"({"op":"status","level":"error"})", status);
    QTest::newRow("binary") << QByteArray("\xff") << true << "an unexpected end marker, at byte 1";
    QTest::newRow("empty binary") << QByteArray("") << true << "the data ends too early, at byte 0";
}

void ClientTest::a_message_that_is_not_understood_is_reported_and_ignored()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, isBinary);
    QFETCH(QString, report);

    Link link;
    QSignalSpy malformed(link.client.get(), &Client::malformedReceived);
    int heard = 0;
    link.client->subscribe("scan", "any", {}, [&](const QCborMap&) { ++heard; });
    if (isBinary)
        link.peer.sendBinary(data);
    else
        link.peer.sendText(data);
    link.settle(); // the link goes on
    QCOMPARE(malformed.size(), 1);
    QCOMPARE(malformed.first().first().toString(), report);
    QCOMPARE(heard, 0);
}

void ClientTest::the_owner_may_delete_the_client_inside_callbacks()
{
    {
        Link link;
        int heard = 0;
        for (int i = 0; i < 2; ++i)
            link.client->subscribe("scan", "any", {}, [&](const QCborMap&) {
                ++heard;
                link.client.reset();
            });
        link.peer.send(publication("/scan", number(1)));
        QTRY_VERIFY_WITH_TIMEOUT(!link.client, patience);
        QCOMPARE(heard, 1);
    }
    {
        Link link;
        link.client->callService(
            "any", {}, [&](const Client::Result&) { link.client.reset(); }, 30s);
        link.peer.send(response(text(link.next(), "id"), true, QCborMap()));
        QTRY_VERIFY_WITH_TIMEOUT(!link.client, patience);
    }
    {
        Link link;
        link.client->callService(
            "any", {}, [&](const Client::Result&) { link.client.reset(); }, 1ms);
        QTRY_VERIFY_WITH_TIMEOUT(!link.client, patience);
    }
    {
        Link link;
        int answers = 0;
        for (int i = 0; i < 2; ++i)
            link.client->callService(
                "any", {},
                [&](const Client::Result&) {
                    ++answers;
                    link.client.reset();
                },
                30s);
        link.client->close();
        QVERIFY(!link.client);
        QCOMPARE(answers, 1);
    }
    {
        Link link;
        connect(link.client.get(), &Client::statusReceived, this, [&] { link.client.reset(); });
        link.peer.sendText(R"({"op":"status","level":"info","msg":""})");
        QTRY_VERIFY_WITH_TIMEOUT(!link.client, patience);
    }
    {
        Link link;
        connect(link.client.get(), &Client::malformedReceived, this, [&] { link.client.reset(); });
        link.peer.sendText("x");
        QTRY_VERIFY_WITH_TIMEOUT(!link.client, patience);
    }
}

TEST_WITHOUT_WINDOWS(ClientTest)

} // namespace client_test

#include "ClientTest.moc"
