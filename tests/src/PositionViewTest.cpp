// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionView.h"

#include "Meanwhile.h"
#include "PositionTable.h"
#include "TestCase.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest>

namespace position_view_test {

/// The menu of the table of positions.
class PositionViewTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_new_view_is_its_owners_and_shows_no_model();
    void the_menu_offers_what_can_be_done_at_its_place_data();
    void the_menu_offers_what_can_be_done_at_its_place();
    void a_count_that_is_no_number_is_none_data();
    void a_count_that_is_no_number_is_none();
    void the_menu_is_translated();
    void the_menu_opens_under_the_mouse_once_the_cell_is_selected();
    void a_press_of_another_button_opens_no_menu_data();
    void a_press_of_another_button_opens_no_menu();
    void a_press_beside_the_table_opens_no_menu();
    void a_view_without_a_model_offers_a_position_and_help();
    void an_entry_sends_its_signal_and_writes_nothing_data();
    void an_entry_sends_its_signal_and_writes_nothing();
    void help_is_the_action_of_the_host();
    void a_dismissed_menu_does_nothing();
};

namespace {

/// The menu that a right press at the place opens, its entries.
QStringList menuAt(const PositionTable& table, int row, int column)
{
    QStringList entries;
    const Meanwhile meanwhile([&entries] {
        QMenu* const menu = openMenu();
        if (!menu)
            return false;
        entries = entriesOf(*menu);
        menu->close();
        return true;
    });
    table.press(row, column);
    return meanwhile.isDone() ? entries : QStringList("no menu");
}

/// Every signal of the view that adds or removes, as text.
class Signals
{
public:
    explicit Signals(const PositionView& view)
        : m_added(&view, &PositionView::addPos),
          m_removed(&view, &PositionView::removePos)
    {
    }

    QStringList texts() const
    {
        QStringList texts;
        for (int i = 0; i < m_added.size(); ++i)
            texts.append("add");
        for (const QList<QVariant>& arguments : m_removed)
            texts.append(QString("remove %1").arg(arguments[0].toInt()));
        return texts;
    }

private:
    const QSignalSpy m_added;
    const QSignalSpy m_removed;
};

} // namespace

void PositionViewTest::a_new_view_is_its_owners_and_shows_no_model()
{
    FakeHost host;
    Owner owner(host);
    const PositionView view(&owner);

    QCOMPARE(view.parentWidget(), &owner);
    QVERIFY(!view.model());
    QCOMPARE(host.calls, QStringList());
}

void PositionViewTest::the_menu_offers_what_can_be_done_at_its_place_data()
{
    const QString speed("Edit speed");
    const QString add("Add position");
    const QString remove("Remove position 3");
    const QString help("Help on manipulator");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QStringList>("entries");
    const auto row = [](const char* name, int count, int maximum, int row,
                        int column) -> QTestData& {
        return QTest::newRow(name) << count << maximum << row << column;
    };
    const QStringList all{speed, "-", add, "-", remove, "-", help};
    const QStringList cell{speed, "-", remove, "-", help};
    row("an axis, room", 3, 5, 2, 4) << all;
    row("the first axis, room", 3, 5, 2, 1) << all;
    row("the last axis, room", 3, 5, 2, 9) << all;
    row("the name, room", 3, 5, 2, 0) << QStringList{add, "-", remove, "-", help};
    row("beside, room", 3, 5, -1, -1) << QStringList{add, "-", help};
    row("an axis, full", 5, 5, 2, 4) << cell;
    row("the name, full", 5, 5, 2, 0) << QStringList{remove, "-", help};
    row("beside, full", 5, 5, -1, -1) << QStringList{help};
    row("an axis, overfull", 7, 5, 2, 4) << cell;
    row("the name, overfull", 7, 5, 2, 0) << QStringList{remove, "-", help};
    row("beside, overfull", 7, 5, -1, -1) << QStringList{help};
    row("an axis, no room at all", 3, 0, 2, 4) << cell;
    row("beside, empty", 0, 5, -1, -1) << QStringList{add, "-", help};
    row("beside, empty and no room at all", 0, 0, -1, -1) << QStringList{help};
    row("beside, fewer than none", -2, 0, -1, -1) << QStringList{add, "-", help};
    row("an axis, less room than none", 3, -2, 2, 4) << cell;
    row("another row", 3, 5, 0, 9)
        << QStringList{speed, "-", add, "-", "Remove position 1", "-", help};
}

void PositionViewTest::the_menu_offers_what_can_be_done_at_its_place()
{
    QFETCH(int, count);
    QFETCH(int, maximum);
    QFETCH(int, row);
    QFETCH(int, column);
    const PositionTable table(count, maximum);
    QVERIFY(table.show());
    const Signals sent(table.view());

    QTEST(menuAt(table, row, column), "entries");

    QCOMPARE(sent.texts(), QStringList());
    QCOMPARE(changes(table.host), QStringList());
}

void PositionViewTest::a_count_that_is_no_number_is_none_data()
{
    QTest::addColumn<Variant>("count");
    QTest::addColumn<Variant>("maximum");
    QTest::addColumn<QStringList>("entries");
    const QString help("Help on manipulator");
    const QStringList room{"Add position", "-", help};
    QTest::newRow("missing") << Variant() << Variant() << QStringList(help);
    QTest::newRow("a count of text") << Variant(std::string("some")) << Variant(5) << room;
    QTest::newRow("a maximum of text")
        << Variant(0) << Variant(std::string("5 ")) << QStringList(help);
    QTest::newRow("vectors") << Variant(countedValues(2)) << Variant(countedValues(5))
                             << QStringList(help);
}

void PositionViewTest::a_count_that_is_no_number_is_none()
{
    QFETCH(Variant, count);
    QFETCH(Variant, maximum);
    PositionTable table(0, 0);
    table.host.set(Kind::Config, "num_pos", count);
    table.host.set(Kind::Config, "num_pos_max", maximum);
    QVERIFY(table.show());

    QTEST(menuAt(table, -1, -1), "entries");
}

void PositionViewTest::the_menu_is_translated()
{
    PositionTable table(3, 5);
    table.host.dictionary = {{"Edit speed", "Tempo"},
                             {"Add position", "Neue Stellung"},
                             {"Remove position", "Weg mit %1 und"}};
    QVERIFY(table.show());

    QCOMPARE(menuAt(table, 1, 4), (QStringList{"Tempo", "-", "Neue Stellung", "-",
                                               "Weg mit %1 und 2", "-", "Help on manipulator"}));
}

void PositionViewTest::the_menu_opens_under_the_mouse_once_the_cell_is_selected()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    QPoint position;
    QModelIndex current;
    int shortcuts = 0;
    const Meanwhile meanwhile([&] {
        QMenu* const menu = openMenu();
        if (!menu)
            return false;
        position = menu->pos();
        current = table.view().currentIndex();
        for (const QAction* action : menu->actions())
            shortcuts += action->shortcut().count();
        menu->close();
        return true;
    });

    table.press(2, 4);

    QVERIFY(meanwhile.isDone());
    QCOMPARE(position, table.view().viewport()->mapToGlobal(table.place(2, 4)));
    QCOMPARE(current, table.view().model()->index(2, 4));
    QCOMPARE(shortcuts, 0);
    QVERIFY(!openMenu());
}

void PositionViewTest::a_press_of_another_button_opens_no_menu_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << static_cast<int>(Qt::LeftButton);
    QTest::newRow("middle") << static_cast<int>(Qt::MiddleButton);
}

void PositionViewTest::a_press_of_another_button_opens_no_menu()
{
    QFETCH(int, button);
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    const Signals sent(table.view());
    const Meanwhile meanwhile([] { return openMenu() && openMenu()->close(); });

    for (const int column : {0, 4, -1}) {
        table.press(column < 0 ? -1 : 1, column, static_cast<Qt::MouseButton>(button));
        QTest::mouseRelease(table.view().viewport(), static_cast<Qt::MouseButton>(button),
                            Qt::NoModifier, table.place(column < 0 ? -1 : 1, column));
    }

    QVERIFY(!meanwhile.isDone());
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(sent.texts(), QStringList());
    QCOMPARE(changes(table.host), QStringList());
    // The menu's questions were not asked either.
    QVERIFY(!table.host.calls.contains("read config num_pos_max"));
}

void PositionViewTest::a_press_beside_the_table_opens_no_menu()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    auto* const corner = table.view().findChild<QAbstractButton*>();
    QVERIFY(corner);
    QWidget* const places[] = {table.view().horizontalHeader()->viewport(),
                               table.view().verticalHeader()->viewport(), corner, &table.view()};

    for (QWidget* place : places) {
        const Meanwhile meanwhile([] { return openMenu() && openMenu()->close(); });
        QTest::mouseClick(place, Qt::RightButton, Qt::NoModifier, QPoint(3, 3));
        QVERIFY(!meanwhile.isDone());
    }
    QVERIFY(!table.host.calls.contains("read config num_pos_max"));
}

void PositionViewTest::a_view_without_a_model_offers_a_position_and_help()
{
    const PositionTable table(3, 5);
    table.view().setModel(nullptr);
    QVERIFY(table.show());
    QStringList entries;
    const Meanwhile meanwhile([&entries] {
        QMenu* const menu = openMenu();
        if (!menu)
            return false;
        entries = entriesOf(*menu);
        menu->close();
        return true;
    });

    QTest::mousePress(table.view().viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 20));

    QVERIFY(meanwhile.isDone());
    QCOMPARE(entries, (QStringList{"Add position", "-", "Help on manipulator"}));
}

void PositionViewTest::an_entry_sends_its_signal_and_writes_nothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("add beside") << -1 << -1 << "Add position" << QStringList("add");
    QTest::newRow("add on a cell") << 1 << 3 << "Add position" << QStringList("add");
    QTest::newRow("remove the first") << 0 << 0 << "Remove position 1" << QStringList("remove 0");
    QTest::newRow("remove the last") << 2 << 9 << "Remove position 3" << QStringList("remove 2");
    QTest::newRow("help") << 1 << 1 << "Help on manipulator" << QStringList();
}

void PositionViewTest::an_entry_sends_its_signal_and_writes_nothing()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, entry);
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    const Signals sent(table.view());
    const Meanwhile meanwhile([&entry] { return openMenu() && choose(*openMenu(), entry); });

    table.press(row, column);

    QVERIFY(meanwhile.isDone());
    QTEST(sent.texts(), "expected");
    QCOMPARE(changes(table.host), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

void PositionViewTest::help_is_the_action_of_the_host()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    QAction* const help = table.host.helpAction("manipulator");
    const QSignalSpy triggered(help, &QAction::triggered);
    const Meanwhile meanwhile([help] { return openMenu() && choose(*openMenu(), help->text()); });

    table.press(0, 0);

    QVERIFY(meanwhile.isDone());
    QCOMPARE(triggered.size(), 1);
}

void PositionViewTest::a_dismissed_menu_does_nothing()
{
    const PositionTable table(3, 5);
    QVERIFY(table.show());
    const Signals sent(table.view());
    const Meanwhile meanwhile([] {
        if (!openMenu())
            return false;
        QTest::keyClick(openMenu(), Qt::Key_Escape);
        return true;
    });

    table.press(1, 1);

    QVERIFY(meanwhile.isDone());
    QCOMPARE(sent.texts(), QStringList());
    QCOMPARE(changes(table.host), QStringList());
    QVERIFY(!QApplication::activeModalWidget());
}

TEST_WITH_WINDOWS(PositionViewTest)

} // namespace position_view_test

#include "PositionViewTest.moc"
