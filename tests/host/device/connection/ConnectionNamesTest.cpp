// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "NamesFixture.h"
#include "TestCase.h"

#include "host/device/connection/SimulationDirectExecRole.h"

#include <QtTest>

namespace connection_names_test {

using Fixture = NamesFixture;
using host::device::Device;
using host::device::connection::Remappings;

namespace {

constexpr int patience = 60000;

} // namespace

/// A robot with names of its own: what goes over the link, and what is said.
class ConnectionNamesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void topics_are_followed_under_the_robots_names();
    void a_topic_that_is_renamed_is_followed_anew_at_once();
    void a_renamed_topic_is_not_heard_under_its_old_name();
    void services_are_called_under_the_robots_names();
    void a_service_that_is_renamed_is_called_by_its_new_name_next();
    void words_about_a_topic_name_it_as_the_robot_does();
    void names_are_the_devices_and_are_remembered();
};

void ConnectionNamesTest::topics_are_followed_under_the_robots_names()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QVERIFY(f.device.remappings().set("/rosout", "/rosout_agg"));
    QVERIFY(f.connect());
    QTRY_COMPARE_WITH_TIMEOUT(f.followers("/base_scan"), 1, patience);
    QCOMPARE(f.followers("/scan"), 0);
    QCOMPARE(f.robot.subscriberCount("/rosout_agg", QString()), 1);
    f.robot.publish("/rosout_agg", {{"name", "base"}, {"msg", "Ready"}});
    QTRY_COMPARE_WITH_TIMEOUT(f.probe->count("1000 Ready"), 1, patience);
}

void ConnectionNamesTest::a_topic_that_is_renamed_is_followed_anew_at_once()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QTRY_COMPARE_WITH_TIMEOUT(f.followers("/scan"), 1, patience);
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QTRY_COMPARE_WITH_TIMEOUT(f.followers("/base_scan"), 1, patience);
    QCOMPARE(f.followers("/scan"), 0);
    f.device.remappings().reset();
    QTRY_COMPARE_WITH_TIMEOUT(f.followers("/scan"), 1, patience);
    QCOMPARE(f.followers("/base_scan"), 0);
}

void ConnectionNamesTest::a_renamed_topic_is_not_heard_under_its_old_name()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    QStringList heard;
    f.device.connection().follow("/map", "nav_msgs/OccupancyGrid", [&](const QCborMap& map) {
        heard << map.value(QLatin1String("of")).toString();
    });
    f.robot.publish("/map", {{"of", "standard"}});
    QVERIFY(f.settle());
    QVERIFY(f.device.remappings().set("/map", "/hall/map"));
    f.robot.publish("/map", {{"of", "standard"}});
    f.robot.publish("/hall/map", {{"of", "hall"}});
    QVERIFY(f.settle());
    QCOMPARE(heard, QStringList({"standard", "hall"}));
}

void ConnectionNamesTest::services_are_called_under_the_robots_names()
{
    Fixture f;
    f.offerAllBut({});
    Remappings& names = f.device.remappings();
    for (const char* service : {"/control/acquire", "/control/release", "/rosapi/topics",
                                "/rosapi/services", "/rosapi/get_param", "/arm/line0"}) {
        QVERIFY(names.set(service, QLatin1String("/lab") + service));
        f.robot.answerTrigger(QLatin1String("/lab") + service, true);
    }
    QVERIFY(f.connect());
    f.probe->simulationDirectExec(SimulationDirectExecRole(1008), true);
    f.probe->simulationDirectExec(SimulationDirectExecRole(1009), true);
    QVERIFY(f.isCalled(R"(/lab/arm/line0 {"data":true})"));
    QVERIFY(f.isCalled(R"(/arm/line1 {"data":true})"));
    QVERIFY(f.device.disconnectDevice());
    QVERIFY(f.isCalled("/lab/control/release {}"));
    QVERIFY(f.isCalled("/lab/rosapi/topics {}"));
    QVERIFY(f.isCalled("/lab/rosapi/services {}"));
    QCOMPARE(f.robot.calls().filter("/control/").size(),
             f.robot.calls().filter("/lab/control/").size());
    QCOMPARE(f.robot.calls().filter("/rosapi/").size(),
             f.robot.calls().filter("/lab/rosapi/").size());
}

void ConnectionNamesTest::a_service_that_is_renamed_is_called_by_its_new_name_next()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.connect());
    f.probe->writeConfigVariable("disableDriveSystem", false);
    QVERIFY(f.isCalled(R"(/drive/disable {"data":false})"));
    QVERIFY(f.device.remappings().set("/drive/disable", "/base/halt"));
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QVERIFY(f.isCalled(R"(/base/halt {"data":true})"));
}

void ConnectionNamesTest::words_about_a_topic_name_it_as_the_robot_does()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QVERIFY(f.connect());
    QVERIFY(f.device.remappings().set("/joint_states", "/arm/joints"));
    f.robot.publish("/base_scan", {});
    f.robot.publish("/arm/joints", {});
    QVERIFY(f.settle());
    const QStringList words = f.probe->calls.filter("was ignored");
    QCOMPARE(words.size(), 2);
    QVERIFY2(words[0].contains("topic /base_scan was"), qPrintable(words[0]));
    QVERIFY2(words[1].contains("topic /arm/joints was"), qPrintable(words[1]));

    QVERIFY(f.device.remappings().set("/scan", "/other_scan"));
    f.robot.publish("/other_scan", {}); // just as wrong
    QVERIFY(f.settle());
    QCOMPARE(f.probe->calls.filter("topic /other_scan was").size(), 1);
}

void ConnectionNamesTest::names_are_the_devices_and_are_remembered()
{
    Fixture f;
    f.robot.obey();
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    Device later("robot", f.folder.path(), f.environment, noHurry());
    QCOMPARE(later.remappings().theirs("/scan"), QString("/base_scan"));

    QFile file(f.folder.filePath("other.names"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("damaged") > 0);
    file.close();
    Device other("other", f.folder.path(), f.environment, noHurry());
    QSignalSpy problems(&other, &Device::problem);
    QTRY_COMPARE_WITH_TIMEOUT(int(problems.count()), 1, patience);
    QVERIFY(problems.first().first().toString().contains("other.names"));
}

TEST_WITH_WINDOWS(ConnectionNamesTest)

} // namespace connection_names_test

#include "ConnectionNamesTest.moc"
