// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FakeRobot.h"
#include "NoHurry.h"
#include "Probe.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/device/connection/SimulationDirectExecRole.h"
#include "olm/core/StringList.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace device_test {

using host::device::Device;
using plugin::gui::DeviceDelegate;
using plugin::gui::DeviceHistoryBundle;
using Kind = plugin::gui::VariableKind;

namespace {

constexpr int patience = 60000;

std::unique_ptr<Probe> loadProbe(Device& device)
{
    const Factory factory(
        [](const char*, const char*, DeviceDelegate& delegate) { return new Probe(delegate); });
    return std::unique_ptr<Probe>(dynamic_cast<Probe*>(device.loadWidget(factory, "toolbar")));
}

std::string addressOf(const Device& device)
{
    return device.read(Kind::Config, "ipAddress").get<std::string>();
}

} // namespace

/// A device as its widgets and the window around them see it.
class DeviceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_begins_with_the_variables_it_always_has();
    void a_widget_reads_and_writes_through_its_device();
    void a_widget_gets_bundles_of_what_it_registered();
    void the_default_address_is_where_none_is_stored();
    void an_overriding_address_goes_before_the_stored_one_and_leaves_it();
    void configuration_is_stored_when_a_write_ends();
    void configuration_is_stored_when_a_transaction_ends();
    void other_kinds_of_variables_are_not_stored();
    void a_stored_value_of_another_type_is_not_used_and_said();
    void damaged_settings_are_said_after_construction();
    void settings_that_cannot_be_stored_are_said_and_hold();
    void a_widget_hears_every_state_and_the_connection();
    void a_widget_hears_log_lines();
    void a_widget_hears_why_a_connection_fails();
    void a_widget_hears_that_an_address_was_refused();
    void a_passive_connection_is_a_connection();
    void a_widget_is_never_called_within_its_own_call();
    void a_widget_that_disconnects_in_a_handler_confuses_nobody();
    void the_status_tells_the_window();
    void the_simulator_is_a_state_variable();
    void a_command_asks_for_the_connection_state();
    void a_command_asks_for_the_start_text();
    void a_command_that_is_not_known_is_warned_of();
    void language_and_help_come_from_the_program_around();
};

void DeviceTest::it_begins_with_the_variables_it_always_has()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    const Device device("robot", folder.path(), environment);
    QCOMPARE(device.name(), QString("robot"));
    QCOMPARE(device.connectionState(), -1);
    QCOMPARE(device.status(), QString("Not connected."));
    QCOMPARE(addressOf(device), std::string("127.0.0.1:9090"));
    bool ok = false;
    const auto history =
        device.read(Kind::Config, "ipAddressHistory").get<olm::core::StringList>(&ok);
    QVERIFY(ok);
    QVERIFY(history.isEmpty());
    QVERIFY(!device.read(Kind::State, "connectedToSimulator").get<bool>(&ok));
    QVERIFY(ok);
    QVERIFY(QDir(folder.path()).isEmpty()); // nothing was set, nothing is stored
}

void DeviceTest::a_widget_reads_and_writes_through_its_device()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    const auto probe = loadProbe(device);
    probe->writeInput("a", 1);
    probe->writeOutput("a", 2);
    probe->writeStateVariable("a", 3);
    probe->beginTransaction("Set a");
    probe->writeConfigVariable("a", 4);
    QCOMPARE(probe->readConfigVariable("a").get<int>(), 4);
    probe->endTransaction();
    QCOMPARE(device.read(Kind::Input, "a").get<int>(), 1);
    QCOMPARE(device.read(Kind::Output, "a").get<int>(), 2);
    QCOMPARE(device.read(Kind::State, "a").get<int>(), 3);
    QCOMPARE(device.read(Kind::Config, "a").get<int>(), 4);
    probe->setInputProperty("a", "unit", QString("m"));
    QCOMPARE(probe->getInputProperty("a", "unit").get<QString>(), QString("m"));
    QVERIFY(probe->getOutputProperty("a", "unit").isEmpty());
}

void DeviceTest::a_widget_gets_bundles_of_what_it_registered()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    const auto probe = loadProbe(device);
    QList<int> values;
    probe->onUpdate = [&](const DeviceHistoryBundle& bundle) {
        for (const auto* history :
             {bundle.getInputHistory("i"), bundle.getOutputHistory("o"),
              bundle.getStateVariableHistory("s"), bundle.getConfigVariableHistory("c"),
              bundle.getConfigVariableHistory("ended"), bundle.getInputHistory("never")})
            values.append(history ? history->last().get<int>() : -1);
    };
    device.registerInput("i", true);
    device.registerOutput("o", true);
    device.registerStateVariable("s", true);
    device.registerConfigVariable("c", true);
    device.registerConfigVariable("ended", true);
    device.registerConfigVariable("ended", false);
    probe->writeInput("i", 1);
    probe->writeOutput("o", 2);
    probe->writeStateVariable("s", 3);
    probe->writeConfigVariable("c", 4);
    probe->writeConfigVariable("ended", 5);
    probe->writeInput("never", 6);
    QTRY_VERIFY_WITH_TIMEOUT(!values.isEmpty(), patience);
    QCOMPARE(values, QList<int>({1, 2, 3, 4, -1, -1}));
}

void DeviceTest::the_default_address_is_where_none_is_stored()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    {
        Device device("robot", folder.path(), environment);
        device.setDefaultAddress("localhost:1234");
        QCOMPARE(addressOf(device), std::string("localhost:1234"));
    }
    Device device("robot", folder.path(), environment);
    QCOMPARE(addressOf(device), std::string("127.0.0.1:9090")); // it was not stored
    device.write(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    device.setDefaultAddress("localhost:1234");
    QCOMPARE(addressOf(device), std::string("10.0.0.1"));
}

void DeviceTest::an_overriding_address_goes_before_the_stored_one_and_leaves_it()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    {
        Device device("robot", folder.path(), environment);
        device.write(Kind::Config, "ipAddress", std::string("10.0.0.1"));
        device.overrideAddress("10.0.0.2");
        QCOMPARE(addressOf(device), std::string("10.0.0.2"));
        device.write(Kind::Config, "other", 7); // stores all that is to be stored
    }
    const Device device("robot", folder.path(), environment);
    QCOMPARE(addressOf(device), std::string("10.0.0.1"));
    QCOMPARE(device.read(Kind::Config, "other").get<int>(), 7);
}

void DeviceTest::configuration_is_stored_when_a_write_ends()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    device.write(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    const Device later("robot", folder.path(), environment);
    QCOMPARE(addressOf(later), std::string("10.0.0.1"));
}

void DeviceTest::configuration_is_stored_when_a_transaction_ends()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    device.beginTransaction("Set IP Address");
    device.write(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    olm::core::StringList history;
    history.append("10.0.0.1");
    device.write(Kind::Config, "ipAddressHistory", history);
    QVERIFY(QDir(folder.path()).isEmpty());
    device.endTransaction();
    const Device later("robot", folder.path(), environment);
    QCOMPARE(addressOf(later), std::string("10.0.0.1"));
    QVERIFY(later.read(Kind::Config, "ipAddressHistory").get<olm::core::StringList>() == history);
}

void DeviceTest::other_kinds_of_variables_are_not_stored()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    device.write(Kind::Input, "a", 1);
    device.write(Kind::Output, "b", 2);
    device.write(Kind::State, "c", 3);
    QVERIFY(QDir(folder.path()).isEmpty());
}

void DeviceTest::a_stored_value_of_another_type_is_not_used_and_said()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    QFile file(folder.filePath("robot.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"ipAddress": {"type": "int", "value": 7}})");
    file.close();
    Device device("robot", folder.path(), environment);
    QSignalSpy problems(&device, &Device::problem);
    QCOMPARE(addressOf(device), std::string("127.0.0.1:9090"));
    QVERIFY(problems.wait(patience));
    QVERIFY(problems[0][0].toString().contains("ipAddress"));
    QVERIFY(problems[0][0].toString().contains(file.fileName()));
    device.setDefaultAddress("localhost:1234");
    QCOMPARE(addressOf(device), std::string("localhost:1234"));
    device.write(Kind::Config, "other", 8); // what is not used is kept
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("\"int\",\n        \"value\": 7"));
}

void DeviceTest::damaged_settings_are_said_after_construction()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    QFile file(folder.filePath("robot.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const Device device("robot", folder.path(), environment);
    QSignalSpy problems(&device, &Device::problem);
    QVERIFY(problems.wait(patience));
    QVERIFY(problems[0][0].toString().contains("robot.json.damaged-1"));
    QCOMPARE(addressOf(device), std::string("127.0.0.1:9090"));
}

void DeviceTest::settings_that_cannot_be_stored_are_said_and_hold()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Device device("robot", file.fileName(), environment);
    QSignalSpy problems(&device, &Device::problem);
    device.write(Kind::Config, "ipAddress", std::string("10.0.0.1"));
    device.write(Kind::Config, "ipAddress", std::string("10.0.0.2"));
    QVERIFY(problems.wait(patience));
    QCoreApplication::processEvents();
    QCOMPARE(problems.size(), 2); // each time
    QCOMPARE(addressOf(device), std::string("10.0.0.2"));
}

void DeviceTest::a_widget_hears_every_state_and_the_connection()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    robot.obey();
    Device device("robot", folder.path(), environment, noHurry());
    const auto probe = loadProbe(device);
    QSignalSpy states(&device, &Device::connectionStateChanged);
    device.overrideAddress(robot.address());
    QVERIFY(probe->connectDevice());
    QVERIFY(!probe->connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), 3, patience);
    QVERIFY(!probe->connectDevice());
    QVERIFY(probe->disconnectDevice());
    QVERIFY(!probe->disconnectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(probe->calls.contains("disconnected"), patience);

    QStringList expected("translate");
    for (const QList<QVariant>& state : states) {
        expected << "1005 " + state[0].toString();
        if (state[0].toInt() == 3)
            expected << "connected";
    }
    expected << "disconnected";
    QCOMPARE(probe->calls, expected);
    QCOMPARE(probe->calls.mid(probe->calls.size() - 4),
             QStringList({"1005 3", "connected", "1005 -1", "disconnected"}));
    QCOMPARE(probe->calls[1], QString("1005 0"));
}

void DeviceTest::a_widget_hears_log_lines()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device("robot", folder.path(), environment, noHurry());
    const auto probe = loadProbe(device);
    device.overrideAddress(robot.address());
    QVERIFY(device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), 3, patience);
    robot.log("laser", "Motor runs");
    QTRY_VERIFY_WITH_TIMEOUT(probe->calls.contains("1002 Motor runs"), patience);
}

void DeviceTest::a_widget_hears_why_a_connection_fails()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device("robot", folder.path(), environment, noHurry());
    const auto probe = loadProbe(device);
    device.overrideAddress(robot.address());
    QVERIFY(device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), 3, patience);
    robot.drop();
    QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), -1, patience);
    QTRY_VERIFY_WITH_TIMEOUT(probe->calls.contains("1004 " + device.status()), patience);
    QVERIFY(device.status().contains(robot.address()));
    QVERIFY(probe->calls.contains("disconnected"));
}

void DeviceTest::a_widget_hears_that_an_address_was_refused()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    const auto probe = loadProbe(device);
    probe->writeConfigVariable("ipAddress", std::string("robot:"));
    QVERIFY(!probe->connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(
        probe->calls, QStringList({"translate", "1005 -1", "1004 " + device.status()}), patience);
    QVERIFY(device.status().contains("robot:"));
}

void DeviceTest::a_passive_connection_is_a_connection()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    robot.answerTrigger("/control/acquire", false, "taken");
    Device device("robot", folder.path(), environment, noHurry());
    const auto probe = loadProbe(device);
    device.overrideAddress(robot.address());
    QVERIFY(device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(probe->calls.contains("connected"), patience);
    QCOMPARE(device.connectionState(), 4);
    QVERIFY(probe->calls.contains("1005 4"));
    QVERIFY(device.disconnectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(probe->count("disconnected"), 1, patience);
    QCOMPARE(probe->count("connected"), 1);
}

void DeviceTest::a_widget_is_never_called_within_its_own_call()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device("robot", folder.path(), environment, noHurry());
    device.overrideAddress(robot.address());
    const auto probe = loadProbe(device);
    device.registerConfigVariable("a", true);
    probe->writeConfigVariable("a", 1);
    QVERIFY(probe->connectDevice());
    QVERIFY(probe->disconnectDevice());
    QCOMPARE(probe->calls, QStringList("translate"));
    QTRY_VERIFY_WITH_TIMEOUT(probe->calls.contains("1005 -1"), patience);
}

void DeviceTest::a_widget_that_disconnects_in_a_handler_confuses_nobody()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device("robot", folder.path(), environment, noHurry());
    device.overrideAddress(robot.address());
    const auto first = loadProbe(device);
    const auto second = loadProbe(device);
    first->onConnected = [&] { first->disconnectDevice(); };
    QVERIFY(device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(second->count("disconnected"), 1, patience);
    QCOMPARE(second->calls.mid(second->calls.size() - 4),
             QStringList({"1005 3", "connected", "1005 -1", "disconnected"}));
    QCOMPARE(first->calls, second->calls);
}

void DeviceTest::the_status_tells_the_window()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device("robot", folder.path(), environment, noHurry());
    device.overrideAddress(robot.address());
    QSignalSpy status(&device, &Device::statusChanged);
    QVERIFY(device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), 3, patience);
    QVERIFY(device.disconnectDevice());
    QStringList words;
    for (const QList<QVariant>& change : status)
        words << change[0].toString();
    QCOMPARE(words, QStringList({QStringLiteral("Connecting to %1 …").arg(robot.address()),
                                 QStringLiteral("Connected to %1.").arg(robot.address()),
                                 "Not connected."}));
    QCOMPARE(device.status(), QString("Not connected."));
}

void DeviceTest::the_simulator_is_a_state_variable()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    robot.answer("/rosapi/get_param", {{"value", "true"}});
    Device device("robot", folder.path(), environment, noHurry());
    device.overrideAddress(robot.address());
    const auto probe = loadProbe(device);
    device.registerStateVariable("connectedToSimulator", true);
    QList<bool> values;
    probe->onUpdate = [&](const DeviceHistoryBundle& bundle) {
        if (const auto* history = bundle.getStateVariableHistory("connectedToSimulator"))
            values.append(history->last().get<bool>());
    };
    QVERIFY(device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(values, QList<bool>({true}), patience);
    QVERIFY(device.read(Kind::State, "connectedToSimulator").get<bool>());
    robot.drop();
    QTRY_COMPARE_WITH_TIMEOUT(values, QList<bool>({true, false}), patience);
}

void DeviceTest::a_command_asks_for_the_connection_state()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device("robot", folder.path(), environment, noHurry());
    device.overrideAddress(robot.address());
    const auto probe = loadProbe(device);
    const auto state = [&] {
        bool ok = false;
        const int answer =
            probe->simulationDirectExec(SimulationDirectExecRole(1005), {}).get<int>(&ok);
        return ok ? answer : -100;
    };
    QCOMPARE(state(), -1);
    QVERIFY(device.connectDevice());
    QCOMPARE(state(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(state(), 3, patience);
}

void DeviceTest::a_command_asks_for_the_start_text()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    const auto probe = loadProbe(device);
    QCOMPARE(probe->simulationDirectExec(SimulationDirectExecRole(1003), {}).get<QString>(),
             QString("Scans are shown as they arrive while the device is connected."));
}

void DeviceTest::a_command_that_is_not_known_is_warned_of()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    const auto probe = loadProbe(device);
    expectWarning("role 4711");
    expectWarning("no role");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("role 4711"));
    QVERIFY(probe->simulationDirectExec(SimulationDirectExecRole(4711), 1).isEmpty());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no role"));
    QVERIFY(probe->simulationDirectExec(1005, {}).isEmpty()); // an int is no role
}

void DeviceTest::language_and_help_come_from_the_program_around()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    Device device("robot", folder.path(), environment);
    const auto probe = loadProbe(device);
    QCOMPARE(probe->trans("Connect"), QString("CONNECT"));
    QCOMPARE(probe->currentLanguage(), QString("de"));
    QCOMPARE(probe->helpAction("toolbar"), &environment.action);
    QCOMPARE(environment.action.text(), QString("toolbar"));
}

TEST_WITH_WINDOWS(DeviceTest)

} // namespace device_test

#include "DeviceTest.moc"
