// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Controller.h"
#include "TestCase.h"

#include "rosbridge/server/Publication.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QtTest>

namespace topic_registry_test {

using rosbridge::server::Access;
using rosbridge::server::Peer;
using rosbridge::server::Publication;
using rosbridge::server::TopicRegistry;

/// TopicRegistry: which messages of clients are obeyed.
class TopicRegistryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_topic_is_found_under_either_form_of_its_name();
    void a_free_command_is_obeyed_from_anyone();
    void a_command_that_requires_control_is_obeyed_only_from_the_controller();
    void the_handlers_reason_is_passed_on();
    void a_topic_the_robot_publishes_takes_no_message();
    void an_unknown_topic_is_named();
    void a_latched_topic_keeps_its_last_message_and_no_other_topic_does();

private:
    const Peer m_first{1, QStringLiteral("client 1")};
    const Peer m_second{2, QStringLiteral("client 2")};
    const QString m_name = QStringLiteral("/light");
    const QString m_type = QStringLiteral("std_msgs/Bool");
};

void TopicRegistryTest::a_topic_is_found_under_either_form_of_its_name()
{
    const Controller control;
    TopicRegistry topics(control);
    topics.addPublished(m_name, m_type);
    QVERIFY(topics.find(m_name));
    QCOMPARE(topics.find(QStringLiteral("light")), topics.find(m_name));
    QCOMPARE(topics.find(m_name)->type, m_type);
    QVERIFY(!topics.find(QStringLiteral("/dark")));
    QVERIFY(!topics.find(QString()));
}

void TopicRegistryTest::a_free_command_is_obeyed_from_anyone()
{
    const Controller control;
    TopicRegistry topics(control);
    QVector<quint64> senders;
    QCborMap taken;
    topics.addCommand(m_name, m_type, Access::Anyone, [&](const Peer& from, const QCborMap& msg) {
        senders.append(from.id);
        taken = msg;
        return QString();
    });
    const QCborMap msg{{QStringLiteral("data"), true}};
    QCOMPARE(topics.deliver(m_first, m_name, msg), QString());
    QCOMPARE(topics.deliver(m_second, QStringLiteral("light"), msg), QString());
    QCOMPARE(senders, (QVector<quint64>{1, 2}));
    QCOMPARE(taken, msg);
}

void TopicRegistryTest::a_command_that_requires_control_is_obeyed_only_from_the_controller()
{
    Controller control;
    TopicRegistry topics(control);
    int count = 0;
    topics.addCommand(m_name, m_type, Access::RequiresControl,
                      [&count](const Peer&, const QCborMap&) {
                          ++count;
                          return QString();
                      });
    QCOMPARE(topics.deliver(m_first, m_name, {}), control.refusal(m_first));
    QCOMPARE(count, 0);

    control.acquire(m_first);
    QCOMPARE(topics.deliver(m_first, m_name, {}), QString());
    QCOMPARE(count, 1);

    const QString refusal = topics.deliver(m_second, m_name, {});
    QVERIFY(!refusal.isEmpty());
    QCOMPARE(refusal, control.refusal(m_second));
    QCOMPARE(count, 1);
}

void TopicRegistryTest::the_handlers_reason_is_passed_on()
{
    const Controller control;
    TopicRegistry topics(control);
    topics.addCommand(m_name, m_type, Access::Anyone, [](const Peer&, const QCborMap&) {
        return QStringLiteral("data must be a truth value");
    });
    QCOMPARE(topics.deliver(m_first, m_name, {}), QStringLiteral("data must be a truth value"));
}

void TopicRegistryTest::a_topic_the_robot_publishes_takes_no_message()
{
    Controller control;
    TopicRegistry topics(control);
    topics.addPublished(m_name, m_type);
    control.acquire(m_first);
    QCOMPARE(topics.deliver(m_first, m_name, {}), TopicRegistry::notForClients(m_name));
    QVERIFY(TopicRegistry::notForClients(m_name).contains(m_name));
}

void TopicRegistryTest::an_unknown_topic_is_named()
{
    const Controller control;
    const TopicRegistry topics(control);
    QCOMPARE(topics.deliver(m_first, m_name, {}), TopicRegistry::unknown(m_name));
    QVERIFY(TopicRegistry::unknown(m_name).contains(m_name));
}

void TopicRegistryTest::a_latched_topic_keeps_its_last_message_and_no_other_topic_does()
{
    const Controller control;
    TopicRegistry topics(control);
    const QString event = QStringLiteral("/event");
    topics.addLatched(m_name, m_type);
    topics.addPublished(event, m_type);
    QVERIFY(!topics.find(m_name)->last);
    const auto publication = [](const QString& topic) {
        return std::make_shared<const Publication>(topic, QCborMap());
    };
    topics.keep(publication(m_name));
    topics.keep(publication(event));
    const auto newest = publication(m_name);
    topics.keep(newest);
    QVERIFY(topics.find(m_name)->last == newest);
    QVERIFY(!topics.find(event)->last);
}

TEST_WITHOUT_WINDOWS(TopicRegistryTest)

} // namespace topic_registry_test

#include "TopicRegistryTest.moc"
