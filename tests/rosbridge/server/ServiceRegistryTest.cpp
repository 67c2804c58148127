// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Controller.h"
#include "TestCase.h"

#include "rosbridge/server/ServiceRegistry.h"

#include <QCborArray>
#include <QtTest>

namespace service_registry_test {

using rosbridge::server::Access;
using rosbridge::server::Peer;
using rosbridge::server::ServiceRegistry;
using rosbridge::server::ServiceReply;

/// ServiceRegistry: which calls are carried out, and with which arguments.
class ServiceRegistryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_service_is_found_under_either_form_of_its_name();
    void a_call_gets_what_the_handler_answers();
    void a_service_that_requires_control_obeys_only_the_controller();
    void arguments_may_come_in_every_form_of_rosbridge_data();
    void arguments_may_come_in_every_form_of_rosbridge();
    void arguments_of_another_form_are_refused_data();
    void arguments_of_another_form_are_refused();
    void an_unknown_service_is_named();

private:
    static ServiceRegistry::Service echo(Access access)
    {
        return {QStringLiteral("test/Echo"),
                {QStringLiteral("a"), QStringLiteral("b")},
                access,
                [](const Peer&, const QCborMap& args) {
                    return ServiceReply{args, QString()};
                }};
    }

    const Peer m_first{1, QStringLiteral("client 1")};
    const Peer m_second{2, QStringLiteral("client 2")};
    const QString m_name = QStringLiteral("/arm/echo");
};

void ServiceRegistryTest::a_service_is_found_under_either_form_of_its_name()
{
    const Controller control;
    ServiceRegistry services(control);
    services.add(m_name, echo(Access::Anyone));
    QVERIFY(services.find(m_name));
    QCOMPARE(services.find(QStringLiteral("arm/echo")), services.find(m_name));
    QVERIFY(!services.find(QStringLiteral("/arm")));
}

void ServiceRegistryTest::a_call_gets_what_the_handler_answers()
{
    const Controller control;
    ServiceRegistry services(control);
    services.add(m_name, echo(Access::Anyone));
    services.add(
        QStringLiteral("/fail"),
        {QStringLiteral("test/Fail"), {}, Access::Anyone, [](const Peer&, const QCborMap&) {
             return ServiceReply::failure(QStringLiteral("it is broken"));
         }});
    const QCborMap args{{QStringLiteral("a"), 7}};
    const ServiceReply reply = services.call(m_first, QStringLiteral("arm/echo"), args);
    QCOMPARE(reply.error, QString());
    QCOMPARE(reply.values, args);
    QCOMPARE(services.call(m_first, QStringLiteral("/fail"), args).error,
             QStringLiteral("it is broken"));
}

void ServiceRegistryTest::a_service_that_requires_control_obeys_only_the_controller()
{
    Controller control;
    ServiceRegistry services(control);
    int count = 0;
    services.add(m_name, {QStringLiteral("test/Count"),
                          {},
                          Access::RequiresControl,
                          [&count](const Peer&, const QCborMap&) {
                              ++count;
                              return ServiceReply();
                          }});
    QCOMPARE(services.call(m_first, m_name, {}).error, control.refusal(m_first));
    control.acquire(m_first);
    QCOMPARE(count, 0);
    QCOMPARE(services.call(m_first, m_name, {}).error, QString());
    QCOMPARE(count, 1);
    QCOMPARE(services.call(m_second, m_name, {}).error, control.refusal(m_second));
    QVERIFY(!control.refusal(m_second).isEmpty());
    QCOMPARE(count, 1);
}

void ServiceRegistryTest::arguments_may_come_in_every_form_of_rosbridge_data()
{
    QTest::addColumn<QCborValue>("args");
    QTest::addColumn<QCborMap>("fields");
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    QTest::newRow("missing") << QCborValue(QCborValue::Undefined) << QCborMap();
    QTest::newRow("null") << QCborValue(nullptr) << QCborMap();
    QTest::newRow("object") << QCborValue(QCborMap{{b, 2}}) << QCborMap{{b, 2}};
    QTest::newRow("empty list") << QCborValue(QCborArray()) << QCborMap();
    QTest::newRow("short list") << QCborValue(QCborArray{1}) << QCborMap{{a, 1}};
    QTest::newRow("list") << QCborValue(QCborArray{1, 2}) << QCborMap{{a, 1}, {b, 2}};
}

void ServiceRegistryTest::arguments_may_come_in_every_form_of_rosbridge()
{
    QFETCH(QCborValue, args);
    QFETCH(QCborMap, fields);
    const Controller control;
    ServiceRegistry services(control);
    services.add(m_name, echo(Access::Anyone));
    const ServiceReply reply = services.call(m_first, m_name, args);
    QCOMPARE(reply.error, QString());
    QCOMPARE(reply.values, fields);
}

void ServiceRegistryTest::arguments_of_another_form_are_refused_data()
{
    QTest::addColumn<QCborValue>("args");
    QTest::newRow("text") << QCborValue(QStringLiteral("a"));
    QTest::newRow("number") << QCborValue(1);
    QTest::newRow("list too long") << QCborValue(QCborArray{1, 2, 3});
}

void ServiceRegistryTest::arguments_of_another_form_are_refused()
{
    QFETCH(QCborValue, args);
    const Controller control;
    ServiceRegistry services(control);
    services.add(m_name, echo(Access::Anyone));
    QVERIFY(services.call(m_first, m_name, args).error.contains(QStringLiteral("args")));
}

void ServiceRegistryTest::an_unknown_service_is_named()
{
    const Controller control;
    const ServiceRegistry services(control);
    QVERIFY(services.call(m_first, m_name, {}).error.contains(m_name));
}

TEST_WITHOUT_WINDOWS(ServiceRegistryTest)

} // namespace service_registry_test

#include "ServiceRegistryTest.moc"
