// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/Lamp.h"
#include "host/workbench/window/StatusLine.h"
#include "tests/host/device/FakeRobot.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

namespace status_line_test {

using namespace host::workbench::plugin;
using namespace host::workbench::window;
using host::device::Device;
using host::workbench::EmbeddedRobot;

namespace {

struct Fixture
{
    explicit Fixture(const QString& address, const QString& robot = QString())
        : device("Quandrel", settings.path(), environment, timing()),
          line(device, robot)
    {
        device.overrideAddress(address);
        line.show();
    }

    static host::device::connection::Timing timing()
    {
        host::device::connection::Timing timing;
        timing.frame = std::chrono::milliseconds(20);
        timing.link.pingInterval =
            std::chrono::minutes(1); // a pong would make late data count as new
        return timing;
    }

    QLabel& label(const char* name) const { return *line.findChild<QLabel*>(name); }
    QString text(const char* name) const { return label(name).text(); }
    QString concern() const { return label("age").property("concern").toString(); }

    const QTemporaryDir settings;
    PluginEnvironment environment;
    Device device;
    StatusLine line;
};

/// Answers no handshake; what a link was opened to can be cut with close().
struct Refusal
{
    Refusal() { socket.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress); }

    QString address() const { return QString("127.0.0.1:%1").arg(socket.localPort()); }

    QTcpSocket socket; // bound and not listening, so that nobody else opens the port
};

} // namespace

/// StatusLine: what people are told about a connection, with the simulated robot.
class StatusLineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void without_a_connection_there_are_words_and_no_times();
    void a_connection_tells_whom_and_for_how_long();
    void data_that_stops_is_marked_as_stale_with_its_age();
    void data_that_comes_late_is_marked_with_its_delay();
    void a_failure_is_the_status_until_the_next_attempt_and_then_the_last_error();
    void the_last_error_can_be_put_away_until_there_is_another();
    void the_height_stays_whatever_is_shown();
    void a_lost_link_is_joined_again_in_sight_unless_somebody_gives_up();
    void faults_on_purpose_are_named_as_long_as_they_are_on();
    void the_simulated_robot_is_named_if_there_is_one();
};

void StatusLineTest::without_a_connection_there_are_words_and_no_times()
{
    const Fixture fixture("127.0.0.1:1");
    QCOMPARE(fixture.text("status"), QString("Not connected."));
    QVERIFY(fixture.label("duration").isHidden());
    QVERIFY(fixture.label("age").isHidden());
    QVERIFY(fixture.label("failure").isHidden());
}

void StatusLineTest::a_connection_tells_whom_and_for_how_long()
{
    const EmbeddedRobot robot(0);
    Fixture fixture(robot.address());
    QVERIFY(fixture.device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(fixture.text("status").contains(robot.address()), patience);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience);
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.label("duration").isHidden(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("age"), QString("Data is up to date"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(QRegularExpression("^Connected for 0:00:0[1-9]$")
                                 .match(fixture.text("duration"))
                                 .hasMatch(),
                             patience);

    QVERIFY(fixture.device.disconnectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(fixture.label("duration").isHidden(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.label("age").isHidden(), patience);
    QVERIFY(!fixture.device.connection().dataAge());
    QVERIFY(!fixture.device.connection().connectedFor());
    QTRY_VERIFY_WITH_TIMEOUT(fixture.label("failure").isHidden(), patience);
}

void StatusLineTest::data_that_stops_is_marked_as_stale_with_its_age()
{
    FakeRobot robot;
    robot.obey();
    Fixture fixture(robot.address());
    QVERIFY(fixture.device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("age"), QString("No data yet"), patience);
    QCOMPARE(fixture.concern(), QString());
    QTRY_COMPARE_WITH_TIMEOUT(fixture.concern(), QString("amber"), patience);

    robot.publish("/joint_states", {});
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("age"), QString("Data is up to date"), patience);
    QCOMPARE(fixture.concern(), QString());
    const QImage fresh = fixture.label("age").grab().toImage();
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("age"), QString("Newest data: 2 s old"), patience);
    QCOMPARE(fixture.concern(), QString("amber"));
    const QColor background = fixture.label("age").grab().toImage().pixelColor(0, 0);
    QVERIFY(background != fresh.pixelColor(0, 0));

    robot.drop();
    QTRY_VERIFY_WITH_TIMEOUT(fixture.label("age").isHidden(), patience);
}

void StatusLineTest::data_that_comes_late_is_marked_with_its_delay()
{
    FakeRobot robot;
    robot.obey();
    Fixture fixture(robot.address());
    QVERIFY(fixture.device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience);
    const auto takePicture = [&](int second) {
        const QCborMap stamp{{QStringLiteral("secs"), second}, {QStringLiteral("nsecs"), 0}};
        robot.publish("/camera/camera_info",
                      {{QStringLiteral("header"), QCborMap{{QStringLiteral("stamp"), stamp}}},
                       {QStringLiteral("width"), 640},
                       {QStringLiteral("height"), 480}});
    };
    takePicture(100);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("age"), QString("Data is up to date"), patience);
    takePicture(94); // as if it had been on its way for six seconds
    QTRY_VERIFY_WITH_TIMEOUT(
        QRegularExpression("^Data is [67] s late$").match(fixture.text("age")).hasMatch(),
        patience);
    QCOMPARE(fixture.concern(), QString("red"));
    takePicture(102);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("age"), QString("Data is up to date"), patience);
    QCOMPARE(fixture.concern(), QString());
}

void StatusLineTest::a_failure_is_the_status_until_the_next_attempt_and_then_the_last_error()
{
    const Refusal refusal;
    Fixture fixture(refusal.address());
    QVERIFY(fixture.device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(fixture.text("status").contains("Check the port"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.label("failure").isHidden(), patience);

    const EmbeddedRobot robot(0);
    fixture.device.overrideAddress(robot.address());
    QVERIFY(fixture.device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.label("failure").isHidden(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.text("failure").startsWith("Last error, "), patience);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.text("failure").contains(refusal.address()), patience);
    QTRY_VERIFY_WITH_TIMEOUT(fixture.text("failure").contains("Check the port"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience);
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.label("failure").isHidden(), patience);
}

void StatusLineTest::the_last_error_can_be_put_away_until_there_is_another()
{
    const Refusal refusal;
    const EmbeddedRobot robot(0);
    Fixture fixture(refusal.address());
    const auto failAndConnect = [&] {
        fixture.device.overrideAddress(refusal.address());
        QVERIFY(fixture.device.connectDevice());
        QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), -1, patience);
        fixture.device.overrideAddress(robot.address());
        QVERIFY(fixture.device.connectDevice());
        QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience);
        QTRY_VERIFY_WITH_TIMEOUT(!fixture.label("failure").isHidden(), patience);
    };
    auto& dismiss = *fixture.line.findChild<QAbstractButton*>("dismiss");
    QVERIFY(dismiss.isHidden());
    failAndConnect();
    QVERIFY(!dismiss.isHidden());
    dismiss.click();
    QVERIFY(dismiss.isHidden() && fixture.label("failure").isHidden());
    QVERIFY(fixture.device.disconnectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(fixture.text("status"), QString("Not connected."), patience);
    QVERIFY(fixture.label("failure").isHidden());
    failAndConnect();
}

void StatusLineTest::the_height_stays_whatever_is_shown()
{
    const Refusal refusal;
    Fixture fixture(refusal.address(), "127.0.0.1:4711");
    fixture.line.resize(320, fixture.line.height());
    const int height = fixture.line.height();
    const auto isAsHigh = [&] {
        return fixture.line.minimumHeight() == height && fixture.line.maximumHeight() == height &&
               fixture.line.layout()->minimumSize().height() <= height;
    };
    QVERIFY(isAsHigh());
    QVERIFY(fixture.device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(fixture.text("status").contains("Check the port"), patience);
    QVERIFY(isAsHigh());
    const EmbeddedRobot robot(0);
    fixture.device.overrideAddress(robot.address());
    QVERIFY(fixture.device.connectDevice());
    fixture.device.faults().setScanFrozen(true);
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.label("duration").isHidden(), patience);
    QVERIFY(!fixture.label("failure").isHidden() && !fixture.label("faults").isHidden());
    QVERIFY(isAsHigh());
    QVERIFY(!fixture.label("failure").toolTip().isEmpty()); // which says what has no room
}

void StatusLineTest::a_lost_link_is_joined_again_in_sight_unless_somebody_gives_up()
{
    FakeRobot robot;
    robot.obey();
    Fixture fixture(robot.address());
    fixture.device.reconnection().setAutomatic(true);
    auto& giveUp = *fixture.line.findChild<QAbstractButton*>("giveUp");
    const auto lamp = [&] {
        return fixture.line.findChild<Lamp*>()->pixmap(Qt::ReturnByValue).toImage();
    };
    const QImage closed = lamp();
    QVERIFY(giveUp.isHidden() && fixture.label("retry").isHidden());

    const auto lose = [&] {
        QVERIFY(fixture.device.connectDevice() || fixture.device.connectionState() == 3);
        QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience);
        robot.drop();
        QTRY_VERIFY_WITH_TIMEOUT(!giveUp.isHidden(), patience);
    };
    lose();
    QCOMPARE(fixture.text("retry"), QString("Connects again in 1 s"));
    QVERIFY(lamp() != closed);
    QTRY_COMPARE_WITH_TIMEOUT(fixture.device.connectionState(), 3, patience); // by itself
    QTRY_VERIFY_WITH_TIMEOUT(giveUp.isHidden(), patience);

    lose();
    giveUp.click();
    QTRY_VERIFY_WITH_TIMEOUT(giveUp.isHidden(), patience);
    QVERIFY(fixture.label("retry").isHidden());
    QVERIFY(!fixture.device.reconnection().isTrying());
    QVERIFY(lamp() != closed); // it is lost all the same
    QVERIFY(!fixture.device.disconnectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(lamp(), closed, patience);
}

void StatusLineTest::faults_on_purpose_are_named_as_long_as_they_are_on()
{
    Fixture fixture("127.0.0.1:1");
    QVERIFY(fixture.label("faults").isHidden());
    fixture.device.faults().setScanFrozen(true);
    QVERIFY(!fixture.label("faults").isHidden());
    QCOMPARE(fixture.text("faults"), fixture.device.faults().summary());
    QVERIFY(fixture.text("faults").contains("scan"));
    fixture.device.faults().endAll();
    QVERIFY(fixture.label("faults").isHidden());
}

void StatusLineTest::the_simulated_robot_is_named_if_there_is_one()
{
    const Fixture with("127.0.0.1:1", "127.0.0.1:4711");
    QCOMPARE(with.text("robot"), QString("Simulated robot: 127.0.0.1:4711"));
    const Fixture without("127.0.0.1:1");
    QVERIFY(!without.line.findChild<QLabel*>("robot"));
}

TEST_WITH_WINDOWS(StatusLineTest)

} // namespace status_line_test

#include "StatusLineTest.moc"
