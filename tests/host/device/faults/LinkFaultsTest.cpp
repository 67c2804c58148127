// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "FaultsFixture.h"
#include "TestCase.h"
#include "tests/host/device/Settle.h"

#include "host/device/connection/SimulationDirectExecRole.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QtTest>

namespace link_faults_test {

using namespace std::chrono_literals;
using Fixture = FaultsFixture;
using host::device::Device;
using host::device::connection::Timing;
using olm::core::variant::Variant;

namespace {

constexpr int patience = 60000;

} // namespace

/// Each fault of the link strikes, and is gone when it ends.
class LinkFaultsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_dropped_link_ends_like_a_lost_one();
    void a_link_is_dropped_while_it_connects();
    void there_is_no_link_to_drop_without_a_connection();
    void the_next_connection_is_refused_like_by_a_machine_without_a_robot();
    void a_refusal_that_is_taken_back_never_strikes();
    void giving_up_before_the_refusal_is_quiet();
    void a_dropped_link_is_refused_when_it_is_opened_again();
    void the_connect_and_the_answers_are_late();
    void a_connect_that_is_too_late_fails();
    void a_call_whose_answer_is_too_late_fails();
    void disconnecting_while_an_answer_waits_is_quiet();
    void disconnecting_while_the_connect_waits_is_quiet();
    void one_message_in_n_is_dropped();
    void each_topic_has_its_own_count();
    void another_controller_makes_the_connection_passive_at_once();
    void another_controller_comes_before_the_connection();
    void a_robot_with_another_client_stays_passive();
};

void LinkFaultsTest::a_dropped_link_ends_like_a_lost_one()
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

void LinkFaultsTest::a_link_is_dropped_while_it_connects()
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

void LinkFaultsTest::there_is_no_link_to_drop_without_a_connection()
{
    const Fixture f;
    const QSignalSpy states(f.device.get(), &Device::connectionStateChanged);
    f.faults.dropLink();
    QCOMPARE(states.size(), 0);
    QCOMPARE(f.device->status(), QString("Not connected."));
}

void LinkFaultsTest::the_next_connection_is_refused_like_by_a_machine_without_a_robot()
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

void LinkFaultsTest::a_refusal_that_is_taken_back_never_strikes()
{
    const Fixture f;
    f.faults.setNextRefused(true);
    f.faults.setNextRefused(false);
    QVERIFY(f.connect());
    f.faults.setNextRefused(true); // the present connection is none that is opened
    QCOMPARE(f.device->connectionState(), 3);
    QVERIFY(f.faults.isNextRefused());
}

void LinkFaultsTest::giving_up_before_the_refusal_is_quiet()
{
    const Fixture f;
    f.faults.setNextRefused(true);
    QVERIFY(f.device->connectDevice());
    QVERIFY(f.device->disconnectDevice());
    QVERIFY(f.connect());
    QVERIFY(f.hears("connected"));
    QCOMPARE(f.probe->calls.filter("1004 "), QStringList());
}

void LinkFaultsTest::a_dropped_link_is_refused_when_it_is_opened_again()
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

void LinkFaultsTest::the_connect_and_the_answers_are_late()
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

void LinkFaultsTest::a_connect_that_is_too_late_fails()
{
    Timing timing = noHurry();
    timing.link.connect = 100ms;
    const Fixture f(timing);
    f.faults.setDelay(1h);
    QVERIFY(f.connect(-1));
    QVERIFY2(f.device->status().contains("has not answered for 0.1 s"),
             qPrintable(f.device->status()));
}

void LinkFaultsTest::a_call_whose_answer_is_too_late_fails()
{
    Timing timing = noHurry();
    timing.answer = 2s;
    Fixture f(timing);
    QVERIFY(f.connect());
    QVERIFY(settle(*f.device, f.robot, *f.probe, patience));
    f.faults.setDelay(1h);
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QVERIFY(f.hears("1001 Switch torque on: not done. The service /arm/torque did not answer "
                    "within 2 s."));
    QCOMPARE(f.device->connectionState(), 3);
}

void LinkFaultsTest::disconnecting_while_an_answer_waits_is_quiet()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setDelay(2s);
    f.robot.answerTrigger("/arm/torque", false, "no power");
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().last().startsWith("/arm/torque"), patience);
    f.robot.log("base", "after the answer");
    QVERIFY(f.hears("1000 after the answer"));
    QVERIFY(f.device->disconnectDevice());
    QVERIFY(f.connect()); // which waits as long itself
    QTRY_VERIFY_WITH_TIMEOUT(f.robot.calls().contains("/control/release {}"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(f.robot.clientCount(), 1, patience);
    QCOMPARE(f.probe->calls.filter("no power"), QStringList());
}

void LinkFaultsTest::disconnecting_while_the_connect_waits_is_quiet()
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

void LinkFaultsTest::one_message_in_n_is_dropped()
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

void LinkFaultsTest::each_topic_has_its_own_count()
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

void LinkFaultsTest::another_controller_makes_the_connection_passive_at_once()
{
    Fixture f;
    QVERIFY(f.connect());
    f.faults.setOtherController(true);
    QCOMPARE(f.device->connectionState(), 4);
    QVERIFY(f.device->status().contains("another client is in control (injected fault)"));
    QVERIFY(f.hears("1005 4"));
    f.probe->simulationDirectExec(SimulationDirectExecRole(1006), Variant());
    QVERIFY(f.hears("1001 Switch torque on: not done. The device is not in control of the robot. "
                    "To take control, choose Robot > Control."));
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

void LinkFaultsTest::another_controller_comes_before_the_connection()
{
    Fixture f;
    f.faults.setOtherController(true);
    QCOMPARE(f.device->connectionState(), -1);
    QVERIFY(f.connect(4));
    f.robot.log("base", "connected");
    QVERIFY(f.hears("1000 connected"));
    f.faults.setOtherController(false);
    QCOMPARE(f.device->connectionState(), 3);

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

void LinkFaultsTest::a_robot_with_another_client_stays_passive()
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

TEST_WITH_WINDOWS(LinkFaultsTest)

} // namespace link_faults_test

#include "LinkFaultsTest.moc"
