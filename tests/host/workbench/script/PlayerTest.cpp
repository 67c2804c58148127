// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/workbench/window/FullWindow.h"

#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/script/Player.h"
#include "host/workbench/script/Scene.h"
#include "host/workbench/script/Stage.h"

#include <QFile>
#include <QtTest>

namespace player_test {

using full_window::FullWindow;
using host::workbench::script::Player;
using host::workbench::script::Scene;
using host::workbench::script::Stage;
using host::workbench::script::text::ScriptText;

namespace {

/// Plays scripts in one window.
struct Case : Stage
{
    host::workbench::window::Window& window() override { return full.window; }

    QString open(const QStringList& options) override { return options.join('+'); }

    /// Returns why the script failed.
    QString play(const QString& text)
    {
        const ScriptText script(text, Player::grammar());
        if (!script.problems().isEmpty())
            return script.problems().join('\n');
        Scene scene(*this, output.path(), "/scripts");
        Player player(scene, script, "a.script");
        bool isOver = false;
        QObject::connect(&player, &Player::finished, &player, [&isOver] { isOver = true; });
        player.start();
        [&] { QTRY_VERIFY_WITH_TIMEOUT(isOver, patience); }();
        return player.problem();
    }

    const QTemporaryDir output;
    FullWindow full;
};

} // namespace

/// Player: what a script does in the window, and what it says of what it does not find.
class PlayerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_a_device_does_reaches_its_plugin();
    void a_person_can_be_replaced();
    void a_device_is_recorded();
    void what_is_missing_is_said_with_the_line_and_what_is_there();
    void an_open_menu_keeps_a_window_from_being_closed();
};

void PlayerTest::what_a_device_does_reaches_its_plugin()
{
    const host::workbench::EmbeddedRobot robot(0);
    Case c;
    c.full.device.setDefaultAddress(robot.address());
    const QString problem = c.play("set config disableDriveSystem true\n"
                                   "expect variable config disableDriveSystem true\n"
                                   "expect call update\n"
                                   "open tab 1\n"
                                   "expect control QCheckBox checked\n"
                                   "send 1000 \"said by a script\"\n"
                                   "expect text \"said by a script\" in BaseDialog\n"
                                   "expect call on_messageReceived 1000 \"said by a script\"\n"
                                   "send 1005 3 as int\n"
                                   "expect control AddressInput in toolBar disabled\n"
                                   "send 1005 -1 as int\n"
                                   "expect control AddressInput in toolBar enabled\n"
                                   "fault refuse\n"
                                   "expect text \"refused\" in faults\n"
                                   "fault end\n"
                                   "connect\n"
                                   "wait for connected\n"
                                   "fault controller\n"
                                   "wait for passive\n"
                                   "fault controller off\n"
                                   "wait for connected\n"
                                   "stop\n"
                                   "expect control releaseStop shown\n"
                                   "disconnect\n"
                                   "wait for disconnected\n");
    QCOMPARE(problem, QString());
}

void PlayerTest::a_person_can_be_replaced()
{
    Case c;
    const QString problem = c.play("open tab 1\n"
                                   "click QCheckBox in BaseDialog\n"
                                   "expect write disableDriveSystem true\n"
                                   "expect variable config disableDriveSystem true\n"
                                   "type \"a.robot\" into AddressInput in toolBar\n"
                                   "expect text a.robot in toolBar\n"
                                   "select 320x240 in Resolution\n"
                                   "choose view Events\n");
    QCOMPARE(problem, QString());
}

void PlayerTest::a_device_is_recorded()
{
    Case c;
    QCOMPARE(c.play("record a.bag\nopen tab 2\nstop recording\n"), QString());
    QCOMPARE(QDir(c.output.path()).entryList(QDir::Files), QStringList("a.bag"));
    QVERIFY(c.play("record /no/such/folder/a.bag").startsWith("a.script:1: record /no/such/"));
}

void PlayerTest::what_is_missing_is_said_with_the_line_and_what_is_there()
{
    const QList<QPair<QString, QString>> missing = {
        {"expect text nowhere in status", "it shows \"Not connected"},
        {"expect no text \"Not connected\" in status", "it shows \"Not connected"},
        {"expect control status hidden", "it is shown, with \"Not connected"},
        {"click Nothing", "there is no control \"Nothing\" in sight; there are: "},
        {"click \"OLM GmbH Quandrel ConnectButton\"", "there are 2 controls "},
        {"click parts cell 99 1", "it has 15 rows and 3 columns"},
        {"open tab Nothing", "there is no tab \"Nothing\"; there are: Base, Manipulator, "},
        {"show dock Nothing", "there is no dock \"Nothing\"; there are: "},
        {"choose Robot Nothing", "there is no entry \"Nothing\"; there are: Connect, "},
        {"device Nothing", "there is no such device; there are: Quandrel"},
        {"expect variable config num_pos 99", "it is 2"},
        {"set config num_pos two", "\"two\" is not a whole number"},
        {"set config nothing 2", "the variable has no value yet"},
        {"expect write nothing", "there was none"},
        {"expect call nothing", "there were: "},
        {"wait for connected", "the state is -1: Not connected"},
        {"wait for motion 1", "it has moved by 0.00 m"},
        {"connect \"a b\"", "\"a b\""},
        {"picture /dev/null/a.png", "/dev/null/a.png cannot be written: "},
    };
    Case c;
    for (const auto& [statement, seen] : missing) {
        const QString problem = c.play("# a comment\n" + statement + " within 0.05\nstop\n");
        const QString begin = QString("a.script:2: %1 within 0.05: ").arg(statement);
        QVERIFY2(problem.startsWith(begin), qPrintable(problem));
        QVERIFY2(problem.contains(seen), qPrintable(problem));
    }
}

void PlayerTest::an_open_menu_keeps_a_window_from_being_closed()
{
    Case c;
    QCOMPARE(c.play("restart --a b"), QString("a.script:1: restart --a b: --a+b"));
    QCOMPARE(c.play("choose faults\nrestart"),
             QString("a.script:2: restart: a menu or a dialog is open; close it first"));
    QCOMPARE(c.play("press Escape\nexpect control FaultsMenu hidden"), QString());
}

TEST_WITH_WINDOWS(PlayerTest)

} // namespace player_test

#include "PlayerTest.moc"
