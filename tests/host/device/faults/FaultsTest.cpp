#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"
#include "tests/host/device/Probe.h"
#include "tests/host/device/readers/ScanMessage.h"

#include "host/device/Device.h"
#include "host/device/SimulationDirectExecRole.h"
#include "host/device/faults/Faults.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/Vector.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QCborArray>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace faults_test {

using namespace std::chrono_literals;
using host::device::Device;
using host::device::connection::Timing;
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
        positions.append(10.0);
    }
    return {{QStringLiteral("name"), names}, {QStringLiteral("position"), positions}};
}

/// A device with a widget on it, a robot to connect to, and what shall go wrong.
struct Fixture
{
    explicit Fixture(const Timing& timing = noHurry())
        : device(std::make_unique<Device>("robot", folder.path(), environment, timing)),
          faults(device->faults())
    {
        const Factory factory(
            [](const char*, const char*, plugin::gui::DeviceDelegate& delegate) -> Probe* {
                return new Probe(delegate);
            });
        probe.reset(dynamic_cast<Probe*>(device->loadWidget(factory, "dialog")));
        robot.obey();
        device->overrideAddress(robot.address());
    }

    ~Fixture() { probe.reset(); }

    bool isState(int state) const
    {
        return QTest::qWaitFor([&] { return device->connectionState() == state; }, patience);
    }

    bool connect(int state = 3) const { return device->connectDevice() && isState(state); }

    bool hears(const char* call) const
    {
        return QTest::qWaitFor([&] { return probe->count(call) > 0; }, patience);
    }

    /// Whether a widget saw a variable's newest value, by a test of it.
    template <class Holds>
    bool sees(Kind kind, const char* name, const Holds& holds)
    {
        device->variables().follow(kind, name);
        bool isSeen = false;
        probe->onUpdate = [&](const plugin::gui::DeviceHistoryBundle& bundle) {
            const auto* const history = kind == Kind::Input ? bundle.getInputHistory(name)
                                                            : bundle.getConfigVariableHistory(name);
            isSeen = isSeen || (history && holds(history->last()));
        };
        const bool result = QTest::qWaitFor([&] { return isSeen; }, patience);
        probe->onUpdate = nullptr;
        device->variables().unfollow(kind, name);
        return result;
    }

    int scanNumber() const
    {
        return int(probe->readInput("scan").get<LaserScanMessage>().sequenceNumber);
    }

    /// Whether a scan arrived that was sent now.
    bool scan(int number)
    {
        robot.publish(QStringLiteral("/scan"), scanMessage(number));
        return QTest::qWaitFor([&] { return scanNumber() == number; }, patience);
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    std::unique_ptr<Device> device;
    Faults& faults;
    std::unique_ptr<Probe> probe;
};

template <class T>
bool holds(const Variant& value)
{
    bool ok = false;
    value.get<T>(&ok);
    return ok;
}

} // namespace

/// Each fault strikes, and is gone when it ends.
class FaultsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_wrong_at_first();
    void a_setting_that_changes_nothing_says_nothing();
    void all_faults_are_said_in_one_line_and_ended_together();

    void a_dropped_link_ends_like_a_lost_one();
    void a_link_is_dropped_while_it_connects();
    void there_is_no_link_to_drop_without_a_connection();

    void the_next_connection_is_refused_like_by_a_machine_without_a_robot();
    void a_refusal_that_is_taken_back_never_strikes();
    void giving_up_before_the_refusal_is_quiet();
    void a_dropped_link_is_refused_when_it_is_opened_again();

    void a_frozen_scan_stays_until_it_thaws();

    void the_connect_and_the_answers_are_late();
    void a_connect_that_is_too_late_fails();
    void a_call_whose_answer_is_too_late_fails();
    void disconnecting_while_an_answer_waits_is_quiet();
    void disconnecting_while_the_connect_waits_is_quiet();
    void a_device_is_deleted_while_answers_wait();

    void one_message_in_n_is_dropped();
    void each_topic_has_its_own_count();

    void a_refused_write_keeps_the_old_value_and_is_said();
    void a_refused_setting_does_not_reach_the_robot();
    void the_device_itself_still_writes();
    void only_the_configuration_is_refused();

    void a_wrong_type_is_read_and_reported_until_it_ends_data();
    void a_wrong_type_is_read_and_reported_until_it_ends();
    void a_wrong_type_goes_on_with_every_new_value();
    void a_variable_without_a_value_has_no_wrong_one();
    void the_device_itself_knows_the_right_value();

    void another_controller_makes_the_connection_passive_at_once();
    void another_controller_comes_before_the_connection();
    void a_robot_with_another_client_stays_passive();

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
             QString("Faults are on: next connection refused; another client in control; answers "
                     "0.5 s late; one message in 5 dropped; scan frozen; writes refused; wrong "
                     "type: scan, num_pos"));
    faults.endAll();
    QVERIFY(!faults.isAnyOn());
    QCOMPARE(faults.summary(), QString());
}

void FaultsTest::a_dropped_link_ends_like_a_lost_one()
{
    Fixture f;
    QVERIFY(f.connect());
    f.robot.drop();
    QVERIFY(f.isState(-1));
    const QString lost = f.device->status();
    QVERIFY2(lost.contains("is lost"), qPrintable(lost));
    const QByteArray line = "1004 " + lost.toUtf8();
    QVERIFY(f.hears(line.constData()));

    QVERIFY(f.connect());
    QVERIFY(f.device->status() != lost);
    f.faults.dropLink();
    QCOMPARE(f.device->connectionState(), -1);
    QCOMPARE(f.device->status(), lost);
    QTRY_COMPARE_WITH_TIMEOUT(f.probe->count(line.constData()), 2, patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.probe->count("disconnected"), 2, patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 0, patience);
    QVERIFY(!f.robot.calls().join(' ').contains("/control/release"));
    QVERIFY(f.connect());
}

void FaultsTest::a_link_is_dropped_while_it_connects()
{
    Fixture f;
    f.robot.ignore("/control/acquire");
    QVERIFY(f.device->connectDevice());
    f.faults.dropLink();
    QCOMPARE(f.device->connectionState(), -1);
    QVERIFY(f.device->status().contains("is lost"));
    QVERIFY(f.device->connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/control/acquire {}"), patience);
    f.faults.dropLink();
    QCOMPARE(f.device->connectionState(), -1);
}

void FaultsTest::there_is_no_link_to_drop_without_a_connection()
{
    const Fixture f;
    const QSignalSpy states(f.device.get(), &Device::connectionStateChanged);
    f.faults.dropLink();
    QCOMPARE(states.size(), 0);
    QCOMPARE(f.device->status(), QString("Not connected."));
}

void FaultsTest::the_next_connection_is_refused_like_by_a_machine_without_a_robot()
{
    Fixture f;
    QTcpSocket closed; // a port that nobody else gets, and where nobody listens
    QVERIFY(closed.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    const QString nobody = QString("127.0.0.1:%1").arg(closed.localPort());
    f.device->overrideAddress(nobody);
    QVERIFY(f.connect(-1));
    const QString words = f.device->status().replace(nobody, f.robot.address());
    QVERIFY2(words.contains("refuses the connection"), qPrintable(words));

    f.device->overrideAddress(f.robot.address());
    QSignalSpy states(f.device.get(), &Device::connectionStateChanged);
    f.faults.setNextRefused(true);
    QVERIFY(f.device->connectDevice());
    QVERIFY(!f.faults.isNextRefused());
    QCOMPARE(f.device->connectionState(), 0); // the refusal comes later, as from a network
    QVERIFY(f.isState(-1));
    QCOMPARE(f.device->status(), words);
    QVERIFY(f.hears(("1004 " + words).toUtf8().constData()));
    QCOMPARE(f.probe->count("connected"), 0);
    QCOMPARE(f.robot.clientCount(), 0);
    QVERIFY(f.connect());
}

void FaultsTest::a_refusal_that_is_taken_back_never_strikes()
{
    const Fixture f;
    f.faults.setNextRefused(true);
    f.faults.setNextRefused(false);
    QVERIFY(f.connect());
    f.faults.setNextRefused(true); // the present connection is none that is opened
    QCOMPARE(f.device->connectionState(), 3);
    QVERIFY(f.faults.isNextRefused());
}

void FaultsTest::giving_up_before_the_refusal_is_quiet()
{
    const Fixture f;
    f.faults.setNextRefused(true);
    QVERIFY(f.device->connectDevice());
    QVERIFY(f.device->disconnectDevice());
    QVERIFY(f.connect());
    QVERIFY(f.hears("connected"));
    QCOMPARE(f.probe->calls.filter("1004 "), QStringList());
}

void FaultsTest::a_dropped_link_is_refused_when_it_is_opened_again()
{
    const Fixture f;
    f.faults.setNextRefused(true);
    QVERIFY(f.connect(-1));
    QVERIFY(f.connect());
    f.faults.setNextRefused(true);
    f.faults.dropLink();
    QVERIFY(f.device->status().contains("is lost"));
    QVERIFY(f.faults.isNextRefused());
    QVERIFY(f.connect(-1));
    QVERIFY(f.device->status().contains("refuses"));
    QVERIFY(f.connect());
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

void FaultsTest::the_connect_and_the_answers_are_late()
{
    constexpr int delay = 100;
    constexpr int least = delay * 9 / 10; // Qt's timers may be a little early
    Fixture f;
    f.faults.setDelay(std::chrono::milliseconds(delay));
    QElapsedTimer clock;
    clock.start();
    QVERIFY(f.connect());
    QVERIFY2(clock.elapsed() >= 2 * least, qPrintable(QString::number(clock.elapsed())));

    f.robot.answerTrigger("/arm/torque", false, "no power");
    clock.restart();
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QVERIFY(f.hears("1001 Switch torque on: not done. no power"));
    QVERIFY2(clock.elapsed() >= least, qPrintable(QString::number(clock.elapsed())));

    f.faults.setDelay(1h);
    f.robot.answerTrigger("/arm/line0", false, "no power");
    f.probe->simulationDirectExec(SimulationDirectExecRole(1008), true);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.calls().last(), QString("/arm/line0 {\"data\":true}"),
                              patience);
    f.robot.log("base", "after the answer"); // on the same link, and no answer
    QVERIFY(f.hears("1000 after the answer"));
    f.faults.setDelay(0ms);
    f.robot.answerTrigger("/arm/line1", false, "no power");
    f.probe->simulationDirectExec(SimulationDirectExecRole(1009), true);
    QVERIFY(f.hears("1001 Enable line 2: not done. no power"));
    QCOMPARE(f.probe->count("1001 Enable line 1: not done. no power"), 0); // it still waits
    QVERIFY(f.device->disconnectDevice());
    QVERIFY(f.connect());
}

void FaultsTest::a_connect_that_is_too_late_fails()
{
    Timing timing = noHurry();
    timing.link.connect = 100ms;
    const Fixture f(timing);
    f.faults.setDelay(1h);
    QVERIFY(f.connect(-1));
    QVERIFY2(f.device->status().contains("has not answered for 0.1 s"),
             qPrintable(f.device->status()));
}

void FaultsTest::a_call_whose_answer_is_too_late_fails()
{
    Timing timing = noHurry();
    timing.answer = 2s;
    Fixture f(timing);
    QVERIFY(f.connect());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().last().startsWith("/arm/line2"), patience);
    f.robot.log("base", "all settings are answered");
    QVERIFY(f.hears("1000 all settings are answered"));
    f.faults.setDelay(1h);
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QVERIFY(f.hears("1001 Switch torque on: not done. The service /arm/torque did not answer "
                    "within 2 s."));
    QCOMPARE(f.device->connectionState(), 3);
}

void FaultsTest::disconnecting_while_an_answer_waits_is_quiet()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setDelay(100ms);
    f.robot.answerTrigger("/arm/torque", false, "no power");
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().last().startsWith("/arm/torque"), patience);
    f.robot.log("base", "after the answer");
    QVERIFY(f.hears("1000 after the answer"));
    QVERIFY(f.device->disconnectDevice());
    QVERIFY(f.connect()); // which takes longer than the answer waits
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/control/release {}"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 1, patience);
    QCOMPARE(f.probe->calls.filter("no power"), QStringList());
}

void FaultsTest::disconnecting_while_the_connect_waits_is_quiet()
{
    Fixture f;
    f.faults.setDelay(100ms);
    QVERIFY(f.device->connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 1, patience);
    QVERIFY(f.device->disconnectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 0, patience);
    QVERIFY(f.connect());
    QVERIFY(f.hears("connected"));
    QCOMPARE(f.probe->calls.filter("1004 "), QStringList());
}

void FaultsTest::a_device_is_deleted_while_answers_wait()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setDelay(50ms);
    f.robot.answerTrigger("/arm/torque", false, "no power");
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().last().startsWith("/arm/torque"), patience);
    f.robot.log("base", "after the answer");
    QVERIFY(f.hears("1000 after the answer"));
    f.probe.reset();
    f.device.reset();
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 0, patience);
    bool isOver = false; // for the answer as well, which waited before
    QTimer::singleShot(60, this, [&] { isOver = true; });
    QTRY_VERIFY_WITH_TIMEOUT(isOver, patience);
}

void FaultsTest::one_message_in_n_is_dropped()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setDropInterval(3);
    for (int number = 1; number <= 7; ++number)
        f.robot.log("base", QString("line %1").arg(number));
    QVERIFY(f.hears("1000 line 7"));
    QCOMPARE(
        f.probe->calls.filter("1000 line"),
        QStringList({"1000 line 1", "1000 line 2", "1000 line 4", "1000 line 5", "1000 line 7"}));
    f.faults.setDropInterval(0);
    f.robot.log("base", "line 8");
    f.robot.log("base", "line 9");
    QVERIFY(f.hears("1000 line 9"));
    QCOMPARE(f.probe->count("1000 line 8"), 1);
}

void FaultsTest::each_topic_has_its_own_count()
{
    Fixture f;
    f.faults.setDropInterval(2);
    QVERIFY(f.connect());
    QList<int> scans;
    auto& variables = f.device->variables();
    connect(&variables, &host::device::variables::Variables::touched, this,
            [&] { scans << f.scanNumber(); });
    for (int number = 1; number <= 4; ++number) {
        f.robot.publish("/scan", scanMessage(number));
        f.robot.log("base", QString("line %1").arg(number));
    }
    f.robot.log("base", "line 5");
    QVERIFY(f.hears("1000 line 5"));
    QCOMPARE(scans, QList<int>({1, 3}));
    QCOMPARE(f.probe->calls.filter("1000 line"),
             QStringList({"1000 line 1", "1000 line 3", "1000 line 5"}));
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
    QVERIFY(f.hears("1000 \"a\" was not changed: the device refuses what is written."));
    QVERIFY(f.hears("1000 \"b\" was not changed: the device refuses what is written."));
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
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().last().startsWith("/arm/line2"), patience);
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

void FaultsTest::another_controller_makes_the_connection_passive_at_once()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setOtherController(true);
    QCOMPARE(f.device->connectionState(), 4);
    QVERIFY(f.device->status().contains("another client is in control (a pretended one)"));
    QVERIFY(f.hears("1005 4"));
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QVERIFY(f.hears("1001 Switch torque on: not done. Another client is in control of the robot."));
    f.faults.setScanFrozen(true); // another fault changes nothing about it
    QCOMPARE(f.probe->count("1005 4"), 1);

    f.faults.setOtherController(false);
    QCOMPARE(f.device->connectionState(), 3);
    QTRY_COMPARE_WITH_TIMEOUT(f.probe->count("1005 3"), 2, patience);
    QCOMPARE(f.probe->count("connected"), 1);
    QCOMPARE(f.probe->count("disconnected"), 0);
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/arm/torque {\"data\":true}"), patience);
    f.faults.setOtherController(true);
    QVERIFY(f.device->disconnectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/control/release {}"), patience);
}

void FaultsTest::another_controller_comes_before_the_connection()
{
    Fixture f;
    f.faults.setOtherController(true);
    QCOMPARE(f.device->connectionState(), -1);
    QVERIFY(f.connect(4));
    f.robot.log("base", "connected");
    QVERIFY(f.hears("1000 connected"));
    QVERIFY(!f.robot.calls().contains("/drive/disable {\"data\":false}"));
    f.faults.setOtherController(false);
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/drive/disable {\"data\":false}"), patience);

    f.faults.setOtherController(true);
    QVERIFY(f.device->disconnectDevice());
    f.faults.setOtherController(false);
    QCOMPARE(f.device->connectionState(), -1);
    QVERIFY(f.device->connectDevice());
    f.faults.setOtherController(true); // while it connects
    QVERIFY(f.isState(4));
    f.faults.setOtherController(false);
    QCOMPARE(f.device->connectionState(), 3);
}

void FaultsTest::a_robot_with_another_client_stays_passive()
{
    Fixture f;
    f.robot.answerTrigger("/control/acquire", false, "10.0.0.2:5000");
    QVERIFY(f.connect(4));
    const QString status = f.device->status();
    QVERIFY(status.contains("10.0.0.2:5000"));
    f.faults.setOtherController(true);
    f.faults.setOtherController(false);
    QCOMPARE(f.device->connectionState(), 4);
    QCOMPARE(f.device->status(), status);
    QVERIFY(f.hears("1005 4"));
    QCOMPARE(f.probe->count("1005 4"), 1);
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
