// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/TrustBar.h"
#include "tests/host/device/FakeRobot.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace trust_bar_test {

using host::device::Device;
using host::workbench::plugin::PluginEnvironment;
using host::workbench::window::TrustBar;
using namespace std::chrono_literals;

namespace {

struct Fixture
{
    Fixture()
    {
        robot->obey();
        device.overrideAddress(robot->address());
    }

    static host::device::connection::Timing timing()
    {
        host::device::connection::Timing timing;
        timing.frame = 20ms;
        timing.firstPause = 20ms;
        return timing;
    }

    /// Connects, and waits for the question or the end of connecting.
    void connectDevice()
    {
        QVERIFY(device.connectDevice());
        QTRY_VERIFY_WITH_TIMEOUT(device.connectionState() == -1 || device.connectionState() == 3,
                                 patience);
    }

    QAbstractButton& button(const char* name) const
    {
        return *bar.findChild<QAbstractButton*>(name);
    }

    QString words() const { return bar.findChild<QLabel*>()->text(); }

    const QTemporaryDir settings;
    PluginEnvironment environment;
    std::unique_ptr<FakeRobot> robot = std::make_unique<FakeRobot>("self-signed.pem");
    Device device{"Quandrel", settings.path(), environment, timing()};
    TrustBar bar{device};
};

} // namespace

/// TrustBar: what a person is asked about a robot's certificate.
class TrustBarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_asks_once_and_connects_when_the_answer_is_yes();
    void the_answer_no_ends_it();
    void another_address_ends_it_so_that_nobody_else_is_connected_to();
    void a_lost_link_is_not_joined_again_over_a_question();
};

void TrustBarTest::it_asks_once_and_connects_when_the_answer_is_yes()
{
    Fixture f;
    QVERIFY(f.bar.isHidden());
    f.connectDevice();
    QVERIFY(!f.bar.isHidden());
    const QString server = f.robot->address().section('/', -1);
    QVERIFY2(f.words().startsWith("Trust " + server + "? Its certificate cannot be verified: "),
             qPrintable(f.words()));
    f.button("trust").click();
    QVERIFY(f.bar.isHidden());
    QTRY_COMPARE_WITH_TIMEOUT(f.device.connectionState(), 3, patience);
    QVERIFY(f.bar.isHidden());
}

void TrustBarTest::the_answer_no_ends_it()
{
    Fixture f;
    f.connectDevice();
    QVERIFY(!f.bar.isHidden());
    f.button("refuse").click();
    QVERIFY(f.bar.isHidden());
    QCOMPARE(f.device.connectionState(), -1);
    f.connectDevice();
    QVERIFY(!f.bar.isHidden());
}

void TrustBarTest::another_address_ends_it_so_that_nobody_else_is_connected_to()
{
    Fixture f;
    f.connectDevice();
    QVERIFY(!f.bar.isHidden());
    const auto write = [&f](const std::string& address) {
        f.device.write(plugin::gui::VariableKind::Config, "ipAddress", address);
    };
    write(f.robot->address().toStdString());
    QVERIFY(!f.bar.isHidden()); // it is about this one
    write("127.0.0.1:1");
    QVERIFY(f.bar.isHidden());
    QVERIFY(!f.device.connection().certificates().question());
}

void TrustBarTest::a_lost_link_is_not_joined_again_over_a_question()
{
    Fixture f;
    f.device.reconnection().setAutomatic(true);
    f.connectDevice();
    f.button("trust").click();
    QTRY_COMPARE_WITH_TIMEOUT(f.device.connectionState(), 3, patience);

    const auto port = f.robot->address().section(':', -1).toUShort();
    f.robot.reset();
    f.robot = std::make_unique<FakeRobot>("self-signed-anew.pem", port);
    f.robot->obey();
    QTRY_VERIFY_WITH_TIMEOUT(!f.bar.isHidden(), patience);
    QVERIFY2(f.words().contains("has changed since it was trusted"), qPrintable(f.words()));
    QTRY_VERIFY_WITH_TIMEOUT(!f.device.reconnection().isTrying(), patience);
    QCOMPARE(f.device.connectionState(), -1);
    QVERIFY(f.device.reconnection().isLost());
    f.button("trust").click();
    QTRY_COMPARE_WITH_TIMEOUT(f.device.connectionState(), 3, patience);
}

TEST_WITH_WINDOWS(TrustBarTest)

} // namespace trust_bar_test

#include "TrustBarTest.moc"
