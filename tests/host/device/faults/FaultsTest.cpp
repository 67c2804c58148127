// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FaultsFixture.h"
#include "TestCase.h"

#include "host/device/connection/SimulationDirectExecRole.h"
#include "rosbridge/protocol/Angle.h"

#include <QCborArray>
#include <QSignalSpy>
#include <QtTest>

namespace faults_test {

using namespace std::chrono_literals;
using Fixture = FaultsFixture;
using host::device::Device;
using host::device::faults::Faults;
using olm::core::LaserScanMessage;
using olm::core::variant::Variant;
using Kind = plugin::gui::VariableKind;

namespace {

constexpr int patience = 60000;

/// All axes of the arm at 10.
QCborMap jointState()
{
    QCborArray names;
    QCborArray positions;
    for (int axis = 0; axis < 9; ++axis) {
        names.append(QStringLiteral("axis%1").arg(axis));
        positions.append(rosbridge::protocol::toRadians(10.0));
    }
    return {{QStringLiteral("name"), names}, {QStringLiteral("position"), positions}};
}

template <class T>
bool holds(const Variant& value)
{
    bool ok = false;
    value.get<T>(&ok);
    return ok;
}

} // namespace

/// Each fault that a widget sees strikes, and is gone when it ends.
class FaultsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_wrong_at_first();
    void a_setting_that_changes_nothing_says_nothing();
    void all_faults_are_said_in_one_line_and_ended_together();
    void a_frozen_scan_stays_until_it_thaws();
    void a_refused_write_keeps_the_old_value_and_is_said();
    void a_refused_setting_does_not_reach_the_robot();
    void the_device_itself_still_writes();
    void only_the_configuration_is_refused();
    void a_wrong_type_is_read_and_reported_until_it_ends_data();
    void a_wrong_type_is_read_and_reported_until_it_ends();
    void a_wrong_type_goes_on_with_every_new_value();
    void a_variable_without_a_value_has_no_wrong_one();
    void the_device_itself_knows_the_right_value();
    void a_message_of_any_role_and_type_is_sent();
};

void FaultsTest::nothing_is_wrong_at_first()
{
    const Fixture f;
    QVERIFY(!f.faults.isAnyOn());
    QCOMPARE(f.faults.summary(), QString());
}

void FaultsTest::a_setting_that_changes_nothing_says_nothing()
{
    Faults faults;
    const QSignalSpy changes(&faults, &Faults::changed);
    faults.endAll();
    faults.setDelay(0ms);
    faults.setWrongType({Kind::Input, "scan"}, false);
    QCOMPARE(changes.size(), 0);
    faults.setDropInterval(2);
    faults.setDropInterval(2);
    faults.setWrongType({Kind::Input, "scan"}, true);
    faults.setWrongType({Kind::Input, "scan"}, true);
    QCOMPARE(changes.size(), 2);
}

void FaultsTest::all_faults_are_said_in_one_line_and_ended_together()
{
    Faults faults;
    faults.setNextRefused(true);
    faults.setOtherController(true);
    faults.setDelay(500ms);
    faults.setDropInterval(5);
    faults.setScanFrozen(true);
    faults.setWritesRefused(true);
    faults.setWrongType({Kind::Input, "scan"}, true);
    faults.setWrongType({Kind::Config, "num_pos"}, true);
    QVERIFY(faults.isAnyOn());
    QCOMPARE(faults.summary(),
             QString("Active faults: next connection refused; another client in control; answers "
                     "0.5 s late; one message in 5 dropped; scan frozen; writes refused; wrong "
                     "type: scan, num_pos"));
    faults.endAll();
    QVERIFY(!faults.isAnyOn());
    QCOMPARE(faults.summary(), QString());
}

void FaultsTest::a_frozen_scan_stays_until_it_thaws()
{
    Fixture f;
    f.faults.setScanFrozen(true);
    f.faults.setScanFrozen(false);
    QVERIFY(f.connect());
    QVERIFY(f.scan(1));
    f.faults.setScanFrozen(true);
    f.robot.publish("/scan", scanMessage(2));
    f.robot.log("base", "after the scan");
    QVERIFY(f.hears("1000 after the scan"));
    QCOMPARE(f.scanNumber(), 1);
    f.faults.setScanFrozen(false);
    QCOMPARE(f.scanNumber(), 1);
    QVERIFY(f.scan(3));
}

void FaultsTest::a_refused_write_keeps_the_old_value_and_is_said()
{
    Fixture f;
    f.probe->writeConfigVariable("a", 1);
    f.faults.setWritesRefused(true);
    f.probe->beginTransaction("Set a and b");
    f.probe->writeConfigVariable("a", 2);
    f.probe->writeConfigVariable("b", 2);
    QCOMPARE(f.probe->readConfigVariable("a").get<int>(), 1);
    QVERIFY(f.probe->readConfigVariable("b").isEmpty());
    f.probe->endTransaction();
    QVERIFY(f.hears("1000 \"a\" was not changed: the device refuses writes."));
    QVERIFY(f.hears("1000 \"b\" was not changed: the device refuses writes."));
    QVERIFY(!f.device->variables().find({Kind::Config, "b"}));
    QCOMPARE(Device("robot", f.folder.path(), f.environment).read(Kind::Config, "a").get<int>(), 1);

    // Who follows the variable is told what holds.
    f.device->variables().follow(Kind::Config, "a");
    f.probe->writeConfigVariable("a", 3);
    QVERIFY(f.sees(Kind::Config, "a", [](const Variant& a) { return a.get<int>() == 1; }));

    f.faults.setWritesRefused(false);
    f.probe->writeConfigVariable("a", 4);
    QCOMPARE(f.probe->readConfigVariable("a").get<int>(), 4);
    QCOMPARE(Device("robot", f.folder.path(), f.environment).read(Kind::Config, "a").get<int>(), 4);
}

void FaultsTest::a_refused_setting_does_not_reach_the_robot()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setWritesRefused(true);
    f.probe->writeConfigVariable("disableDriveSystem", true);
    f.faults.setWritesRefused(false);
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().last().startsWith("/arm/torque"), patience);
    QVERIFY(!f.robot.calls().contains("/drive/disable {\"data\":true}"));
    f.probe->writeConfigVariable("disableDriveSystem", true);
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/drive/disable {\"data\":true}"), patience);
}

void FaultsTest::the_device_itself_still_writes()
{
    Fixture f;
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.scan(1)); // after the pose
    f.faults.setWritesRefused(true);
    f.probe->simulationDirectExec(SimulationDirectExecRole(1007), Variant());
    QVERIFY(f.hears("1001 The arm's position was stored as Pos3."));
    QCOMPARE(f.probe->readConfigVariable("num_pos").get<int>(), 3);
}

void FaultsTest::only_the_configuration_is_refused()
{
    const Fixture f;
    f.faults.setWritesRefused(true);
    f.probe->writeInput("a", 1);
    f.probe->writeOutput("a", 2);
    f.probe->writeStateVariable("a", 3);
    QCOMPARE(f.probe->readInput("a").get<int>(), 1);
    QCOMPARE(f.probe->readOutput("a").get<int>(), 2);
    QCOMPARE(f.probe->readStateVariable("a").get<int>(), 3);
}

void FaultsTest::a_wrong_type_is_read_and_reported_until_it_ends_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"ipAddress", "ipAddressHistory", "num_pos", "pos0"})
        QTest::newRow(name) << QByteArray(name);
}

void FaultsTest::a_wrong_type_is_read_and_reported_until_it_ends()
{
    QFETCH(const QByteArray, name);
    Fixture f;
    const Faults::Key key(Kind::Config, name.toStdString());
    const Variant right = f.probe->readConfigVariable(name.constData());
    const auto isRight = [right](const Variant& value) {
        return strcmp(value.any().type().name(), right.any().type().name()) == 0;
    };
    const auto isWrong = [isRight](const Variant& value) {
        bool isNumber = false;
        value.toInt(&isNumber);
        return !value.isEmpty() && !isNumber && !isRight(value);
    };
    f.device->variables().follow(key.first, key.second.c_str());
    f.faults.setWrongType(key, true);
    QVERIFY(isWrong(f.probe->readConfigVariable(name.constData())));
    QVERIFY(f.sees(Kind::Config, name.constData(), isWrong));
    f.faults.setWrongType(key, false);
    QVERIFY(isRight(f.probe->readConfigVariable(name.constData())));
    QVERIFY(f.sees(Kind::Config, name.constData(), isRight));
    QCOMPARE(f.probe->readConfigVariable(name.constData()).id(), right.id()); // the very same value
}

void FaultsTest::a_wrong_type_goes_on_with_every_new_value()
{
    Fixture f;
    QVERIFY(f.connect());
    QVERIFY(f.scan(1));
    f.faults.setWrongType({Kind::Input, "scan"}, true);
    QVERIFY(holds<std::string>(f.probe->readInput("scan")));
    f.device->variables().follow(Kind::Input, "scan");
    f.robot.publish("/scan", scanMessage(2));
    QVERIFY(f.sees(Kind::Input, "scan", holds<std::string>));
    f.robot.publish("/scan", scanMessage(3));
    QVERIFY(f.sees(Kind::Input, "scan", holds<std::string>));
    QCOMPARE(f.device->read(Kind::Input, "scan").get<LaserScanMessage>().sequenceNumber, 3U);
    f.faults.setWrongType({Kind::Input, "scan"}, false);
    QCOMPARE(f.scanNumber(), 3);
}

void FaultsTest::a_variable_without_a_value_has_no_wrong_one()
{
    Fixture f;
    f.faults.setWrongType({Kind::Input, "scan"}, true);
    QVERIFY(f.probe->readInput("scan").isEmpty());
    f.device->variables().follow(Kind::Input, "scan");
    QVERIFY(f.connect());
    f.robot.publish("/scan", scanMessage(1));
    QVERIFY(f.sees(Kind::Input, "scan", holds<std::string>));
    f.faults.setWrongType({Kind::Input, "scan"}, false);
    QVERIFY(f.sees(Kind::Input, "scan", holds<LaserScanMessage>));
}

void FaultsTest::the_device_itself_knows_the_right_value()
{
    Fixture f;
    f.faults.setWrongType({Kind::Config, "ipAddress"}, true);
    f.faults.setWrongType({Kind::Config, "num_pos"}, true);
    QVERIFY(f.connect());
    f.robot.publish("/joint_states", jointState());
    QVERIFY(f.scan(1)); // after the pose
    f.probe->simulationDirectExec(SimulationDirectExecRole(1007), Variant());
    QVERIFY(f.hears("1001 The arm's position was stored as Pos3."));
    f.faults.endAll();
    QCOMPARE(f.probe->readConfigVariable("num_pos").get<int>(), 3);
}

void FaultsTest::a_message_of_any_role_and_type_is_sent()
{
    const Fixture f;
    f.device->sendMessage(plugin::plugin::DataRole(1000), QString("a line"));
    f.device->sendMessage(plugin::plugin::DataRole(-7), 42);
    QVERIFY(f.hears("1000 a line"));
    QVERIFY(f.hears("-7 42"));
}

TEST_WITH_WINDOWS(FaultsTest)

} // namespace faults_test

#include "FaultsTest.moc"
