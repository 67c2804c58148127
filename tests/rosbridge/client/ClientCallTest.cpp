// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Link.h"
#include "TestCase.h"

#include <QtTest>

namespace client_call_test {

using namespace rosbridge::client;
using namespace std::chrono_literals;

/// Service calls over a Client's link: each gets exactly one answer.
class ClientCallTest : public TestCase
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
};

void ClientCallTest::a_call_is_sent_and_answered_with_its_values()
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

void ClientCallTest::answers_find_their_call_in_any_order()
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

void ClientCallTest::a_failed_call_says_why()
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

void ClientCallTest::a_call_without_answer_fails_at_its_timeout_and_only_then()
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

void ClientCallTest::a_call_without_link_fails_later_and_once()
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

void ClientCallTest::a_lost_link_answers_every_pending_call_once()
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

void ClientCallTest::a_close_answers_every_pending_call_once()
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

void ClientCallTest::a_deleted_client_answers_nothing()
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

void ClientCallTest::a_callback_may_call_again()
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

void ClientCallTest::a_callback_may_close_the_link()
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

TEST_WITHOUT_WINDOWS(ClientCallTest)

} // namespace client_call_test

#include "ClientCallTest.moc"
