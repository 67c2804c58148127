// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionTable.h"
#include "TestCase.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

namespace position_editing_test {

/// Cells of the table of positions edited with mouse and keyboard, down to what is written.
class PositionEditingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_name_is_stored_with_return();
    void a_target_is_stored_with_return_and_the_shown_speed();
    void an_unchanged_target_is_stored_as_it_was_shown();
    void escape_stores_nothing_data();
    void escape_stores_nothing();
    void typing_on_a_cell_begins_an_edit();
    void the_tabulator_stores_and_goes_on_to_the_next_cell();
    void a_press_on_another_cell_stores_the_edit();
    void letters_are_no_target();
    void a_change_of_the_cell_is_shown_in_its_editor();
    void a_change_of_another_cell_leaves_the_editor();
    void an_edit_of_a_short_position_fills_it_up();
    void a_single_click_edits_nothing();
    void a_count_below_zero_is_an_empty_table();

private:
    /// The editor that a double click opens, or null.
    static QWidget* edit(const PositionTable& table, int row, int column);
};

QWidget* PositionEditingTest::edit(const PositionTable& table, int row, int column)
{
    QWidget* const viewport = table.view().viewport();
    const QPoint place = table.place(row, column);
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
    table.host.calls.clear();
    QWidget* const focus = QApplication::focusWidget();
    return focus && viewport->isAncestorOf(focus) ? focus : nullptr;
}

void PositionEditingTest::a_name_is_stored_with_return()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    auto* const line = qobject_cast<QLineEdit*>(edit(table, 1, 0));
    QVERIFY(line);
    QCOMPARE(line->text(), QString("second"));
    QCOMPARE(line->geometry(), table.view().visualRect(table.view().model()->index(1, 0)));

    QTest::keyClicks(line, " Home [1] ");
    QCOMPARE(changes(table.host), QStringList());
    QTest::keyClick(line, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos1_name"));
    QCOMPARE(storedText(table.host, "pos1_name"), QString(" Home [1] "));
}

void PositionEditingTest::a_target_is_stored_with_return_and_the_shown_speed()
{
    PositionTable table(3, 5);
    Values values = countedValues(18);
    values[6] = 90.4f;
    values[7] = 30.4f;
    table.host.set(Kind::Config, "pos2", values);
    QVERIFY(table.show());
    auto* const target = qobject_cast<QSpinBox*>(edit(table, 2, 4));
    QVERIFY(target);
    QCOMPARE(target->value(), 90);

    QTest::keyClicks(target, "120");
    QTest::keyClick(target, Qt::Key_Up);
    QCOMPARE(changes(table.host), QStringList());
    QTest::keyClick(target, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos2"));
    values[6] = 121;
    values[7] = 30;
    QVERIFY(storedValues(table.host, "pos2") == values);
}

void PositionEditingTest::an_unchanged_target_is_stored_as_it_was_shown()
{
    PositionTable table(1, 5);
    table.host.set(Kind::Config, "pos0", valuesOf({-12.4f, 200.6f}));
    QVERIFY(table.show());
    QWidget* const target = edit(table, 0, 1);
    QVERIFY(target);

    QTest::keyClick(target, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos0"));
    QCOMPARE(storedValues(table.host, "pos0")[0], 0.0f);
    QCOMPARE(storedValues(table.host, "pos0")[1], 201.0f);
}

void PositionEditingTest::escape_stores_nothing_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("name") << 0;
    QTest::newRow("axis") << 4;
}

void PositionEditingTest::escape_stores_nothing()
{
    QFETCH(int, column);
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    const QPointer<QWidget> editor(edit(table, 1, column));
    QVERIFY(editor);

    QTest::keyClicks(editor, "77");
    QTest::keyClick(editor, Qt::Key_Escape);

    QTRY_VERIFY(!editor);
    QCOMPARE(changes(table.host), QStringList());
}

void PositionEditingTest::typing_on_a_cell_begins_an_edit()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    QTest::mouseClick(table.view().viewport(), Qt::LeftButton, Qt::NoModifier, table.place(1, 2));

    QTest::keyClick(&table.view(), Qt::Key_8);
    QWidget* const target = QApplication::focusWidget();
    QVERIFY(qobject_cast<QSpinBox*>(target));
    QTest::keyClick(target, Qt::Key_5);
    QTest::keyClick(target, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos1"));
    QCOMPARE(storedValues(table.host, "pos1")[2], 85.0f);
    QCOMPARE(storedValues(table.host, "pos1")[3], 5.0f);
}

void PositionEditingTest::the_tabulator_stores_and_goes_on_to_the_next_cell()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    QWidget* const name = edit(table, 1, 0);
    QVERIFY(name);

    QTest::keyClicks(name, "Home");
    QTest::keyClick(name, Qt::Key_Tab);
    QTRY_COMPARE(changes(table.host), QStringList("write config pos1_name"));
    QTRY_VERIFY(qobject_cast<QSpinBox*>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), "33");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);

    QTRY_COMPARE(changes(table.host), (QStringList{"write config pos1_name", "write config pos1"}));
    QCOMPARE(storedText(table.host, "pos1_name"), QString("Home"));
    QCOMPARE(storedValues(table.host, "pos1")[0], 33.0f);
    QTRY_VERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
}

void PositionEditingTest::a_press_on_another_cell_stores_the_edit()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    QWidget* const target = edit(table, 1, 2);
    QVERIFY(target);
    QTest::keyClicks(target, "77");

    QTest::mouseClick(table.view().viewport(), Qt::LeftButton, Qt::NoModifier, table.place(2, 5));

    QTRY_COMPARE(changes(table.host), QStringList("write config pos1"));
    QCOMPARE(storedValues(table.host, "pos1")[2], 77.0f);
}

void PositionEditingTest::letters_are_no_target()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    auto* const target = qobject_cast<QSpinBox*>(edit(table, 1, 2));
    QVERIFY(target);

    QTest::keyClicks(target, "a-3x.0e0");
    QCOMPARE(target->text(), QString("300"));
    QTest::keyClick(target, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos1"));
    QCOMPARE(storedValues(table.host, "pos1")[2], 300.0f);
}

void PositionEditingTest::a_change_of_the_cell_is_shown_in_its_editor()
{
    PositionTable table(3, 5);
    QVERIFY(table.show());
    auto* const target = qobject_cast<QSpinBox*>(edit(table, 1, 1));
    QVERIFY(target);

    change(table.host, Kind::Config, "pos1", countedValues(18));
    QCOMPARE(target->value(), 1);
    QTest::keyClick(target, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos1"));
    QVERIFY(storedValues(table.host, "pos1") == countedValues(18));
}

void PositionEditingTest::a_change_of_another_cell_leaves_the_editor()
{
    PositionTable table(3, 5);
    QVERIFY(table.show());
    auto* const target = qobject_cast<QSpinBox*>(edit(table, 1, 1));
    QVERIFY(target);
    QTest::keyClicks(target, "77");

    change(table.host, Kind::Config, "pos0", countedValues(18));
    change(table.host, Kind::Config, "pos1_name", std::string("Home"));

    QCOMPARE(target->value(), 77);
    QVERIFY(target->hasFocus());
    QCOMPARE(changes(table.host), QStringList());
}

void PositionEditingTest::an_edit_of_a_short_position_fills_it_up()
{
    PositionTable table(1, 5);
    table.host.set(Kind::Config, "pos0", countedValues(4));
    QVERIFY(table.show());
    QWidget* const target = edit(table, 0, 9);
    QVERIFY(target);

    QTest::keyClicks(target, "12");
    QTest::keyClick(target, Qt::Key_Return);

    QTRY_COMPARE(changes(table.host), QStringList("write config pos0"));
    QVERIFY(storedValues(table.host, "pos0") ==
            valuesOf({1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 12, 0}));
}

void PositionEditingTest::a_single_click_edits_nothing()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());

    QTest::mouseClick(table.view().viewport(), Qt::LeftButton, Qt::NoModifier, table.place(1, 4));

    QVERIFY(!table.view().viewport()->findChild<QSpinBox*>());
    QCOMPARE(changes(table.host), QStringList());
}

void PositionEditingTest::a_count_below_zero_is_an_empty_table()
{
    PositionTable table(3, 5);
    QVERIFY(table.show());

    change(table.host, Kind::Config, "num_pos", -3);
    QCOMPARE(table.view().model()->rowCount(), -3);
    table.view().selectAll();
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_F2})
        QTest::keyClick(&table.view(), key);
    QTest::mouseDClick(table.view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QVERIFY(!table.view().grab().isNull());

    QVERIFY(!table.view().currentIndex().isValid());
    QCOMPARE(changes(table.host), QStringList());
}

TEST_WITH_WINDOWS(PositionEditingTest)

} // namespace position_editing_test

#include "PositionEditingTest.moc"
