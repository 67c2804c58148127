// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ManipulatorDialog.h"

#include "ContextMenu.h"
#include "Delivery.h"
#include "Meanwhile.h"
#include "PositionDelegate.h"
#include "PositionModel.h"
#include "PositionView.h"
#include "Positions.h"
#include "TestCase.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace manipulator_dialog_test {

namespace {

/// The arm's tab on a host with three of five positions.
struct Tab
{
    FakeHost host;
    std::unique_ptr<ManipulatorDialog> dialog;

    Tab()
    {
        setPositions(host, 3, 5);
        dialog = std::make_unique<ManipulatorDialog>(host, nullptr);
        host.calls.clear();
    }

    template <class Widget>
    Widget* child() const
    {
        return dialog->findChild<Widget*>();
    }

    QList<QCheckBox*> lines() const { return dialog->findChildren<QCheckBox*>(); }

    QString log() const { return child<olm::qt::log::View>()->toPlainText(); }

    QLayout* row(int index) const { return dialog->layout()->itemAt(index)->layout(); }

    /// False where no menu came up at the cell, or no such entry in it.
    bool chooseAt(int row, int column, const QString& entry) const
    {
        dialog->resize(1200, 600);
        dialog->show();
        if (!QTest::qWaitForWindowExposed(dialog.get(), 20000))
            return false;
        host.calls.clear();
        auto* const view = child<PositionView>();
        const Meanwhile meanwhile([&entry] { return openMenu() && choose(*openMenu(), entry); });
        QTest::mousePress(view->viewport(), Qt::RightButton, Qt::NoModifier,
                          view->visualRect(view->model()->index(row, column)).center());
        return meanwhile.isDone();
    }
};

const char* const lineNames[] = {"line0_enabled", "line1_enabled", "line2_enabled"};

} // namespace

class ManipulatorDialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_controls_stand_above_the_table_and_the_log();
    void the_table_takes_the_room_and_the_log_its_least();
    void texts_are_set_by_translating();
    void a_switched_line_is_written_and_sent_data();
    void a_switched_line_is_written_and_sent();
    void a_partially_checked_line_is_off();
    void a_change_of_a_line_on_the_device_is_not_shown();
    void another_sender_switches_no_line();
    void the_torque_is_toggled_by_a_command();
    void a_position_is_added_by_the_device();
    void a_position_is_removed_by_the_table();
    void a_bundle_reaches_the_table();
    void messages_of_the_arm_are_logged_data();
    void messages_of_the_arm_are_logged();
    void other_messages_are_not_logged();
    void the_menu_of_the_log_ends_with_the_help();
    void the_connection_changes_nothing();
};

void ManipulatorDialogTest::the_controls_stand_above_the_table_and_the_log()
{
    const Tab tab;
    auto* const layout = qobject_cast<QVBoxLayout*>(tab.dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 2);

    auto* const controls = qobject_cast<QHBoxLayout*>(tab.row(0));
    QVERIFY(controls);
    QCOMPARE(controls->contentsMargins(), QMargins(3, 3, 3, 3));
    QCOMPARE(controls->count(), 3);
    auto* const lines = qobject_cast<QVBoxLayout*>(controls->itemAt(0)->layout());
    QVERIFY(lines);
    QCOMPARE(lines->count(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(lines->itemAt(i)->widget(), tab.lines()[i]);
        QCOMPARE(tab.lines()[i]->parentWidget(), tab.dialog.get());
        QCOMPARE(lines->stretch(i), 0);
        QVERIFY(!lines->itemAt(i)->alignment());
        QCOMPARE(controls->stretch(i), 0);
    }
    auto* const torque = qobject_cast<QVBoxLayout*>(controls->itemAt(1)->layout());
    QVERIFY(torque);
    QCOMPARE(torque->count(), 1);
    QCOMPARE(torque->itemAt(0)->widget(), tab.child<QPushButton>());
    QVERIFY(controls->itemAt(2)->spacerItem());
    QVERIFY(controls->itemAt(2)->expandingDirections() & Qt::Horizontal);

    auto* const splitter = qobject_cast<QSplitter*>(layout->itemAt(1)->widget());
    QVERIFY(splitter);
    QCOMPARE(splitter->orientation(), Qt::Vertical);
    QCOMPARE(splitter->count(), 2);
    auto* const view = qobject_cast<PositionView*>(splitter->widget(0));
    QVERIFY(view);
    QCOMPARE(view->model(), tab.child<PositionModel>());
    QVERIFY(qobject_cast<PositionDelegate*>(view->itemDelegate()));
    QCOMPARE(view->itemDelegate()->parent(), tab.dialog.get());
    QVERIFY(qobject_cast<olm::qt::log::View*>(splitter->widget(1)));
}

void ManipulatorDialogTest::the_table_takes_the_room_and_the_log_its_least()
{
    const Tab tab;
    tab.dialog->resize(1200, 700);
    tab.dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(tab.dialog.get(), 20000));

    const QList<int> sizes = tab.child<QSplitter>()->sizes();
    const int least = tab.child<olm::qt::log::View>()->minimumSizeHint().height();
    QVERIFY2(sizes[1] <= least, qPrintable(QString::number(sizes[1])));
    QVERIFY2(sizes[0] > 5 * sizes[1], qPrintable(QString::number(sizes[0])));

    // In a window that has it all, both have what they asked for.
    auto* const splitter = tab.child<QSplitter>();
    const int all = 10000 + splitter->handleWidth() + least;
    tab.dialog->resize(400, tab.dialog->height() + all - splitter->height());
    const QList<int> wanted{10000, least};
    QTRY_COMPARE(splitter->sizes(), wanted);
}

void ManipulatorDialogTest::texts_are_set_by_translating()
{
    Tab tab;
    qRegisterMetaType<Qt::Orientation>(); // for the spy
    QSignalSpy headers(tab.child<PositionModel>(), &PositionModel::headerDataChanged);
    for (const QCheckBox* line : tab.lines())
        QCOMPARE(line->text(), QString());
    QCOMPARE(tab.child<QPushButton>()->text(), QString());

    tab.dialog->translate();
    QCOMPARE(tab.lines()[0]->text(), QString("Line 1 enabled"));
    QCOMPARE(tab.lines()[1]->text(), QString("Line 2 enabled"));
    QCOMPARE(tab.lines()[2]->text(), QString("Line 3 enabled"));
    QCOMPARE(tab.child<QPushButton>()->text(), QString("Toggle torque"));
    QCOMPARE(headers.size(), 2);

    tab.host.dictionary = {{"Line", "%1 Leitung"}, {"enabled", "an"}, {"Toggle torque", "Kraft"}};
    tab.dialog->translate();
    QCOMPARE(tab.lines()[2]->text(), QString("%1 Leitung 3 an"));
    QCOMPARE(tab.child<QPushButton>()->text(), QString("Kraft"));
    QCOMPARE(headers.size(), 4);
    QCOMPARE(changes(tab.host), QStringList());
}

void ManipulatorDialogTest::a_switched_line_is_written_and_sent_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("first") << 0 << QStringList{"write config line0_enabled", "exec 1008"};
    QTest::newRow("second") << 1 << QStringList{"write config line1_enabled", "exec 1009"};
    QTest::newRow("third") << 2 << QStringList{"write config line2_enabled", "exec 1010"};
}

void ManipulatorDialogTest::a_switched_line_is_written_and_sent()
{
    QFETCH(int, line);
    Tab tab;
    for (const bool on : {true, false}) {
        tab.host.calls.clear();

        tab.lines()[line]->click();

        QTEST(tab.host.calls, "expected");
        bool isBool = false;
        QCOMPARE((tab.host.variables[{Kind::Config, lineNames[line]}].get<bool>(&isBool)), on);
        QVERIFY(isBool);
        QCOMPARE(tab.host.sent[1008 + line].get<bool>(&isBool), on);
        QVERIFY(isBool);
    }
}

void ManipulatorDialogTest::a_partially_checked_line_is_off()
{
    Tab tab;
    QCheckBox* const line = tab.lines()[1];
    line->setTristate();
    line->setCheckState(Qt::Checked);
    tab.host.calls.clear();

    line->setCheckState(Qt::PartiallyChecked);

    QCOMPARE(tab.host.calls, (QStringList{"write config line1_enabled", "exec 1009"}));
    QVERIFY((!tab.host.variables[{Kind::Config, "line1_enabled"}].get<bool>()));
    QVERIFY(!tab.host.sent[1009].get<bool>());
}

void ManipulatorDialogTest::a_change_of_a_line_on_the_device_is_not_shown()
{
    Tab tab;
    change(tab.host, Kind::Config, "line0_enabled", true);

    QVERIFY(!tab.lines()[0]->isChecked());
    QCOMPARE(changes(tab.host), QStringList());
}

void ManipulatorDialogTest::another_sender_switches_no_line()
{
    const Tab tab;
    QVERIFY(QMetaObject::invokeMethod(tab.dialog.get(), "on_line_stateChanged", Q_ARG(int, 2)));

    QCOMPARE(changes(tab.host), QStringList());
}

void ManipulatorDialogTest::the_torque_is_toggled_by_a_command()
{
    Tab tab;
    tab.child<QPushButton>()->click();

    QCOMPARE(tab.host.calls, QStringList("exec 1006"));
    QVERIFY(tab.host.sent[1006].isEmpty());
}

void ManipulatorDialogTest::a_position_is_added_by_the_device()
{
    Tab tab;
    QVERIFY(tab.chooseAt(1, 4, "Add position"));

    QCOMPARE(changes(tab.host), QStringList("exec 1007"));
    QVERIFY(tab.host.sent[1007].isEmpty());
    QCOMPARE(storedNumber(tab.host, "num_pos"), 3);
}

void ManipulatorDialogTest::a_position_is_removed_by_the_table()
{
    const Tab tab;
    QVERIFY(tab.chooseAt(1, 4, "Remove position 2"));

    QCOMPARE(changes(tab.host),
             (QStringList{"write config pos1", "write config pos1_name", "write config num_pos"}));
    QCOMPARE(storedNumber(tab.host, "num_pos"), 2);
    QCOMPARE(storedText(tab.host, "pos1_name"), QString("third"));
}

void ManipulatorDialogTest::a_bundle_reaches_the_table()
{
    Tab tab;
    auto* const model = tab.child<PositionModel>();
    const QSignalSpy changed(model, &PositionModel::dataChanged);
    const QSignalSpy reset(model, &PositionModel::modelReset);

    change(tab.host, Kind::Config, "pos1_name", std::string("Home"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(reset.size(), 0);
    change(tab.host, Kind::Config, "num_pos", 4);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(reset.size(), 1);
    QCOMPARE(changes(tab.host), QStringList());
}

void ManipulatorDialogTest::messages_of_the_arm_are_logged_data()
{
    QTest::addColumn<Variant>("value");
    QTest::addColumn<QString>("logged");
    QTest::newRow("text") << Variant(QString("Arm at home.")) << "Arm at home.";
    QTest::newRow("nothing") << Variant() << "";
    QTest::newRow("a byte string") << Variant(std::string("Arm at home.")) << "";
    QTest::newRow("number") << Variant(7) << "";
}

void ManipulatorDialogTest::messages_of_the_arm_are_logged()
{
    QFETCH(Variant, value);
    QFETCH(QString, logged);
    Tab tab;
    message(tab.host, 1001, QString("first"));
    message(tab.host, 1001, value);
    message(tab.host, 1001, QString("last"));

    QCOMPARE(tab.log(), "first\n" + logged + "\nlast");
    QCOMPARE(tab.host.calls, QStringList());
}

void ManipulatorDialogTest::other_messages_are_not_logged()
{
    Tab tab;
    for (const int role : {-1, 0, 1, 1000, 1002, 1003, 1004, 1005, 1007})
        message(tab.host, role, QString("text"));

    QCOMPARE(tab.log(), QString());
    QCOMPARE(tab.child<olm::qt::log::View>()->document()->blockCount(), 1);
    QCOMPARE(tab.host.calls, QStringList());
}

void ManipulatorDialogTest::the_menu_of_the_log_ends_with_the_help()
{
    const Tab tab;
    QString last;
    QVERIFY(
        withContextMenu(*tab.child<olm::qt::log::View>()->viewport(),
                        [&last](const QMenu& menu) { last = menu.actions().constLast()->text(); }));
    QCOMPARE(last, QString("Help on manipulator"));
}

void ManipulatorDialogTest::the_connection_changes_nothing()
{
    Tab tab;
    tab.lines()[0]->click();
    message(tab.host, 1001, QString("Arm at home."));
    for (const bool connected : {true, false}) {
        tab.host.calls.clear();
        if (connected)
            tab.dialog->connected();
        else
            tab.dialog->disconnected();
        QCOMPARE(tab.host.calls, QStringList());
        QVERIFY(tab.lines()[0]->isChecked());
        QVERIFY(!tab.lines()[1]->isChecked());
        QCOMPARE(tab.log(), QString("Arm at home."));
        for (const QWidget* widget : tab.dialog->findChildren<QWidget*>())
            QVERIFY(widget->isEnabled());
    }
}

TEST_WITH_WINDOWS(ManipulatorDialogTest)

} // namespace manipulator_dialog_test

#include "ManipulatorDialogTest.moc"
