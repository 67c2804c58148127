// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ServerIdentity.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/NoHurry.h"
#include "tests/host/device/Probe.h"

#include "host/device/Device.h"
#include "host/device/connection/Connection.h"
#include "host/device/connection/Reconnection.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace certificates_test {

using namespace host::device::connection;

namespace {

constexpr int patience = 60000;

/// A program that knows one device, and can be started again.
struct Program
{
    explicit Program(const QTemporaryDir& folder)
    {
        problem = connection.certificates().load(folder.path(), "robot");
    }

    /// Where it ends up.
    int connectTo(const FakeRobot& robot)
    {
        connection.close();
        const bool isEnd =
            connection.open(robot.address()) && QTest::qWaitFor(
                                                    [&] {
                                                        const int state = connection.state();
                                                        return state == -1 || state == 3;
                                                    },
                                                    patience);
        return isEnd ? connection.state() : -2;
    }

    Certificates& certificates() { return connection.certificates(); }

    Connection connection{noHurry()};
    QString problem;
};

std::unique_ptr<FakeRobot> robotWith(const QString& certificate, quint16 port = 0)
{
    auto robot = std::make_unique<FakeRobot>(certificate, port);
    robot->obey();
    return robot;
}

} // namespace

/// Certificates: what a device believes, with a robot that shows one.
class CertificatesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void an_unknown_certificate_is_refused_with_its_fingerprint_and_a_question();
    void what_a_person_trusts_is_remembered_for_the_device_and_not_asked_again();
    void a_changed_certificate_asks_again_and_says_so();
    void a_dismissed_question_is_asked_anew_by_the_next_attempt();
    void a_question_ends_when_another_address_is_entered();
    void the_command_lines_certificates_and_authorities_are_believed_data();
    void the_command_lines_certificates_and_authorities_are_believed();
    void a_damaged_file_trusts_nobody();
    void a_robot_that_wants_authentication_is_told_apart();
    void a_robot_that_ignores_all_may_want_authentication();
};

void CertificatesTest::an_unknown_certificate_is_refused_with_its_fingerprint_and_a_question()
{
    const QTemporaryDir folder;
    Program program(folder);
    const auto robot = robotWith("self-signed.pem");
    QVERIFY(!program.certificates().question());
    QCOMPARE(program.connectTo(*robot), -1);

    const QString fingerprint = Certificates::fingerprint(certificate("self-signed.pem"));
    QVERIFY2(QRegularExpression("^([0-9A-F]{2} ){31}[0-9A-F]{2}$").match(fingerprint).hasMatch(),
             qPrintable(fingerprint));
    const QString words = program.connection.status();
    for (const QString& part :
         {robot->address(), fingerprint, QString("nobody but itself"), QString("--trust FILE")})
        QVERIFY2(words.contains(part), qPrintable(words));
    QVERIFY(!words.contains("changed"));
    const auto question = program.certificates().question();
    QVERIFY(question);
    QCOMPARE(question->server, robot->address().section('/', -1));
    QCOMPARE(question->fingerprint, fingerprint);
    QVERIFY(words.contains(question->words));
    QCOMPARE(robot->clientCount(), 0);
}

void CertificatesTest::what_a_person_trusts_is_remembered_for_the_device_and_not_asked_again()
{
    const QTemporaryDir folder;
    const auto robot = robotWith("self-signed.pem");
    {
        Program program(folder);
        QCOMPARE(program.connectTo(*robot), -1);
        program.certificates().trust();
        QVERIFY(!program.certificates().question());
        QCOMPARE(program.connectTo(*robot), 3);
    }
    Program again(folder);
    QCOMPARE(again.problem, QString());
    QCOMPARE(again.connectTo(*robot), 3);
    QVERIFY(!again.certificates().question());

    const QTemporaryDir other;
    Program otherDevice(other);
    QCOMPARE(otherDevice.connectTo(*robot), -1);
}

void CertificatesTest::a_changed_certificate_asks_again_and_says_so()
{
    const QTemporaryDir folder;
    Program program(folder);
    auto robot = robotWith("self-signed.pem");
    const auto port = robot->address().section(':', -1).toUShort();
    QCOMPARE(program.connectTo(*robot), -1);
    program.certificates().trust();
    QCOMPARE(program.connectTo(*robot), 3);
    program.connection.close();
    robot.reset();

    robot = robotWith("self-signed-anew.pem", port);
    QCOMPARE(program.connectTo(*robot), -1);
    const QString words = program.connection.status();
    for (const QString& part : {QString("has changed since it was trusted"),
                                Certificates::fingerprint(certificate("self-signed.pem")),
                                Certificates::fingerprint(certificate("self-signed-anew.pem"))})
        QVERIFY2(words.contains(part), qPrintable(words));
    program.certificates().trust();
    QCOMPARE(program.connectTo(*robot), 3);
}

void CertificatesTest::a_dismissed_question_is_asked_anew_by_the_next_attempt()
{
    const QTemporaryDir folder;
    Program program(folder);
    const auto robot = robotWith("self-signed.pem");
    QCOMPARE(program.connectTo(*robot), -1);
    QSignalSpy changes(&program.certificates(), &Certificates::questionChanged);
    program.certificates().dismiss();
    QCOMPARE(changes.count(), 1);
    QVERIFY(!program.certificates().question());
    program.certificates().trust(); // of nothing
    QCOMPARE(program.connectTo(*robot), -1);
    QVERIFY(program.certificates().question());
}

void CertificatesTest::a_question_ends_when_another_address_is_entered()
{
    const QTemporaryDir folder;
    TestEnvironment environment;
    host::device::Device device("robot", folder.path(), environment, noHurry());
    const auto enter = [&device](const char* address) {
        device.write(plugin::gui::VariableKind::Config, "ipAddress", std::string(address));
    };
    enter("wss://robot.lan");
    Certificates& certificates = device.connection().certificates();
    certificates.objection({"robot.lan", 443, true, {}}, certificate("self-signed.pem"), "reason");
    enter("wss://robot.lan");
    QVERIFY(certificates.question());
    enter("wss://other.lan");
    QVERIFY(!certificates.question());
}

void CertificatesTest::the_command_lines_certificates_and_authorities_are_believed_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("believed");
    QTest::addColumn<int>("state");
    QTest::newRow("itself") << "self-signed.pem"
                            << "self-signed.pem" << 3;
    QTest::newRow("another") << "self-signed.pem"
                             << "self-signed-anew.pem" << -1;
    QTest::newRow("its authority") << "issued.pem"
                                   << "authority.pem" << 3;
    QTest::newRow("its authority, for another host") << "issued-elsewhere.pem"
                                                     << "authority.pem" << -1;
    QTest::newRow("itself, for another host") << "issued-elsewhere.pem"
                                              << "issued-elsewhere.pem" << 3;
}

void CertificatesTest::the_command_lines_certificates_and_authorities_are_believed()
{
    QFETCH(QString, shown);
    QFETCH(QString, believed);
    const QTemporaryDir folder;
    Program program(folder);
    program.certificates().believe({certificate(believed)});
    const auto robot = robotWith(shown);
    QTEST(program.connectTo(*robot), "state");
}

void CertificatesTest::a_damaged_file_trusts_nobody()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("robot.certificates"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"127.0.0.1:1": 7})");
    file.close();
    const Program program(folder);
    QVERIFY2(program.problem.contains("the fingerprint of \"127.0.0.1:1\" is not text"),
             qPrintable(program.problem));
}

void CertificatesTest::a_robot_that_wants_authentication_is_told_apart()
{
    const QTemporaryDir folder;
    Program program(folder);
    FakeRobot robot;
    robot.demandAuthentication();
    QCOMPARE(program.connectTo(robot), -1);
    const QString words = program.connection.status();
    QVERIFY2(words.contains("This program cannot log in"), qPrintable(words));
}

void CertificatesTest::a_robot_that_ignores_all_may_want_authentication()
{
    Timing timing = noHurry();
    timing.answer = std::chrono::milliseconds(100);
    Connection connection{timing};
    FakeRobot robot;
    robot.ignore("/control/acquire");
    robot.ignore("/rosapi/get_param");
    QVERIFY(connection.open(robot.address()));
    QTRY_COMPARE_WITH_TIMEOUT(connection.state(), -1, patience);
    QVERIFY2(connection.status().contains("this program cannot log in"),
             qPrintable(connection.status()));
}

TEST_WITH_WINDOWS(CertificatesTest)

} // namespace certificates_test

#include "CertificatesTest.moc"
