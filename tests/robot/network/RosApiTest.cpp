// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/robot/Watcher.h"

#include "robot/Robot.h"
#include "rosbridge/protocol/Address.h"

#include <QCborArray>
#include <QtTest>

namespace ros_api_test {

using robot::Robot;
using rosbridge::client::Client;

namespace {

/// A robot, and a client that asks what it offers.
struct Scene
{
    bool open()
    {
        QString error;
        if (!robot.listen({QStringLiteral("127.0.0.1"), 0}, &error))
            return false;
        watcher = std::make_unique<Watcher>(robot.port());
        return QTest::qWaitFor([this] { return watcher->isOpen(); }, patience);
    }

    /// The answer to a call; not ok if there is none.
    Client::Result call(const QString& service, const QCborMap& args = {})
    {
        watcher->answers.clear();
        watcher->call(service.toLatin1().constData(), args);
        if (!QTest::qWaitFor([this] { return !watcher->answers.isEmpty(); }, patience))
            return {};
        return watcher->answers.first();
    }

    /// A list of text in the answer to a call with at most one argument.
    QStringList list(const char* service, const char* field, const char* key = nullptr,
                     const QString& value = {})
    {
        QCborMap args;
        if (key)
            args.insert(QLatin1String(key), value);
        const Client::Result result = call(QLatin1String(service), args);
        QStringList texts;
        const QCborArray array = result.values.value(QLatin1String(field)).toArray();
        for (const QCborValue text : array)
            texts.append(text.toString());
        return texts;
    }

    /// What one of the three services of details answers; empty if it fails.
    QCborArray details(const char* service, const QString& type)
    {
        const Client::Result result =
            call(QLatin1String(service), {{QStringLiteral("type"), type}});
        return result.values.value(QLatin1String("typedefs")).toArray();
    }

    Robot robot{1};
    std::unique_ptr<Watcher> watcher;
};

QCborMap typeDef(const QCborArray& details, const QString& type)
{
    for (const QCborValue one : details) {
        if (one[QLatin1String("type")] == QCborValue(type))
            return one.toMap();
    }
    return {};
}

QStringList texts(const QCborValue& list)
{
    QStringList texts;
    const QCborArray array = list.toArray();
    for (const QCborValue text : array)
        texts.append(text.toString());
    return texts;
}

/// Where the value is not what the details say of its type; empty if it is.
QString difference(const QCborValue& value, const QString& type, const QCborArray& details)
{
    if (!type.contains(u'/') && type != QLatin1String("time") && type != QLatin1String("duration"))
        return value.isMap() ? type + QStringLiteral(" is a map") : QString();
    const QCborMap definition = typeDef(details, type);
    QStringList names = texts(definition.value(QLatin1String("fieldnames")));
    const QStringList types = texts(definition.value(QLatin1String("fieldtypes")));
    const QCborArray lengths = definition.value(QLatin1String("fieldarraylen")).toArray();
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
        const QCborValue field = value.toMap().value(names.at(i));
        const qint64 length = lengths.at(i).toInteger(-2);
        if (length == 0 && types.at(i) == QLatin1String("uint8")) {
            if (!field.isString())
                return type + u'.' + names.at(i) + QStringLiteral(" is no base64 text");
            continue;
        }
        if (length >= 0 && !field.isArray() && !field.isTag())
            return type + u'.' + names.at(i) + QStringLiteral(" is no list");
        if (length > 0 && field.toArray().size() != length)
            return type + u'.' + names.at(i) + QStringLiteral(" has another length");
        const QCborValue one = length >= 0 ? field.toArray().at(0) : field;
        const QString within = length >= 0 && field.toArray().isEmpty()
                                   ? QString()
                                   : difference(one, types.at(i), details);
        if (!within.isEmpty())
            return within;
    }
    QStringList found;
    const QCborMap map = value.toMap();
    for (auto field = map.cbegin(); field != map.cend(); ++field)
        found.append(field.key().toString());
    names.sort();
    found.sort();
    return names == found ? QString() : type + QStringLiteral(": ") + found.join(u' ');
}

} // namespace

/// RosApi: what roslib and viewers ask of a robot, as a client of the whole robot gets it.
class RosApiTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_message_is_as_its_details_say();
    void every_service_has_details_and_answers_as_they_say();
    void details_have_rosapis_shape();
    void details_of_an_unknown_type_fail_with_the_reason();
    void the_raw_types_hold_all_that_a_message_consists_of();
    void topics_are_found_by_their_type_in_either_spelling();
    void the_robot_is_one_node();
    void parameters_are_listed();
};

void RosApiTest::every_message_is_as_its_details_say()
{
    Scene scene;
    QVERIFY(scene.open());
    const QStringList topics = scene.list("/rosapi/topics", "topics");
    const QStringList types = scene.list("/rosapi/topics", "types");
    QVERIFY(topics.size() >= 15);
    QCOMPARE(types.size(), topics.size());
    for (int i = 0; i < static_cast<int>(topics.size()); ++i) {
        const QCborArray details = scene.details("/rosapi/message_details", types.at(i));
        QVERIFY2(!details.isEmpty(), qPrintable(types.at(i)));
        QCOMPARE(details.first()[QLatin1String("type")].toString(), types.at(i));
        if (topics.at(i) == QLatin1String("/cmd_vel") ||
            topics.at(i) == QLatin1String("/arm/command"))
            continue; // the robot takes these
        scene.watcher->subscribe(topics.at(i), types.at(i));
        if (topics.at(i) == QLatin1String("/rosout"))
            QVERIFY(scene.call(QStringLiteral("/control/acquire")).ok); // which is logged
        QVector<QCborMap>& messages = scene.watcher->messages[topics.at(i)];
        QTRY_VERIFY_WITH_TIMEOUT(!messages.isEmpty(), patience);
        QCOMPARE(difference(messages.first(), types.at(i), details), QString());
    }
}

void RosApiTest::every_service_has_details_and_answers_as_they_say()
{
    Scene scene;
    QVERIFY(scene.open());
    const QMap<QString, QCborValue> examples{{QStringLiteral("data"), true},
                                             {QStringLiteral("config"), QCborMap()},
                                             {QStringLiteral("node"), QStringLiteral("/x")},
                                             {QStringLiteral("name"), QStringLiteral("/x")},
                                             {QStringLiteral("default"), QStringLiteral("1")},
                                             {QStringLiteral("topic"), QStringLiteral("/x")},
                                             {QStringLiteral("service"), QStringLiteral("/x")}};
    const QStringList services = scene.list("/rosapi/services", "services");
    QVERIFY(services.size() >= 20);
    for (const QString& service : services) {
        QVERIFY(scene.call(QStringLiteral("/control/acquire")).ok); // one of them gives it back
        const QString type = scene
                                 .call(QStringLiteral("/rosapi/service_type"),
                                       {{QStringLiteral("service"), service}})
                                 .values.value(QLatin1String("type"))
                                 .toString();
        const QCborArray request = scene.details("/rosapi/service_request_details", type);
        const QCborArray response = scene.details("/rosapi/service_response_details", type);
        QVERIFY2(!request.isEmpty() && !response.isEmpty(), qPrintable(type));
        const bool isMessage = service.endsWith(QLatin1String("message_details"));
        QCborMap args{{QStringLiteral("type"), isMessage ? QStringLiteral("std_msgs/Bool")
                                                         : QStringLiteral("std_srvs/SetBool")}};
        for (auto example = examples.cbegin(); example != examples.cend(); ++example)
            args.insert(example.key(), *example);
        const Client::Result result = scene.call(service, args);
        QVERIFY2(result.ok, qPrintable(service + result.error));
        QCOMPARE(difference(result.values, type + QStringLiteral("Response"), response), QString());
        for (const QString& field : texts(request.first()[QLatin1String("fieldnames")]))
            QVERIFY2(args.contains(field), qPrintable(service + field));
    }
}

void RosApiTest::details_have_rosapis_shape()
{
    Scene scene;
    QVERIFY(scene.open());
    const QCborArray details =
        scene.details("/rosapi/message_details", QStringLiteral("sensor_msgs/msg/CameraInfo"));
    QStringList types;
    for (const QCborValue one : details)
        types.append(one[QLatin1String("type")].toString());
    QCOMPARE(types, (QStringList{QStringLiteral("sensor_msgs/CameraInfo"),
                                 QStringLiteral("std_msgs/Header"), QStringLiteral("time"),
                                 QStringLiteral("sensor_msgs/RegionOfInterest")}));
    const QCborMap camera = details.first().toMap();
    QCOMPARE(texts(camera.value(QLatin1String("fieldtypes"))).mid(0, 6),
             (QStringList{QStringLiteral("std_msgs/Header"), QStringLiteral("uint32"),
                          QStringLiteral("uint32"), QStringLiteral("string"),
                          QStringLiteral("float64"), QStringLiteral("float64")}));
    QCOMPARE(camera.value(QLatin1String("fieldarraylen")).toArray(),
             (QCborArray{-1, -1, -1, -1, 0, 9, 9, 12, -1, -1, -1}));
    QCOMPARE(texts(camera.value(QLatin1String("examples"))).mid(0, 5),
             (QStringList{QStringLiteral("{}"), QStringLiteral("0"), QStringLiteral("0"), QString(),
                          QStringLiteral("[]")}));
    const QCborMap log =
        typeDef(scene.details("/rosapi/message_details", QStringLiteral("rosgraph_msgs/Log")),
                QStringLiteral("rosgraph_msgs/Log"));
    QCOMPARE(texts(log.value(QLatin1String("constnames"))).value(2), QStringLiteral("WARN"));
    QCOMPARE(texts(log.value(QLatin1String("constvalues"))).value(2), QStringLiteral("4"));
    QCOMPARE(texts(log.value(QLatin1String("fieldnames"))).first(), QStringLiteral("header"));
}

void RosApiTest::details_of_an_unknown_type_fail_with_the_reason()
{
    Scene scene;
    QVERIFY(scene.open());
    for (const char* const service : {"/rosapi/message_details", "/rosapi/service_request_details",
                                      "/rosapi/service_response_details"}) {
        const Client::Result result = scene.call(
            QLatin1String(service), {{QStringLiteral("type"), QStringLiteral("std_msgs/Nothing")}});
        QVERIFY(!result.ok);
        QVERIFY2(result.error.contains(QLatin1String("std_msgs/Nothing")),
                 qPrintable(result.error));
    }
}

void RosApiTest::the_raw_types_hold_all_that_a_message_consists_of()
{
    Scene scene;
    QVERIFY(scene.open());
    const QStringList topics = scene.list("/rosapi/topics_and_raw_types", "topics");
    const QStringList raw = scene.list("/rosapi/topics_and_raw_types", "typedefs_full_text");
    QCOMPARE(topics, scene.list("/rosapi/topics", "topics"));
    QCOMPARE(raw.size(), topics.size());
    QCOMPARE(raw.at(topics.indexOf(QStringLiteral("/joint_states"))),
             QStringLiteral("std_msgs/Header header\n"
                            "string[] name\n"
                            "float64[] position\n"
                            "float64[] velocity\n"
                            "float64[] effort\n"
                            "\n") +
                 QString(80, u'=') +
                 QStringLiteral("\nMSG: std_msgs/Header\n"
                                "uint32 seq\n"
                                "time stamp\n"
                                "string frame_id\n"));
}

void RosApiTest::topics_are_found_by_their_type_in_either_spelling()
{
    Scene scene;
    QVERIFY(scene.open());
    for (const char* const type : {"tf2_msgs/TFMessage", "tf2_msgs/msg/TFMessage"}) {
        QCOMPARE(scene.list("/rosapi/topics_for_type", "topics", "type", QLatin1String(type)),
                 QStringList(QStringLiteral("/tf")));
    }
    QCOMPARE(scene.list("/rosapi/topics_for_type", "topics", "type", QStringLiteral("a/B")),
             QStringList());
}

void RosApiTest::the_robot_is_one_node()
{
    Scene scene;
    QVERIFY(scene.open());
    const QStringList nodes = scene.list("/rosapi/nodes", "nodes");
    QCOMPARE(nodes, QStringList(QStringLiteral("/quandrel_robot")));
    const auto of = [&scene](const char* field, const QString& node) {
        return scene.list("/rosapi/node_details", field, "node", node);
    };
    QCOMPARE(of("subscribing", nodes.first()),
             (QStringList{QStringLiteral("/arm/command"), QStringLiteral("/cmd_vel")}));
    QVERIFY(of("publishing", nodes.first()).contains(QStringLiteral("/scan")));
    QVERIFY(!of("publishing", nodes.first()).contains(QStringLiteral("/cmd_vel")));
    QCOMPARE(of("services", nodes.first()), scene.list("/rosapi/services", "services"));
    for (const char* const field : {"subscribing", "publishing", "services"})
        QCOMPARE(of(field, QStringLiteral("/nobody")), QStringList());
}

void RosApiTest::parameters_are_listed()
{
    Scene scene;
    QVERIFY(scene.open());
    QCOMPARE(scene.list("/rosapi/get_param_names", "names"),
             QStringList(QStringLiteral("/use_sim_time")));
}

TEST_WITHOUT_WINDOWS(RosApiTest)

} // namespace ros_api_test

#include "RosApiTest.moc"
