// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/workbench/faults/FaultsMenu.h"
#include "host/workbench/faults/MessageDialog.h"
#include "host/workbench/preferences/PseudoTranslator.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/device/Probe.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace faults_menu_test {

using namespace std::chrono_literals;
using namespace host::workbench::faults;
using namespace host::workbench::preferences;
using host::device::Device;
using Kind = plugin::gui::VariableKind;

namespace {

/// The menu of a device with a widget on it, and a robot to connect to.
struct Fixture
{
    Fixture()
    {
        const Factory factory(
            [](const char*, const char*, plugin::gui::DeviceDelegate& delegate) -> Probe* {
                return new Probe(delegate);
            });
        probe.reset(dynamic_cast<Probe*>(device.loadWidget(factory, "dialog")));
        robot.obey();
        device.overrideAddress(robot.address());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    }

    static host::device::connection::Timing timing()
    {
        host::device::connection::Timing timing;
        timing.frame = 5ms;
        timing.answer = 60s;
        timing.link = {60s, 2s, 60s};
        return timing;
    }

    bool connect(int state = 3)
    {
        return device.connectDevice() &&
               QTest::qWaitFor([&] { return device.connectionState() == state; }, patience);
    }

    bool hears(const char* call) const
    {
        return QTest::qWaitFor([&] { return probe->count(call) > 0; }, patience);
    }

    QAction* entry(const char* name) const
    {
        return menu->findChild<QAction*>(QLatin1String(name), Qt::FindDirectChildrenOnly);
    }

    QMenu* submenu(const char* name) const { return menu->findChild<QMenu*>(QLatin1String(name)); }

    /// The entry of a submenu with this text.
    QAction* entry(const char* name, const QString& text) const
    {
        const auto actions = submenu(name)->actions();
        for (QAction* action : actions) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }

    /// As by a person who opens the submenu "Wrong type"; null where the variable is not offered.
    QAction* wrongType(const char* variable) const
    {
        Q_EMIT submenu("types")->aboutToShow();
        return submenu("types")->findChild<QAction*>(QLatin1String(variable));
    }

    template <class Widget>
    Widget* field(const char* name) const
    {
        return window.findChild<MessageDialog*>()->findChild<Widget*>(QLatin1String(name));
    }

    const QTemporaryDir folder;
    TestEnvironment environment;
    FakeRobot robot;
    Device device{"Quandrel", folder.path(), environment, timing()};
    host::device::faults::Faults& faults = device.faults();
    std::unique_ptr<Probe> probe;
    QWidget window;
    FaultsMenu* menu = new FaultsMenu(device, &window);
};

} // namespace

/// The faults as developers switch them on and off.
class FaultsMenuTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_link_is_dropped_while_there_is_one();
    void the_next_connection_is_refused_and_the_entry_unchecks_itself();
    void another_client_takes_control_and_leaves();
    void answers_are_as_slow_as_chosen();
    void messages_are_lost_as_often_as_chosen();
    void the_scan_is_frozen();
    void writes_are_refused();
    void what_widgets_follow_can_have_a_wrong_type();
    void what_is_wrong_can_be_put_right_though_nobody_follows_it_any_more();
    void all_faults_end_together();
    void the_menu_shows_what_was_set_elsewhere();
    void every_entry_says_what_it_does();
    void another_language_is_shown_at_once();
    void a_message_is_sent_out_of_the_dialog();
    void a_known_role_brings_its_type();
    void a_value_that_is_none_is_said_and_not_sent();
};

void FaultsMenuTest::the_link_is_dropped_while_there_is_one()
{
    Fixture f;
    QVERIFY(!f.entry("drop")->isEnabled());
    QVERIFY(f.connect());
    QVERIFY(f.entry("drop")->isEnabled());
    f.entry("drop")->trigger();
    QCOMPARE(f.device.connectionState(), -1);
    QVERIFY(f.device.status().contains("is lost"));
    QVERIFY(!f.entry("drop")->isEnabled());
}

void FaultsMenuTest::the_next_connection_is_refused_and_the_entry_unchecks_itself()
{
    Fixture f;
    f.entry("refuse")->trigger();
    QVERIFY(f.entry("refuse")->isChecked());
    QVERIFY(f.connect(-1));
    QVERIFY(f.device.status().contains("refuses the connection"));
    QVERIFY(!f.entry("refuse")->isChecked());
    QVERIFY(f.connect());
    f.entry("refuse")->trigger();
    f.entry("refuse")->trigger();
    QVERIFY(!f.faults.isNextRefused());
}

void FaultsMenuTest::another_client_takes_control_and_leaves()
{
    Fixture f;
    QVERIFY(f.connect());
    f.entry("controller")->trigger();
    QCOMPARE(f.device.connectionState(), 4);
    f.entry("controller")->trigger();
    QCOMPARE(f.device.connectionState(), 3);
}

void FaultsMenuTest::answers_are_as_slow_as_chosen()
{
    const Fixture f;
    QVERIFY(f.entry("delay", "Off")->isChecked());
    const std::pair<const char*, std::chrono::milliseconds> delays[] = {
        {"500 ms", 500ms}, {"2 s", 2s}, {"10 s", 10s}, {"Off", 0ms}};
    for (const auto& [text, delay] : delays) {
        f.entry("delay", text)->trigger();
        QVERIFY(f.faults.delay() == delay);
        for (const QAction* action : f.submenu("delay")->actions())
            QCOMPARE(action->isChecked(), action->text() == text);
    }
}

void FaultsMenuTest::messages_are_lost_as_often_as_chosen()
{
    Fixture f;
    QVERIFY(f.connect());
    f.entry("lose", "One in 2")->trigger();
    for (int number = 1; number <= 5; ++number)
        f.robot.log("base", QString("line %1").arg(number));
    QVERIFY(f.hears("1000 line 5"));
    QCOMPARE(f.probe->calls.filter("line"),
             QStringList({"1000 line 1", "1000 line 3", "1000 line 5"}));
    f.entry("lose", "One in 5")->trigger();
    QCOMPARE(f.faults.dropInterval(), 5);
    f.entry("lose", "One in 20")->trigger();
    QCOMPARE(f.faults.dropInterval(), 20);
    f.entry("lose", "Off")->trigger();
    QCOMPARE(f.faults.dropInterval(), 0);
}

void FaultsMenuTest::the_scan_is_frozen()
{
    const Fixture f;
    f.entry("freeze")->trigger();
    QVERIFY(f.faults.isScanFrozen());
    f.entry("freeze")->trigger();
    QVERIFY(!f.faults.isScanFrozen());
}

void FaultsMenuTest::writes_are_refused()
{
    const Fixture f;
    f.probe->writeConfigVariable("a", 1);
    f.entry("writes")->trigger();
    f.probe->writeConfigVariable("a", 2);
    QCOMPARE(f.probe->readConfigVariable("a").get<int>(), 1);
    f.entry("writes")->trigger();
    f.probe->writeConfigVariable("a", 3);
    QCOMPARE(f.probe->readConfigVariable("a").get<int>(), 3);
}

void FaultsMenuTest::what_widgets_follow_can_have_a_wrong_type()
{
    Fixture f;
    QVERIFY(!f.wrongType("num_pos"));
    QVERIFY(!f.submenu("types")->actions().first()->isEnabled());
    f.device.variables().follow(Kind::Config, "num_pos");
    f.device.variables().follow(Kind::Input, "R&D");
    f.device.variables().follow(Kind::Config, "pos9"); // which is not there
    QCOMPARE(f.wrongType("num_pos")->text(), QString("num_pos\tconfig"));
    QCOMPARE(f.wrongType("R&D")->text(), QString("R&&D\tinput"));
    QCOMPARE(f.submenu("types")->actions().size(), 2);
    f.wrongType("num_pos")->trigger();
    bool isNumber = true;
    f.probe->readConfigVariable("num_pos").get<int>(&isNumber);
    QVERIFY(!isNumber);
    QVERIFY(f.wrongType("num_pos")->isChecked());
    QVERIFY(!f.wrongType("R&D")->isChecked());
    f.wrongType("num_pos")->trigger();
    f.probe->readConfigVariable("num_pos").get<int>(&isNumber);
    QVERIFY(isNumber);
}

void FaultsMenuTest::what_is_wrong_can_be_put_right_though_nobody_follows_it_any_more()
{
    const Fixture f;
    f.faults.setWrongType({Kind::Config, "num_pos"}, true);
    QVERIFY(f.wrongType("num_pos")->isChecked());
    f.wrongType("num_pos")->trigger();
    QVERIFY(!f.faults.isAnyOn());
}

void FaultsMenuTest::all_faults_end_together()
{
    const Fixture f;
    QVERIFY(!f.entry("end")->isEnabled());
    for (const char* name : {"refuse", "controller", "freeze", "writes"})
        f.entry(name)->trigger();
    f.entry("delay", "2 s")->trigger();
    f.entry("lose", "One in 5")->trigger();
    f.faults.setWrongType({Kind::Config, "num_pos"}, true);
    QVERIFY(f.entry("end")->isEnabled());
    f.entry("end")->trigger();
    QVERIFY(!f.faults.isAnyOn());
    QVERIFY(!f.entry("end")->isEnabled());
    for (const char* name : {"refuse", "controller", "freeze", "writes"})
        QVERIFY2(!f.entry(name)->isChecked(), name);
    QVERIFY(f.entry("delay", "Off")->isChecked());
    QVERIFY(f.entry("lose", "Off")->isChecked());
}

void FaultsMenuTest::the_menu_shows_what_was_set_elsewhere()
{
    const Fixture f;
    f.faults.setScanFrozen(true);
    f.faults.setDelay(500ms);
    f.faults.setDropInterval(7); // a strength that the menu does not offer
    QVERIFY(f.entry("freeze")->isChecked());
    QVERIFY(f.entry("delay", "500 ms")->isChecked());
    for (const QAction* action : f.submenu("lose")->actions())
        QVERIFY(!action->isChecked());
}

void FaultsMenuTest::every_entry_says_what_it_does()
{
    const Fixture f;
    QVERIFY(f.menu->toolTipsVisible());
    QSet<QString> mnemonics;
    int entries = 0;
    for (const QAction* action : f.menu->actions()) {
        if (action->isSeparator())
            continue;
        ++entries;
        QVERIFY2(action->toolTip().endsWith('.'), qPrintable(action->text()));
        mnemonics.insert(action->text().section('&', 1).left(1).toLower());
    }
    QCOMPARE(entries, 10);
    QCOMPARE(mnemonics.size(), entries);
}

void FaultsMenuTest::another_language_is_shown_at_once()
{
    Fixture f;
    f.entry("send")->trigger();
    PseudoTranslator pseudo;
    QVERIFY(QCoreApplication::installTranslator(&pseudo));
    QTRY_VERIFY_WITH_TIMEOUT(f.menu->title().startsWith('['), patience);
    QStringList texts{f.menu->title()};
    QList<QAction*> actions = f.menu->actions();
    actions += f.submenu("delay")->actions() + f.submenu("lose")->actions();
    f.wrongType("none");
    actions += f.submenu("types")->actions();
    for (const QAction* action : qAsConst(actions)) {
        if (!action->isSeparator())
            texts << action->text() << action->toolTip();
    }
    const auto* dialog = f.window.findChild<MessageDialog*>();
    texts << dialog->windowTitle() << f.field<QPushButton>("send")->text();
    for (const QLabel* label : dialog->findChildren<QLabel*>()) {
        if (label->objectName() != "problem")
            texts << label->text();
    }
    for (int item = 0; item < f.field<QComboBox>("meaning")->count(); ++item)
        texts << f.field<QComboBox>("meaning")->itemText(item);
    f.faults.setScanFrozen(true);
    texts << f.faults.summary();
    for (const QString& text : qAsConst(texts))
        QVERIFY2(text.startsWith('[') && text.endsWith(']'), qPrintable(text));
}

void FaultsMenuTest::a_message_is_sent_out_of_the_dialog()
{
    const Fixture f;
    QVERIFY(!f.window.findChild<MessageDialog*>()); // until somebody wants it
    f.entry("send")->trigger();
    const auto* const dialog = f.window.findChild<MessageDialog*>();
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->isModal());
    QCOMPARE(f.field<QSpinBox>("role")->value(), 1000);
    QTest::keyClicks(f.field<QLineEdit>("value"), "a line");
    QTest::keyClick(f.field<QLineEdit>("value"), Qt::Key_Return);
    QVERIFY(f.hears("1000 a line"));
    QVERIFY(dialog->isVisible()); // for the next one
    f.field<QSpinBox>("role")->setValue(-7);
    f.field<QComboBox>("type")->setCurrentText("int");
    QTest::keyClicks(f.field<QLineEdit>("value"), "42"); // in place of the last one
    f.field<QPushButton>("send")->click();
    QVERIFY(f.hears("-7 42"));
}

void FaultsMenuTest::a_known_role_brings_its_type()
{
    const Fixture f;
    f.entry("send")->trigger();
    auto* const meaning = f.field<QComboBox>("meaning");
    auto* const role = f.field<QSpinBox>("role");
    const auto type = [&] { return f.field<QComboBox>("type")->currentText(); };
    const auto choose = [&](const QString& text) {
        meaning->setCurrentText(text);
        Q_EMIT meaning->activated(meaning->currentIndex()); // as by a person
    };
    QCOMPARE(meaning->currentText(), QString("Line of the base log"));
    QCOMPARE(type(), QString("QString"));
    choose("State of the connection");
    QCOMPARE(role->value(), 1005);
    QCOMPARE(type(), QString("int"));
    role->setValue(1002);
    QCOMPARE(meaning->currentText(), QString("Line of the laser log"));
    QCOMPARE(type(), QString("QString"));
    role->setValue(1003);
    QCOMPARE(meaning->currentText(), QString("Another one"));
    QCOMPARE(type(), QString("QString")); // as before
    choose("Emphasised line of the base log");
    QCOMPARE(role->value(), 1004);
    choose("Another one");
    QCOMPARE(role->value(), 1004); // until somebody writes one
}

void FaultsMenuTest::a_value_that_is_none_is_said_and_not_sent()
{
    const Fixture f;
    f.entry("send")->trigger();
    f.field<QSpinBox>("role")->setValue(1005);
    QTest::keyClicks(f.field<QLineEdit>("value"), "three");
    f.field<QPushButton>("send")->click();
    QVERIFY(f.field<QLabel>("problem")->isVisible());
    QVERIFY(f.field<QLabel>("problem")->text().contains("\"three\""));
    QTest::keyClicks(f.field<QLineEdit>("value"), "3");
    f.field<QPushButton>("send")->click();
    QVERIFY(!f.field<QLabel>("problem")->isVisible());
    QVERIFY(f.hears("1005 3"));
    QCOMPARE(f.probe->calls.filter("1005"), QStringList("1005 3"));
}

TEST_WITH_WINDOWS(FaultsMenuTest)

} // namespace faults_menu_test

#include "FaultsMenuTest.moc"
