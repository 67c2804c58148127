#include "Peer.h"
#include "TestCase.h"

#include <QCborArray>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <memory>

namespace client_test {

using namespace rosbridge::client;
using namespace rosbridge::protocol;
using namespace std::chrono_literals;

namespace {

QString text(const QCborMap& message, const char* field)
{
    return message.value(QLatin1String(field)).toString();
}

QCborMap response(const QString& id, bool result, const QCborValue& values)
{
    return {{QStringLiteral("op"), QStringLiteral("service_response")},
            {QStringLiteral("id"), id},
            {QStringLiteral("result"), result},
            {QStringLiteral("values"), values}};
}

QCborMap publication(const QString& topic, const QCborMap& msg)
{
    return {{QStringLiteral("op"), QStringLiteral("publish")},
            {QStringLiteral("topic"), topic},
            {QStringLiteral("msg"), msg}};
}

QCborMap number(int value)
{
    return {{QStringLiteral("data"), value}};
}

/// A client whose link to a peer is open.
class Link
{
public:
    Link()
    {
        client->open(peer.address());
        QTRY_VERIFY_WITH_TIMEOUT(peer.socket() && client->state() == Client::State::Open, patience);
    }

    /// The next message that the peer got; empty if none comes.
    QCborMap next()
    {
        const bool isThere =
            QTest::qWaitFor([this] { return peer.messages().size() > m_read; }, patience);
        return isThere ? peer.messages().at(m_read++) : QCborMap();
    }

    /// Returns when all that either end has sent so far has reached the other.
    void settle()
    {
        bool isAnswered = false;
        client->callService(
            "settle", {}, [&](const Client::Result&) { isAnswered = true; }, 30s);
        QString id;
        while (id.isEmpty()) {
            const QCborMap message = next();
            QVERIFY(!message.isEmpty());
            if (text(message, "service") == "/settle")
                id = text(message, "id");
        }
        peer.send(response(id, true, QCborMap()));
        QTRY_VERIFY_WITH_TIMEOUT(isAnswered, patience);
    }

    /// Returns when a call made now has run into its timeout.
    void waitForTimeout(std::chrono::milliseconds timeout)
    {
        bool isOver = false;
        client->callService(
            "never", {}, [&](const Client::Result&) { isOver = true; }, timeout);
        QTRY_VERIFY_WITH_TIMEOUT(isOver, patience);
    }

    Peer peer;
    std::unique_ptr<Client> client = std::make_unique<Client>(noHurry());

private:
    int m_read = 0;
};

} // namespace

/// What goes over a Client's open link: services, topics, status, and what is not understood.
class ClientTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_call_is_sent_and_answered_with_its_values();
    void answers_find_their_call_in_any_order();
    void a_failed_call_says_why();
    void a_call_without_answer_fails_at_its_timeout_and_only_then();
    void a_call_without_link_fails_later_and_once();
    void a_lost_link_answers_every_pending_call_once();
    void a_close_answers_every_pending_call_once();
    void a_deleted_client_answers_nothing();
    void a_callback_may_call_again();
    void a_callback_may_close_the_link();
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
    void a_delay_holds_answers_back_and_nothing_else();
    void a_delayed_handshake_opens_no_link_that_was_closed();
};

void ClientTest::a_call_is_sent_and_answered_with_its_values()
{
    Link link;
    QVector<Client::Result> results;
    link.client->callService(
        "arm/move", number(7), [&](const Client::Result& result) { results.append(result); }, 30s);
    const QCborMap call = link.next();
    QCOMPARE(text(call, "op"), QStringLiteral("call_service"));
    QCOMPARE(text(call, "service"), QStringLiteral("/arm/move"));
    QVERIFY(call.value(QLatin1String("args")).toMap() == number(7));

    link.peer.send(response(text(call, "id"), true, number(8)));
    QTRY_COMPARE_WITH_TIMEOUT(results.size(), 1, patience);
    QVERIFY(results.first().ok);
    QVERIFY(results.first().values == number(8));
    QCOMPARE(results.first().error, QString());

    link.peer.send(response(text(call, "id"), true, number(9))); // nobody waits for it any more
    link.settle();
    QCOMPARE(results.size(), 1);
}

void ClientTest::answers_find_their_call_in_any_order()
{
    Link link;
    QStringList answers;
    for (int i = 0; i < 3; ++i)
        link.client->callService(
            "count", number(i),
            [&answers, i](const Client::Result& result) {
                const int value = int(result.values.value(QLatin1String("data")).toInteger());
                answers.append(QStringLiteral("%1=%2").arg(i).arg(value));
            },
            30s);
    const QString first = text(link.next(), "id");
    const QString second = text(link.next(), "id");
    const QString third = text(link.next(), "id");
    link.peer.send(response(third, true, number(2)));
    link.peer.send(response("someone else's", true, number(3)));
    link.peer.send(response(first, true, number(0)));
    link.peer.send(response(second, true, number(1)));
    QTRY_COMPARE_WITH_TIMEOUT(answers, QStringList({"2=2", "0=0", "1=1"}), patience);
}

void ClientTest::a_failed_call_says_why()
{
    Link link;
    QStringList errors;
    const auto callback = [&](const Client::Result& result) {
        errors.append(result.ok ? QStringLiteral("ok") : result.error);
    };
    link.client->callService("one", {}, callback, 30s);
    link.peer.send(response(text(link.next(), "id"), false, "no such service"));
    link.client->callService("two", {}, callback, 30s);
    link.peer.send(response(text(link.next(), "id"), false, QCborMap()));
    QTRY_COMPARE_WITH_TIMEOUT(errors,
                              QStringList({"The service one failed: no such service",
                                           "The service two failed and did not say why."}),
                              patience);
}

void ClientTest::a_call_without_answer_fails_at_its_timeout_and_only_then()
{
    Link link;
    QVector<Client::Result> results;
    link.client->callService(
        "slow", {}, [&](const Client::Result& result) { results.append(result); }, 100ms);
    const QString id = text(link.next(), "id");
    QTRY_COMPARE_WITH_TIMEOUT(results.size(), 1, patience);
    QVERIFY(!results.first().ok);
    QCOMPARE(results.first().error,
             QStringLiteral("The service slow did not answer within 0.1 s."));

    link.peer.send(response(id, true, QCborMap()));
    link.settle();
    QCOMPARE(results.size(), 1);
    QCOMPARE(link.client->state(), Client::State::Open);
}

void ClientTest::a_call_without_link_fails_later_and_once()
{
    Client client(noHurry());
    QVector<Client::Result> results;
    client.callService(
        "any", {}, [&](const Client::Result& result) { results.append(result); }, 1ms);
    QVERIFY(results.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(results.size(), 1, patience);
    QVERIFY(!results.first().ok);
    QCOMPARE(results.first().error,
             QStringLiteral("The service any was not called: there is no link."));
}

void ClientTest::a_lost_link_answers_every_pending_call_once()
{
    Link link;
    QVector<Client::Result> results;
    for (int i = 0; i < 3; ++i)
        link.client->callService(
            "any", {}, [&](const Client::Result& result) { results.append(result); }, 1s);
    link.next();
    link.peer.socket()->abort();
    QTRY_COMPARE_WITH_TIMEOUT(results.size(), 3, patience);
    for (const Client::Result& result : std::as_const(results)) {
        QVERIFY(!result.ok);
        QVERIFY2(result.error.startsWith("The service any did not answer: The link to "),
                 qPrintable(result.error));
    }
    // Nor does their own timeout answer again: that of a later call is over after theirs.
    Link another;
    another.waitForTimeout(1s);
    QCOMPARE(results.size(), 3);
}

void ClientTest::a_close_answers_every_pending_call_once()
{
    Link link;
    QStringList events;
    connect(link.client.get(), &Client::closed, this, [&] { events.append("closed"); });
    for (int i = 0; i < 2; ++i)
        link.client->callService(
            "any", {},
            [&](const Client::Result& result) { events.append(result.ok ? "ok" : "failed"); }, 30s);
    link.client->close();
    QCOMPARE(events, QStringList({"closed", "failed", "failed"}));
}

void ClientTest::a_deleted_client_answers_nothing()
{
    Link link;
    int answers = 0;
    link.client->callService(
        "any", {}, [&](const Client::Result&) { ++answers; }, 10ms);
    auto* const deleted = new Client(noHurry());
    deleted->callService(
        "any", {}, [&](const Client::Result&) { ++answers; }, 10ms);
    delete deleted;
    link.client.reset();
    Link another;
    another.waitForTimeout(10ms);
    QCOMPARE(answers, 0);
}

void ClientTest::a_callback_may_call_again()
{
    Link link;
    QStringList errors;
    link.client->callService(
        "first", {},
        [&](const Client::Result&) {
            link.client->callService(
                "second", {}, [&](const Client::Result& result) { errors.append(result.error); },
                30s);
        },
        30s);
    link.client->close(); // answers the first, whose callback makes the second
    QCOMPARE(errors, QStringList());
    QTRY_COMPARE_WITH_TIMEOUT(
        errors, QStringList("The service second was not called: there is no link."), patience);
}

void ClientTest::a_callback_may_close_the_link()
{
    Link link;
    QStringList errors;
    const auto callback = [&](const Client::Result& result) {
        errors.append(result.error);
        link.client->close();
    };
    link.client->callService("first", {}, callback, 30s);
    link.client->callService("second", {}, callback, 30s);
    link.peer.send(response(text(link.next(), "id"), true, QCborMap()));
    QTRY_COMPARE_WITH_TIMEOUT(errors.size(), 2, patience);
    QCOMPARE(errors.first(), QString());
    QVERIFY2(errors.last().contains("was closed on request"), qPrintable(errors.last()));
}

void ClientTest::topics_are_advertised_published_and_unadvertised()
{
    Link link;
    QVERIFY(link.client->advertise("cmd_vel", "geometry_msgs/Twist"));
    QVERIFY(link.client->publish("/cmd_vel", number(1)));
    QVERIFY(link.client->unadvertise("cmd_vel"));

    const QCborMap advertise = link.next();
    QCOMPARE(text(advertise, "op"), QStringLiteral("advertise"));
    QCOMPARE(text(advertise, "topic"), QStringLiteral("/cmd_vel"));
    QCOMPARE(text(advertise, "type"), QStringLiteral("geometry_msgs/Twist"));
    const QCborMap publish = link.next();
    QCOMPARE(text(publish, "op"), QStringLiteral("publish"));
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
    text(R"({"op":"fragment"})", "the op \"fragment\" is not one for a client");
    text(R"({"op":"call_service"})", "the op \"call_service\" is not one for a client");
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
    QTest::newRow("binary") << QByteArray("\xff") << true
                            << "an end that nothing waits for, at byte 1";
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

void ClientTest::a_delay_holds_answers_back_and_nothing_else()
{
    Link link;
    QStringList heard;
    link.client->subscribe("/t", "std_msgs/Int32", {},
                           [&](const QCborMap&) { heard << "message"; });
    link.next();
    link.client->setDelay(100ms);
    QElapsedTimer clock;
    clock.start();
    link.client->callService(
        "/s", {}, [&](const Client::Result&) { heard << "answer"; }, 30s);
    link.peer.send(response(text(link.next(), "id"), true, QCborMap()));
    link.peer.send(publication("/t", number(1)));
    QTRY_COMPARE_WITH_TIMEOUT(heard, QStringList({"message", "answer"}), patience);
    QVERIFY2(clock.elapsed() >= 90, qPrintable(QString::number(clock.elapsed()))); // coarse timers
}

void ClientTest::a_delayed_handshake_opens_no_link_that_was_closed()
{
    const Peer peer;
    Client client(noHurry());
    const QSignalSpy opened(&client, &Client::opened);
    client.setDelay(50ms);
    client.open(peer.address());
    const auto* const socket = client.findChild<QWebSocket*>();
    QTRY_COMPARE_WITH_TIMEOUT(socket->state(), QAbstractSocket::ConnectedState, patience);
    client.setDelay(1h);
    client.open(peer.address());
    bool isOver = false; // for the first handshake too
    QTimer::singleShot(70, this, [&] { isOver = true; });
    QTRY_VERIFY_WITH_TIMEOUT(isOver, patience);
    QCOMPARE(opened.size(), 0);
    QCOMPARE(client.state(), Client::State::Connecting);
}

TEST_WITHOUT_WINDOWS(ClientTest)

} // namespace client_test

#include "ClientTest.moc"
