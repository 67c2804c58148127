// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "AmpleLimits.h"
#include "Controller.h"
#include "TestCase.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/server/Conversation.h"
#include "rosbridge/server/Publication.h"
#include "rosbridge/server/ServiceRegistry.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QJsonObject>
#include <QtTest>

namespace conversation_test {

using namespace std::chrono_literals;
using rosbridge::server::Access;
using rosbridge::server::Conversation;
using rosbridge::server::EncodedMessage;
using rosbridge::server::Limits;
using rosbridge::server::Outbox;
using rosbridge::server::Peer;
using rosbridge::server::Publication;
using rosbridge::server::ServiceRegistry;
using rosbridge::server::ServiceReply;
using rosbridge::server::TopicRegistry;

/// A robot without a socket: three topics, three commands and a service, and what it said.
class Scene
{
public:
    Scene()
    {
        topics.addPublished(QStringLiteral("/state"), QStringLiteral("test/State"));
        topics.addFleeting(QStringLiteral("/picture"), QStringLiteral("test/Picture"));
        topics.addLatched(QStringLiteral("/light"), QStringLiteral("test/Light"));
        for (const char* name : {"/drive", "/lift", "/turn"})
            topics.addCommand(QLatin1String(name), QStringLiteral("test/Command"),
                              Access::RequiresControl, [this](const Peer&, const QCborMap& msg) {
                                  obeyed.append(msg);
                                  return QString();
                              });
        services.add(QStringLiteral("/stop"), {QStringLiteral("test/Stop"),
                                               {},
                                               Access::RequiresControl,
                                               [this](const Peer&, const QCborMap& args) {
                                                   obeyed.append(args);
                                                   return ServiceReply();
                                               }});
    }

    Conversation conversation(const Peer& peer)
    {
        return Conversation(
            peer, topics, services, limits, [this](const EncodedMessage& frame, Outbox::Kind kind) {
                sent.append(
                    rosbridge::protocol::decodeText(frame.bytes, nullptr).value().toJsonObject());
                kinds.append(kind);
            });
    }

    /// The level of the status that @p message is answered with; empty if it is not.
    QString levelOfAnswer(Conversation& conversation, const QCborMap& message)
    {
        sent.clear();
        conversation.handle(message);
        return sent.isEmpty() ? QString() : sent.last().value(QLatin1String("level")).toString();
    }

    Limits limits = ampleLimits();
    Controller control;
    TopicRegistry topics{control};
    ServiceRegistry services{control};
    QVector<QJsonObject> sent;
    QVector<Outbox::Kind> kinds;
    QVector<QCborMap> obeyed;
};

/// Conversation: the protocol with one client, without a socket. What is the same over a socket
/// is tested there, by a client in another language; here are commands, which need a robot that
/// takes some, and time.
class ConversationTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_command_from_the_controller_is_obeyed_without_a_word();
    void a_command_from_a_watcher_is_refused_with_the_reason();
    void a_service_that_requires_control_fails_for_a_watcher_with_the_reason();
    void a_command_topic_needs_no_advertising();
    void a_command_topic_is_advertised_with_its_type_only();
    void advertised_topics_are_counted_once_and_bounded();
    void unadvertising_makes_room();
    void a_command_topic_cannot_be_subscribed();
    void messages_that_wait_are_sent_when_they_are_due();
    void the_earliest_subscription_is_due_first();
    void topics_and_answers_are_told_apart();
    void a_latched_message_comes_once_with_the_first_subscription();
    void a_latched_message_counts_for_the_throttle_rate();
    void a_subscribed_topic_is_known_under_either_name();
    void nothing_is_told_below_the_level();

private:
    using Map = QCborMap;

    static QCborValue text(const char* text) { return QLatin1String(text); }

    static Map setLevel(const char* level)
    {
        return {{text("op"), text("set_level")}, {text("level"), text(level)}};
    }

    static Map advertise(const QString& topic, const char* type)
    {
        return {
            {text("op"), text("advertise")}, {text("topic"), topic}, {text("type"), text(type)}};
    }

    static std::shared_ptr<const Publication> light(bool isOn)
    {
        return std::make_shared<const Publication>(QStringLiteral("/light"),
                                                   Map{{text("data"), isOn}});
    }

    static Map subscribe(const char* topic, int throttle, int queueLength)
    {
        return {{text("op"), text("subscribe")},
                {text("topic"), text(topic)},
                {text("throttle_rate"), throttle},
                {text("queue_length"), queueLength}};
    }

    const Peer m_first{1, QStringLiteral("client 1")};
    const Peer m_second{2, QStringLiteral("client 2")};
    const Map m_drive{{text("op"), text("publish")},
                      {text("topic"), text("drive")},
                      {text("id"), text("d")},
                      {text("msg"), Map{{text("speed"), 1}}}};
};

void ConversationTest::a_command_from_the_controller_is_obeyed_without_a_word()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    scene.control.acquire(m_first);
    first.handle(m_drive);
    QCOMPARE(scene.obeyed, (QVector<Map>{{{text("speed"), 1}}}));
    QVERIFY(scene.sent.isEmpty());
}

void ConversationTest::a_command_from_a_watcher_is_refused_with_the_reason()
{
    Scene scene;
    Conversation second = scene.conversation(m_second);
    scene.control.acquire(m_first);
    second.handle(m_drive);
    QVERIFY(scene.obeyed.isEmpty());
    QCOMPARE(scene.sent.size(), 1);
    QCOMPARE(scene.sent.first(),
             (Map{{text("op"), text("status")},
                  {text("level"), text("error")},
                  {text("msg"), QStringLiteral("publish: ") + scene.control.refusal(m_second)},
                  {text("id"), text("d")}}
                  .toJsonObject()));
}

void ConversationTest::a_service_that_requires_control_fails_for_a_watcher_with_the_reason()
{
    Scene scene;
    Conversation second = scene.conversation(m_second);
    const Map call{
        {text("op"), text("call_service")}, {text("service"), text("/stop")}, {text("id"), 4}};
    second.handle(call);
    QVERIFY(scene.obeyed.isEmpty());
    QCOMPARE(scene.sent.size(), 1);
    QCOMPARE(scene.sent.first(), (Map{{text("op"), text("service_response")},
                                      {text("service"), text("/stop")},
                                      {text("result"), false},
                                      {text("values"), scene.control.refusal(m_second)},
                                      {text("id"), 4}}
                                      .toJsonObject()));
    scene.control.acquire(m_second);
    second.handle(call);
    QCOMPARE(scene.obeyed.size(), 1);
    QVERIFY(scene.sent.last().value(QLatin1String("result")).toBool());
}

void ConversationTest::a_command_topic_needs_no_advertising()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    scene.control.acquire(m_first);
    first.handle(advertise(QStringLiteral("/drive"), "test/Command"));
    first.handle({{text("op"), text("unadvertise")}, {text("topic"), text("/drive")}});
    first.handle(m_drive);
    QCOMPARE(scene.obeyed.size(), 1);
}

void ConversationTest::a_command_topic_is_advertised_with_its_type_only()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    first.handle(setLevel("info"));
    const QString drive = QStringLiteral("/drive");
    QCOMPARE(scene.levelOfAnswer(first, advertise(drive, "test/Command")), QStringLiteral("info"));
    QCOMPARE(scene.levelOfAnswer(first, advertise(drive, "test/msg/Command")),
             QStringLiteral("info")); // as ROS 2 writes it
    QCOMPARE(scene.levelOfAnswer(first, advertise(drive, "test/Other")), QStringLiteral("error"));
    QCOMPARE(scene.levelOfAnswer(first, advertise(drive, "test/msg/Other")),
             QStringLiteral("error"));
    QCOMPARE(scene.levelOfAnswer(first, {{text("op"), text("advertise")}, {text("topic"), drive}}),
             QStringLiteral("error"));
    QCOMPARE(scene.levelOfAnswer(first, advertise(QStringLiteral("/state"), "test/State")),
             QStringLiteral("error"));
    QCOMPARE(scene.levelOfAnswer(first, advertise(QStringLiteral("/none"), "test/Command")),
             QStringLiteral("error"));
}

void ConversationTest::advertised_topics_are_counted_once_and_bounded()
{
    Scene scene;
    scene.limits.advertisements = 2;
    Conversation first = scene.conversation(m_first);
    first.handle(setLevel("info"));
    for (const char* name : {"/drive", "drive", "/lift", "/drive"})
        QCOMPARE(scene.levelOfAnswer(first, advertise(QLatin1String(name), "test/Command")),
                 QStringLiteral("info"));
    QCOMPARE(scene.levelOfAnswer(first, advertise(QStringLiteral("/turn"), "test/Command")),
             QStringLiteral("error"));
}

void ConversationTest::unadvertising_makes_room()
{
    Scene scene;
    scene.limits.advertisements = 1;
    Conversation first = scene.conversation(m_first);
    first.handle(setLevel("info"));
    first.handle(advertise(QStringLiteral("/drive"), "test/Command"));
    const Map unadvertise{{text("op"), text("unadvertise")}, {text("topic"), text("drive")}};
    QCOMPARE(scene.levelOfAnswer(first, unadvertise), QStringLiteral("info"));
    QCOMPARE(scene.levelOfAnswer(first, unadvertise), QStringLiteral("warning"));
    QCOMPARE(scene.levelOfAnswer(first, advertise(QStringLiteral("/lift"), "test/Command")),
             QStringLiteral("info"));
}

void ConversationTest::a_command_topic_cannot_be_subscribed()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    QCOMPARE(scene.levelOfAnswer(first, subscribe("/drive", 0, 0)), QStringLiteral("error"));
}

void ConversationTest::messages_that_wait_are_sent_when_they_are_due()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    first.handle(subscribe("state", 100, 5));
    QVERIFY(!first.due());
    for (int i = 0; i < 2; ++i)
        first.offer(Publication(QStringLiteral("/state"), {{text("x"), i}}), 10ms);
    QCOMPARE(scene.sent.size(), 1);
    QVERIFY(first.due() == 110ms);
    first.sendDue(109ms);
    QCOMPARE(scene.sent.size(), 1);
    first.sendDue(110ms);
    QCOMPARE(scene.sent.size(), 2);
    QCOMPARE(scene.sent.last(), (Map{{text("op"), text("publish")},
                                     {text("topic"), text("state")},
                                     {text("msg"), Map{{text("x"), 1}}}}
                                     .toJsonObject()));
    QVERIFY(!first.due());
}

void ConversationTest::the_earliest_subscription_is_due_first()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    first.handle(subscribe("/state", 300, 5));
    first.handle(subscribe("/picture", 200, 5));
    for (int i = 0; i < 2; ++i) {
        first.offer(Publication(QStringLiteral("/state"), {}), 0ms);
        first.offer(Publication(QStringLiteral("/picture"), {}), 0ms);
    }
    QVERIFY(first.due() == 200ms);
    first.sendDue(200ms);
    QCOMPARE(scene.sent.last().value(QLatin1String("topic")).toString(),
             QStringLiteral("/picture"));
    QVERIFY(first.due() == 300ms);
}

void ConversationTest::topics_and_answers_are_told_apart()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    first.handle(subscribe("/state", 0, 0));
    first.offer(Publication(QStringLiteral("/state"), {}), 0ms);
    first.handle({{text("op"), text("fly")}});
    first.handle(subscribe("/picture", 0, 0));
    first.offer(Publication(QStringLiteral("/picture"), {}), 0ms);
    QVERIFY((scene.kinds == QVector<Outbox::Kind>{Outbox::Kind::Topic, Outbox::Kind::Answer,
                                                  Outbox::Kind::Fleeting}));
}

void ConversationTest::a_latched_message_comes_once_with_the_first_subscription()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    first.handle(subscribe("/light", 0, 0));
    first.sendDue(0ms);
    QVERIFY(scene.sent.isEmpty()); // there was no message yet
    scene.topics.keep(light(false));
    scene.topics.keep(light(true));

    Conversation second = scene.conversation(m_second);
    second.handle(subscribe("light", 0, 0));
    second.sendDue(0ms);
    QCOMPARE(scene.sent.size(), 1);
    QCOMPARE(scene.sent.first(), (Map{{text("op"), text("publish")},
                                      {text("topic"), text("light")},
                                      {text("msg"), Map{{text("data"), true}}}}
                                      .toJsonObject()));
    QCOMPARE(scene.kinds, QVector<Outbox::Kind>{Outbox::Kind::Topic});

    Map further = subscribe("light", 0, 0);
    further.insert(text("id"), text("further"));
    second.handle(further);
    second.handle(subscribe("/state", 0, 0));
    second.sendDue(1ms);
    QCOMPARE(scene.sent.size(), 1);

    second.handle({{text("op"), text("unsubscribe")}, {text("topic"), text("light")}});
    second.handle(subscribe("light", 0, 0));
    second.sendDue(2ms);
    QCOMPARE(scene.sent.size(), 2);
}

void ConversationTest::a_latched_message_counts_for_the_throttle_rate()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    scene.topics.keep(light(false));
    first.handle(subscribe("/light", 100, 1));
    first.sendDue(5ms);
    first.offer(*light(true), 50ms);
    QCOMPARE(scene.sent.size(), 1);
    QVERIFY(first.due() == 105ms);
}

void ConversationTest::a_subscribed_topic_is_known_under_either_name()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    const QString state = QStringLiteral("/state");
    for (const char* name : {"state", "/state"}) {
        QVERIFY(!first.isSubscribed(state));
        first.handle(subscribe(name, 0, 0));
        QVERIFY(first.isSubscribed(state));
        QVERIFY(!first.isSubscribed(QStringLiteral("/picture")));
        first.handle({{text("op"), text("unsubscribe")}, {text("topic"), text(name)}});
    }
}

void ConversationTest::nothing_is_told_below_the_level()
{
    Scene scene;
    Conversation first = scene.conversation(m_first);
    first.tell(Conversation::Level::Warning, QStringLiteral("slow"));
    QVERIFY(scene.sent.isEmpty());
    first.handle(setLevel("warning"));
    first.tell(Conversation::Level::Info, QStringLiteral("fine"));
    QVERIFY(scene.sent.isEmpty());
    first.tell(Conversation::Level::Warning, QStringLiteral("slow"));
    QCOMPARE(scene.sent.size(), 1);
    QCOMPARE(scene.sent.first(), (Map{{text("op"), text("status")},
                                      {text("level"), text("warning")},
                                      {text("msg"), text("slow")}}
                                      .toJsonObject()));
}

TEST_WITHOUT_WINDOWS(ConversationTest)

} // namespace conversation_test

#include "ConversationTest.moc"
