// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"

#include "host/device/faults/Faults.h"
#include "host/device/faults/FaultyClient.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace faulty_client_test {

using namespace std::chrono_literals;
using host::device::faults::Faults;
using host::device::faults::FaultyClient;
using rosbridge::client::Client;

namespace {

constexpr int patience = 60000;

/// A client whose link to a robot is open.
struct Link
{
    Link()
    {
        open();
        QTRY_COMPARE_WITH_TIMEOUT(client->state(), Client::State::Open, patience);
    }

    void open() const
    {
        client->open(*rosbridge::protocol::Address::parse(robot.address(), nullptr));
    }

    void call(const QString& word)
    {
        client->callService(
            "/service", {}, [this, word](const Client::Result&) { heard << word; }, 1h);
    }

    void subscribe(const QString& word)
    {
        client->subscribe("/" + word, "std_msgs/Empty", {},
                          [this, word](const QCborMap&) { heard << word; });
    }

    bool hears(const QStringList& words)
    {
        return QTest::qWaitFor([&] { return heard == words; }, patience);
    }

    FakeRobot robot;
    Faults faults;
    std::unique_ptr<FaultyClient> client = std::make_unique<FaultyClient>(noHurry().link, faults);
    QStringList heard;
};

} // namespace

/// The client end of a link, with faults on it, where only the link itself shows them.
class FaultyClientTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_delay_holds_answers_back_and_nothing_else();
    void a_delayed_handshake_opens_no_link_that_was_closed();
    void an_answer_that_waits_is_forgotten_with_its_link();
    void a_client_is_deleted_while_an_answer_waits();
};

void FaultyClientTest::a_delay_holds_answers_back_and_nothing_else()
{
    Link link;
    link.subscribe("message");
    link.faults.setDelay(100ms);
    QElapsedTimer clock;
    clock.start();
    link.call("answer");
    QTRY_COMPARE_WITH_TIMEOUT(link.robot.calls().size(), 1, patience);
    link.robot.publish("/message", {});
    QVERIFY(link.hears({"message", "answer"}));
    QVERIFY2(clock.elapsed() >= 90, qPrintable(QString::number(clock.elapsed()))); // coarse timers
}

void FaultyClientTest::a_delayed_handshake_opens_no_link_that_was_closed()
{
    Link link;
    const QSignalSpy opened(link.client.get(), &Client::opened);
    link.faults.setDelay(50ms);
    link.open();
    QTRY_VERIFY_WITH_TIMEOUT(link.client->findChild<rosbridge::websocket::Socket*>(), patience);
    link.faults.setDelay(1h);
    link.open();
    bool isOver = false; // for the first handshake too
    QTimer::singleShot(70, this, [&] { isOver = true; });
    QTRY_VERIFY_WITH_TIMEOUT(isOver, patience);
    QCOMPARE(opened.size(), 0);
    QCOMPARE(link.client->state(), Client::State::Connecting);
}

void FaultyClientTest::an_answer_that_waits_is_forgotten_with_its_link()
{
    Link link;
    const QSignalSpy malformed(link.client.get(), &Client::malformedReceived);
    link.subscribe("message");
    link.robot.send({{"op", "service_response"}}); // to nothing: taken, it is complained of
    QTRY_COMPARE_WITH_TIMEOUT(malformed.size(), 1, patience);
    link.faults.setDelay(100ms);
    link.robot.send({{"op", "service_response"}});
    link.robot.publish("/message", {}); // comes after it
    QVERIFY(link.hears({"message"}));
    link.client->close();

    Link witness; // its answer would come later
    witness.faults.setDelay(100ms);
    witness.call("answer");
    QVERIFY(witness.hears({"answer"}));
    QCOMPARE(malformed.size(), 1);
}

/// With the sanitizers, that is: without them what happens to a deleted client may go unseen.
void FaultyClientTest::a_client_is_deleted_while_an_answer_waits()
{
    Link link;
    link.subscribe("message");
    link.faults.setDelay(100ms);
    link.call("answer");
    QTRY_COMPARE_WITH_TIMEOUT(link.robot.calls().size(), 1, patience);
    link.robot.publish("/message", {}); // comes after the answer, which waits by now
    QVERIFY(link.hears({"message"}));
    link.client.reset();

    Link witness; // its answer would come later
    witness.faults.setDelay(100ms);
    witness.call("answer");
    QVERIFY(witness.hears({"answer"}));
    QCOMPARE(link.heard, QStringList("message"));
}

TEST_WITHOUT_WINDOWS(FaultyClientTest)

} // namespace faulty_client_test

#include "FaultyClientTest.moc"
