// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/names/NamesDialog.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/preferences/PseudoTranslator.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace names_dialog_test {

using namespace host::workbench::names;
using namespace host::workbench::plugin;
using namespace host::workbench::preferences;
using host::device::Device;
using host::device::connection::Connection;
using host::device::connection::Offer;
using host::device::connection::Remappings;
using host::workbench::EmbeddedRobot;

namespace {

/// The dialog of a device that can connect to a simulated robot.
struct Fixture
{
    Fixture()
    {
        device.overrideAddress(robot.address());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog, patience));
    }

    bool connect()
    {
        QSignalSpy readies(&device.offer(), &Offer::ready);
        return device.connectDevice() && (readies.count() > 0 || readies.wait(patience));
    }

    QLineEdit* field(const char* name) const
    {
        return dialog.findChild<QLineEdit*>(QLatin1String(name));
    }

    QString state(const char* name) const
    {
        return dialog.findChild<QLabel*>(name + QStringLiteral(" state"))->text();
    }

    QLabel* problem(const char* name) const
    {
        return dialog.findChild<QLabel*>(name + QStringLiteral(" problem"));
    }

    /// With the keyboard, and without leaving the field.
    void write(const char* name, const QString& text) const
    {
        field(name)->setFocus();
        field(name)->selectAll();
        if (text.isEmpty())
            QTest::keyClick(field(name), Qt::Key_Delete);
        QTest::keyClicks(field(name), text);
    }

    const QTemporaryDir settings;
    PluginEnvironment environment;
    const EmbeddedRobot robot{0};
    Device device{"Quandrel", settings.path(), environment};
    NamesDialog dialog{device, nullptr};
};

} // namespace

/// What the robot calls what is used of it, as people see and change it.
class NamesDialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void every_name_has_a_field_with_what_it_is_for();
    void a_name_is_in_effect_when_its_field_is_left_data();
    void a_name_is_in_effect_when_its_field_is_left();
    void a_dialog_that_is_deleted_leaves_its_field();
    void what_is_no_name_is_said_at_once_and_not_taken();
    void an_empty_field_becomes_the_standard_name();
    void all_become_standard_again();
    void a_name_that_is_set_elsewhere_is_shown();
    void the_state_is_that_of_the_robot_behind_the_connection();
    void what_the_robot_offers_of_the_same_type_can_be_chosen();
    void every_field_is_named_and_reached_by_the_keyboard();
    void another_language_is_shown_at_once();
};

void NamesDialogTest::every_name_has_a_field_with_what_it_is_for()
{
    const Fixture f;
    QStringList words;
    for (const QLabel* label : f.dialog.findChildren<QLabel*>())
        words += label->text();
    for (const Remappings::Entry& entry : Remappings::all()) {
        const auto* const field = f.dialog.findChild<QLineEdit*>(entry.name);
        QVERIFY2(field, qPrintable(entry.name));
        QCOMPARE(field->text(), entry.name);
        QVERIFY2(field->toolTip().contains(entry.type), qPrintable(field->toolTip()));
        QVERIFY2(words.contains(entry.purpose()), qPrintable(entry.purpose()));
    }
}

void NamesDialogTest::a_name_is_in_effect_when_its_field_is_left_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Tab") << int(Qt::Key_Tab);
}

void NamesDialogTest::a_name_is_in_effect_when_its_field_is_left()
{
    QFETCH(const int, key);
    Fixture f;
    f.write("/scan", " /base_scan ");
    QCOMPARE(f.device.remappings().theirs("/scan"), QString("/scan"));
    QVERIFY(!f.field("/scan")->font().bold());
    QTest::keyClick(f.field("/scan"), Qt::Key(key));
    QCOMPARE(f.device.remappings().theirs("/scan"), QString("/base_scan"));
    QCOMPARE(f.field("/scan")->text(), QString("/base_scan"));
    QVERIFY(f.field("/scan")->font().bold());
    QVERIFY(f.dialog.isVisible());
}

void NamesDialogTest::a_dialog_that_is_deleted_leaves_its_field()
{
    Fixture f;
    auto dialog = std::make_unique<NamesDialog>(f.device, nullptr);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get(), patience));
    auto* const field = dialog->findChild<QLineEdit*>("/scan");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "/base_scan");
    dialog.reset();
    QCOMPARE(f.device.remappings().theirs("/scan"), QString("/base_scan"));
}

void NamesDialogTest::what_is_no_name_is_said_at_once_and_not_taken()
{
    Fixture f;
    QVERIFY(!f.problem("/scan")->isVisible());
    f.write("/scan", "/2scan");
    QVERIFY(f.problem("/scan")->isVisible());
    QCOMPARE(f.problem("/scan")->text(), Remappings::fault("/2scan"));
    QTest::keyClick(f.field("/scan"), Qt::Key_Return);
    QVERIFY(f.device.remappings().set("/odom", "/o"));
    QCOMPARE(f.device.remappings().theirs("/scan"), QString("/scan"));
    QCOMPARE(f.field("/scan")->text(), QString("/2scan")); // to be corrected
    QVERIFY(f.problem("/scan")->isVisible());
    f.write("/scan", "/scan2");
    QVERIFY(!f.problem("/scan")->isVisible());
    f.write("/scan", "/2scan");
    f.dialog.close();
    f.dialog.show();
    QCOMPARE(f.field("/scan")->text(), f.device.remappings().theirs("/scan"));
    QVERIFY(!f.problem("/scan")->isVisible());
}

void NamesDialogTest::an_empty_field_becomes_the_standard_name()
{
    Fixture f;
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    f.write("/scan", "");
    QVERIFY(!f.problem("/scan")->isVisible());
    QTest::keyClick(f.field("/scan"), Qt::Key_Return);
    QCOMPARE(f.device.remappings().theirs("/scan"), QString("/scan"));
    QCOMPARE(f.field("/scan")->text(), QString("/scan"));
}

void NamesDialogTest::all_become_standard_again()
{
    Fixture f;
    QVERIFY(f.device.remappings().set("/arm/torque", "/power"));
    f.write("/scan", "/2scan");
    QTest::mouseClick(f.dialog.findChild<QPushButton*>("reset"), Qt::LeftButton);
    QCOMPARE(f.device.remappings().theirs("/arm/torque"), QString("/arm/torque"));
    QCOMPARE(f.field("/arm/torque")->text(), QString("/arm/torque"));
    QCOMPARE(f.field("/scan")->text(), QString("/scan"));
    QVERIFY(!f.problem("/scan")->isVisible());
}

void NamesDialogTest::a_name_that_is_set_elsewhere_is_shown()
{
    Fixture f;
    f.write("/odom", "/wheels");
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QCOMPARE(f.field("/scan")->text(), QString("/base_scan"));
    QCOMPARE(f.field("/odom")->text(), QString("/wheels")); // somebody is at it
}

void NamesDialogTest::the_state_is_that_of_the_robot_behind_the_connection()
{
    Fixture f;
    QCOMPARE(f.state("/scan"), QString("not connected"));
    qRegisterMetaType<plugin::plugin::DataRole>("plugin::plugin::DataRole"); // for the spy
    QSignalSpy lines(&f.device.offer(), &Offer::message);
    QVERIFY(f.connect());
    QCOMPARE(int(lines.count()), 0); // the simulated robot has all
    QTRY_COMPARE_WITH_TIMEOUT(f.state("/scan"), QString("offered"), patience);
    QCOMPARE(f.state("/drive/disable"), QString("offered"));
    QCOMPARE(f.state("/tf_static"), QString("not offered, not needed"));
    QVERIFY(f.device.remappings().set("/scan", "/base_scan"));
    QCOMPARE(f.state("/scan"), QString("not offered"));
    QVERIFY(f.device.remappings().set("/scan", "/odom"));
    QCOMPARE(f.state("/scan"), QString("another type: nav_msgs/Odometry"));
    QVERIFY(f.device.disconnectDevice());
    QCOMPARE(f.state("/scan"), QString("not connected"));
}

void NamesDialogTest::what_the_robot_offers_of_the_same_type_can_be_chosen()
{
    Fixture f;
    QVERIFY(f.connect());
    auto* const field = f.field("/arm/line0_enabled");
    auto* const list = field->completer()->popup();
    f.write("/arm/line0_enabled", "/");
    QTRY_VERIFY_WITH_TIMEOUT(list->isVisible(), patience);
    QCOMPARE(list->model()->rowCount(), 6); // all that is std_msgs/Bool
    QTest::keyClick(list, Qt::Key_Escape);
    f.write("/arm/line0_enabled", "DIS");
    QTRY_VERIFY_WITH_TIMEOUT(list->isVisible(), patience);
    QCOMPARE(list->model()->rowCount(), 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(0, 0)).center());
    QCOMPARE(f.device.remappings().theirs("/arm/line0_enabled"), QString("/drive/disabled"));
    QCOMPARE(field->text(), QString("/drive/disabled"));
}

void NamesDialogTest::every_field_is_named_and_reached_by_the_keyboard()
{
    const Fixture f;
    QSet<const QWidget*> reached;
    QWidget* widget = f.field("/scan");
    do {
        reached.insert(widget);
        widget = widget->nextInFocusChain();
    } while (widget != f.field("/scan"));
    for (const Remappings::Entry& entry : Remappings::all()) {
        const auto* const field = f.dialog.findChild<QLineEdit*>(entry.name);
        QVERIFY2(field->accessibleName().contains(entry.name), qPrintable(entry.name));
        QVERIFY2(reached.contains(field), qPrintable(entry.name));
    }
    for (const auto* button : f.dialog.findChildren<QPushButton*>())
        QVERIFY(!button->autoDefault()); // Return belongs to the fields
}

void NamesDialogTest::another_language_is_shown_at_once()
{
    Fixture f;
    PseudoTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_VERIFY_WITH_TIMEOUT(f.state("/scan").startsWith('['), patience);
    for (const QLabel* label : f.dialog.findChildren<QLabel*>())
        QVERIFY2(label->text().isEmpty() || label->text().startsWith('[') ||
                     Remappings::find(label->text()),
                 qPrintable(label->text()));
    QVERIFY(f.dialog.windowTitle().startsWith('['));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
}

TEST_WITH_WINDOWS(NamesDialogTest)

} // namespace names_dialog_test

#include "NamesDialogTest.moc"
