// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Positions.h"
#include "TestCase.h"

#include "host/workbench/positions/PositionTable.h"
#include "host/workbench/positions/PositionsMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest>

#include <sys/stat.h>

namespace positions_menu_test {

using namespace host::workbench::positions;
using host::device::variables::Position;

namespace {

struct Fixture : PositionsFixture
{
    using PositionsFixture::PositionsFixture;

    void trigger(const char* name) { menu.findChild<QAction*>(name)->trigger(); }

    QDialog& dialog() { return *window.findChild<QDialog*>("ImportDialog"); }

    template <class Widget>
    Widget& part(const char* name)
    {
        return *dialog().findChild<Widget*>(name);
    }

    /// A row of the preview: change, name, first axis.
    QString row(int row)
    {
        const auto& table = part<QTableWidget>("preview");
        return table.item(row, 0)->text() + '|' + table.item(row, 1)->text() + '|' +
               table.item(row, 2)->text();
    }

    QString problem() const { return problems.isEmpty() ? "" : problems.last().first().toString(); }

    QMainWindow window;
    PositionsMenu menu{device, &window};
    QSignalSpy problems{&menu, &PositionsMenu::problem};
};

} // namespace

/// The menu "Positions" and the preview of an import.
class PositionsMenuTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void undo_and_redo_say_what_they_do();
    void positions_are_copied_to_another_device();
    void the_preview_shows_what_changes();
    void the_preview_follows_the_device();
    void nothing_is_imported_that_has_no_room();
    void positions_are_added_where_that_is_chosen();
    void a_file_comes_back_as_it_was_written();
    void what_cannot_be_read_is_said_data();
    void what_cannot_be_read_is_said();
    void text_of_a_spreadsheet_is_pasted();
};

void PositionsMenuTest::undo_and_redo_say_what_they_do()
{
    Fixture f;
    auto* const undo = f.menu.findChild<QAction*>("undo");
    auto* const redo = f.menu.findChild<QAction*>("redo");
    QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    QCOMPARE(undo->text(), QString("&Undo"));
    f.store({position("Home", 1, 2)});
    QTRY_COMPARE_WITH_TIMEOUT(undo->text(), QString("&Undo: remove a position"), patience);
    undo->trigger();
    QCOMPARE(f.inWords(), QString("Home 90 30, Grasp 120.5 20"));
    QVERIFY(!undo->isEnabled());
    QCOMPARE(redo->text(), QString("&Redo: remove a position"));
    redo->trigger();
    QCOMPARE(f.inWords(), QString("Home 1 2"));
    QVERIFY(undo->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_Z)));
}

void PositionsMenuTest::positions_are_copied_to_another_device()
{
    Fixture from;
    Fixture to({position("Other", 5, 6)});
    from.trigger("copy");
    to.trigger("paste");
    QVERIFY(to.dialog().isVisible());
    QCOMPARE(to.row(0), QString("changed|Other → Home|5 [6] → 90 [30]"));
    QCOMPARE(to.row(1), QString("added|Grasp|120.5 [20]"));
    QCOMPARE(to.inWords(), QString("Other 5 6")); // it is a preview
    to.part<QPushButton>("import").click();
    QCOMPARE(to.inWords(), QString("Home 90 30, Grasp 120.5 20"));
    QVERIFY(!to.dialog().isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(to.menu.findChild<QAction*>("undo")->isEnabled(), patience);
    to.trigger("undo");
    QCOMPARE(to.inWords(), QString("Other 5 6"));
}

void PositionsMenuTest::the_preview_shows_what_changes()
{
    Fixture f;
    f.trigger("copy");
    f.store({position("Home", 90, 30), position("Grasp", 0, 20), position("Third", 1, 1)});
    f.trigger("paste");
    QCOMPARE(f.row(0), QString("|Home|90 [30]"));
    QCOMPARE(f.row(1), QString("changed|Grasp|0 [20] → 120.5 [20]"));
    QCOMPARE(f.row(2), QString("removed|Third|1 [1]"));
    const auto& table = f.part<QTableWidget>("preview");
    QVERIFY(!table.item(0, 2)->font().bold() && table.item(1, 2)->font().bold());
    QVERIFY(!table.item(1, 1)->font().bold() && table.item(2, 1)->font().strikeOut());
}

void PositionsMenuTest::the_preview_follows_the_device()
{
    Fixture f;
    f.trigger("copy");
    f.trigger("paste");
    auto& words = f.part<QLabel>("problem");
    auto& button = f.part<QPushButton>("import");
    QCOMPARE(words.text(), QString("Nothing would change."));
    QVERIFY(!button.isEnabled());
    f.store({position("Home", 1, 2)});
    QTRY_VERIFY_WITH_TIMEOUT(button.isEnabled(), patience);
    QCOMPARE(words.text(), QString());
    QCOMPARE(f.row(1), QString("added|Grasp|120.5 [20]"));
}

void PositionsMenuTest::nothing_is_imported_that_has_no_room()
{
    Fixture f(PositionsFixture::Positions(17, position("Many", 1, 2)));
    f.trigger("copy");
    f.store({});
    f.trigger("paste");
    QCOMPARE(f.part<QLabel>("problem").text(),
             QString("These would be 17 positions; the device has room for 16."));
    QVERIFY(!f.part<QPushButton>("import").isEnabled());
}

void PositionsMenuTest::positions_are_added_where_that_is_chosen()
{
    Fixture f({position("Home", 1, 2)});
    f.trigger("copy");
    f.trigger("paste");
    f.part<QComboBox>("way").setCurrentIndex(1);
    QCOMPARE(f.row(1), QString("added|Home|1 [2]"));
    f.part<QPushButton>("import").click();
    QCOMPARE(f.inWords(), QString("Home 1 2, Home 1 2"));
}

void PositionsMenuTest::a_file_comes_back_as_it_was_written()
{
    Fixture f;
    f.window.show();
    f.trigger("export");
    auto* const chooser = f.window.findChild<QFileDialog*>();
    QVERIFY(chooser && !chooser->isModal());
    const QString fileName = f.folder.filePath("positions.csv");
    Q_EMIT chooser->fileSelected(fileName);
    chooser->close();
    f.store({});
    f.menu.importFile(fileName);
    QCOMPARE(f.part<QTableWidget>("preview").rowCount(), 2);
    f.part<QPushButton>("import").click();
    QCOMPARE(f.inWords(), QString("Home 90 30, Grasp 120.5 20"));
    QCOMPARE(f.problem(), QString());
}

void PositionsMenuTest::what_cannot_be_read_is_said_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");

    QTest::newRow("missing") << "missing.csv"
                             << "it is not a file";
    QTest::newRow("folder") << "."
                            << "it is not a file";
    QTest::newRow("pipe") << "pipe"
                          << "it is not a file";
    QTest::newRow("large") << "large.csv"
                           << "it is larger than any table of positions";
    QTest::newRow("another table") << "other.csv"
                                   << "The first row must have the names of the columns";
}

void PositionsMenuTest::what_cannot_be_read_is_said()
{
    QFETCH(const QString, name);
    QFETCH(const QString, words);
    Fixture f;
    QCOMPARE(mkfifo(qPrintable(f.folder.filePath("pipe")), 0600), 0);
    const auto write = [&f](const char* file, const QByteArray& content) {
        QFile written(f.folder.filePath(file));
        return written.open(QIODevice::WriteOnly) && written.write(content) == content.size();
    };
    QVERIFY(write("large.csv", QByteArray(1000001, 'x')));
    QVERIFY(write("other.csv", "a,b\n1,2\n"));
    f.menu.importFile(f.folder.filePath(name));
    QVERIFY2(f.problem().contains(words) && f.problem().contains(f.folder.filePath(name)),
             qPrintable(f.problem()));
    QVERIFY(!f.window.findChild<QDialog*>("ImportDialog"));
}

void PositionsMenuTest::text_of_a_spreadsheet_is_pasted()
{
    Fixture f;
    const QByteArray table = toTable({position("Home", 1, 2)});
    QApplication::clipboard()->setText(QString::fromUtf8(table).replace(',', '\t'));
    f.trigger("paste");
    QCOMPARE(f.row(0), QString("changed|Home|90 [30] → 1 [2]"));
    QApplication::clipboard()->setText("hello");
    f.trigger("paste");
    QVERIFY2(f.problem().startsWith("No positions were read from the clipboard. The first row"),
             qPrintable(f.problem()));
}

TEST_WITH_WINDOWS(PositionsMenuTest)

} // namespace positions_menu_test

#include "PositionsMenuTest.moc"
