// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/workbench/plugin/MenuKey.h"

#include <QMouseEvent>
#include <QPointer>
#include <QTableWidget>
#include <QtTest>

#include <functional>

namespace menu_key_test {

using host::workbench::plugin::MenuKey;

namespace {

/// Its menu hangs on the press of the right button.
class Table : public QTableWidget
{
public:
    Table() : QTableWidget(50, 3)
    {
        new MenuKey(*this); // a child
        resize(300, 200);
        show();
    }

    QList<QModelIndex> pressed;
    int released = 0;
    std::function<void()> openMenu = [] {};

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        QTableWidget::mousePressEvent(event);
        if (event->button() != Qt::RightButton)
            return;
        pressed << indexAt(event->pos());
        openMenu();
    }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        QTableWidget::mouseReleaseEvent(event);
        released += event->button() == Qt::RightButton ? 1 : 0;
    }
};

} // namespace

/// MenuKey: the menu of a table that hangs on the mouse, by the keyboard.
class MenuKeyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_key_is_a_press_on_the_current_cell_data();
    void the_key_is_a_press_on_the_current_cell();
    void a_cell_out_of_sight_is_scrolled_to();
    void without_a_current_cell_it_is_a_press_beside_the_cells();
    void other_keys_press_nothing();
    void the_table_may_go_while_the_menu_is_open();
};

void MenuKeyTest::the_key_is_a_press_on_the_current_cell_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Menu") << Qt::Key_Menu << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("Shift+F10") << Qt::Key_F10 << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void MenuKeyTest::the_key_is_a_press_on_the_current_cell()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    Table table;
    QVERIFY(QTest::qWaitForWindowExposed(&table, patience));
    const QModelIndex cell = table.model()->index(2, 1);
    table.setCurrentIndex(cell);
    QTest::keyClick(&table, key, modifiers);
    QCOMPARE(table.pressed, QList<QModelIndex>{cell});
    QCOMPARE(table.released, 1);
    QCOMPARE(table.currentIndex(), cell);
}

void MenuKeyTest::a_cell_out_of_sight_is_scrolled_to()
{
    Table table;
    QVERIFY(QTest::qWaitForWindowExposed(&table, patience));
    const QModelIndex cell = table.model()->index(40, 2);
    table.setCurrentIndex(cell);
    table.scrollToTop();
    QTest::keyClick(&table, Qt::Key_Menu);
    QCOMPARE(table.pressed, QList<QModelIndex>{cell});
}

void MenuKeyTest::without_a_current_cell_it_is_a_press_beside_the_cells()
{
    Table table;
    table.setRowCount(1);
    QVERIFY(QTest::qWaitForWindowExposed(&table, patience));
    table.setCurrentIndex({});
    QTest::keyClick(&table, Qt::Key_Menu);
    QCOMPARE(table.pressed, QList<QModelIndex>{QModelIndex()});
}

void MenuKeyTest::other_keys_press_nothing()
{
    Table table;
    QVERIFY(QTest::qWaitForWindowExposed(&table, patience));
    table.setCurrentCell(0, 0);
    QTest::keyClick(&table, Qt::Key_F10);
    QTest::keyClick(&table, Qt::Key_Menu, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_F9, Qt::ShiftModifier);
    QVERIFY(table.pressed.isEmpty());
}

void MenuKeyTest::the_table_may_go_while_the_menu_is_open()
{
    auto* const table = new Table;
    QVERIFY(QTest::qWaitForWindowExposed(table, patience));
    const QPointer<Table> there = table;
    table->openMenu = [table] { table->deleteLater(); };
    QTest::keyClick(table, Qt::Key_Menu);
    QTRY_VERIFY_WITH_TIMEOUT(!there, patience);
}

TEST_WITH_WINDOWS(MenuKeyTest)

} // namespace menu_key_test

#include "MenuKeyTest.moc"
