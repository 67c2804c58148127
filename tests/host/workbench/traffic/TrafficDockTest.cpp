// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "Throws.h"
#include "tests/host/workbench/window/DockInWindow.h"

#include "host/device/trace/TracedCall.h"
#include "host/workbench/traffic/TrafficDock.h"
#include "host/workbench/traffic/TrafficModel.h"
#include "host/workbench/values/TableFile.h"
#include "host/workbench/window/Notice.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include <stdexcept>

namespace traffic_dock_test {

using namespace host::workbench::traffic;
using namespace host::workbench::window;
using host::device::trace::Arguments;
using host::device::trace::PluginCall;
using host::device::trace::TracedCall;
using host::device::trace::Traffic;
using host::workbench::values::tableText;
using host::workbench::values::writeTable;
using Variant = olm::core::variant::Variant;

namespace {

PluginCall callNamed(const char* name, Arguments arguments = {}, const QWidget* widget = nullptr)
{
    return {PluginCall::Direction::ToHost, name, widget,
            std::make_shared<const Arguments>(std::move(arguments))};
}

void makeCall(Traffic& traffic, const char* name)
{
    const TracedCall call(traffic, callNamed(name));
}

QStringList calls(const QAbstractItemModel& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names += cell(model, row, TrafficModel::CallColumn);
    return names;
}

struct Workbench : DockInWindow<TrafficDock>
{
    const QAbstractItemModel& shown() const { return *part<QTreeView>("calls")->model(); }

    /// A dialog that stays on the screen while the rest goes on.
    QFileDialog* askForFile() const
    {
        QTest::mouseClick(part<QPushButton>("save"), Qt::LeftButton);
        return QApplication::activeModalWidget() ? nullptr : dock->findChild<QFileDialog*>();
    }

    static void save(QFileDialog* dialog)
    {
        const QPointer<QFileDialog> opened = dialog;
        const auto* const buttons = dialog->findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Save), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!opened, patience);
    }
};

} // namespace

/// The calls as developers see them: the table, its file, and the dock in the window.
class TrafficDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_row_says_all_of_a_call();
    void a_call_that_takes_too_long_is_marked();
    void a_call_under_way_is_completed_later();
    void news_comes_in_lots();
    void what_happened_while_nobody_looked_is_there_on_return();
    void a_pause_leaves_the_list_as_it_is();
    void clearing_forgets_all_calls();
    void the_oldest_rows_go();
    void a_file_holds_the_table();
    void a_file_that_cannot_be_written_is_a_problem();
    void the_dock_shows_how_the_plugin_was_built();
    void the_filter_looks_into_every_column();
    void the_view_goes_with_the_newest_call_until_it_is_scrolled();
    void the_calls_that_are_shown_are_saved();
    void what_cannot_be_saved_is_said_in_the_window();
    void every_control_has_a_name();
};

void TrafficDockTest::a_row_says_all_of_a_call()
{
    Traffic traffic;
    TrafficModel model(traffic);
    QWidget widget;
    widget.setObjectName("name");
    {
        TracedCall outer(traffic, callNamed("outer", {{"", 1}, {"b", std::string("x")}}, &widget));
        makeCall(traffic, "inner");
        outer.answer(Variant(true));
    }
    QVERIFY(throws<std::runtime_error>([&] {
        const TracedCall call(traffic, callNamed("throws"));
        throw std::runtime_error("no");
    }));
    model.setActive(true);
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = TrafficModel::DirectionColumn; column < TrafficModel::ColumnCount;
             ++column)
            cells += cell(model, row, column);
        rows += cells.join('|');
    }
    QCOMPARE(rows, QStringList({u8"plugin \u2192 host|outer|QWidget / name|1, b = \"x\"|true",
                                u8"plugin \u2192 host|   inner|||",
                                u8"plugin \u2192 host|throws|||threw an exception"}));
    const QRegularExpression time("^\\d\\d:\\d\\d:\\d\\d\\.\\d{6}$");
    QVERIFY(cell(model, 0, TrafficModel::TimeColumn).contains(time));
    const QRegularExpression duration("^\\d+\\.\\d{3} ms");
    QVERIFY(cell(model, 0, TrafficModel::DurationColumn).contains(duration));
}

void TrafficDockTest::a_call_that_takes_too_long_is_marked()
{
    Traffic traffic;
    TrafficModel model(traffic);
    const auto slow = traffic.callBegan(callNamed("slow"));
    traffic.callEnded(*slow, std::chrono::microseconds(50001), false);
    const auto quick = traffic.callBegan(callNamed("quick"));
    traffic.callEnded(*quick, std::chrono::milliseconds(50), false);
    model.setActive(true);
    QCOMPARE(cell(model, 0, TrafficModel::DurationColumn), QString("50.001 ms: too long"));
    QVERIFY(model.index(0, 0).data(Qt::BackgroundRole).isValid());
    QVERIFY(model.index(0, 0).data(Qt::ToolTipRole).toString().contains("50 ms"));
    QCOMPARE(cell(model, 1, TrafficModel::DurationColumn), QString("50.000 ms"));
    QVERIFY(!model.index(1, 0).data(Qt::BackgroundRole).isValid());
}

void TrafficDockTest::a_call_under_way_is_completed_later()
{
    Traffic traffic;
    TrafficModel model(traffic);
    auto call = std::make_unique<TracedCall>(traffic, callNamed("a"));
    model.setActive(true);
    QCOMPARE(cell(model, 0, TrafficModel::DurationColumn), QString("in progress"));
    QSignalSpy changes(&model, &TrafficModel::dataChanged);
    call.reset();
    QTRY_COMPARE_WITH_TIMEOUT(int(changes.count()), 1, patience);
    QVERIFY(cell(model, 0, TrafficModel::DurationColumn).contains("ms"));
    makeCall(traffic, "b");
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), 2, patience);
    QCOMPARE(int(changes.count()), 1);
}

void TrafficDockTest::news_comes_in_lots()
{
    Traffic traffic;
    TrafficModel model(traffic);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setActive(true);
    QSignalSpy insertions(&model, &TrafficModel::rowsInserted);
    for (int i = 0; i < 20; ++i)
        makeCall(traffic, "a");
    QCOMPARE(model.rowCount(), 0); // out of the event loop only
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), 20, patience);
    QCOMPARE(int(insertions.count()), 1);
    QVERIFY(!model.findChild<QTimer*>()->isActive());
}

void TrafficDockTest::what_happened_while_nobody_looked_is_there_on_return()
{
    Traffic traffic;
    TrafficModel model(traffic);
    makeCall(traffic, "a");
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.findChild<QTimer*>()->isActive());
    model.setActive(true);
    QCOMPARE(calls(model), QStringList({"a"}));
    model.setActive(false);
    makeCall(traffic, "b");
    QVERIFY(!model.findChild<QTimer*>()->isActive());
    QCOMPARE(calls(model), QStringList({"a"}));
    model.setActive(true);
    QCOMPARE(calls(model), QStringList({"a", "b"}));
}

void TrafficDockTest::a_pause_leaves_the_list_as_it_is()
{
    Traffic traffic;
    TrafficModel model(traffic);
    model.setActive(true);
    makeCall(traffic, "a");
    model.setPaused(true);
    QVERIFY(!model.findChild<QTimer*>()->isActive());
    makeCall(traffic, "b");
    QVERIFY(!model.findChild<QTimer*>()->isActive());
    QCOMPARE(model.rowCount(), 0);
    model.setPaused(false);
    QCOMPARE(calls(model), QStringList({"a", "b"}));
}

void TrafficDockTest::clearing_forgets_all_calls()
{
    Traffic traffic;
    TrafficModel model(traffic);
    makeCall(traffic, "a");
    model.setActive(true);
    model.setPaused(true);
    makeCall(traffic, "b");
    model.clear();
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(traffic.begin(), traffic.end());
    model.setPaused(false);
    makeCall(traffic, "c");
    QTRY_COMPARE_WITH_TIMEOUT(calls(model), QStringList({"c"}), patience);
}

void TrafficDockTest::the_oldest_rows_go()
{
    Traffic traffic;
    TrafficModel model(traffic);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    const auto outer = std::make_unique<TracedCall>(traffic, callNamed("old"));
    makeCall(traffic, "first");
    makeCall(traffic, "second");
    model.setActive(true);
    for (std::size_t i = 0; i < Traffic::capacity - 1; ++i)
        makeCall(traffic, "new");
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), int(Traffic::capacity), patience);
    QCOMPARE(cell(model, 0, TrafficModel::CallColumn).trimmed(), QString("second"));
    QCOMPARE(cell(model, 1, TrafficModel::CallColumn).trimmed(), QString("new"));
    for (std::size_t i = 0; i < 2 * Traffic::capacity; ++i) // no row stays
        makeCall(traffic, "newer");
    QTRY_COMPARE_WITH_TIMEOUT(cell(model, 0, TrafficModel::CallColumn).trimmed(), QString("newer"),
                              patience);
    QCOMPARE(model.rowCount(), int(Traffic::capacity));
}

void TrafficDockTest::a_file_holds_the_table()
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath("a.csv");
    Traffic traffic;
    TrafficModel model(traffic);
    const auto call = traffic.callBegan(callNamed("a", {{"", QString(u8"\u03c0, \"x\"")}}));
    traffic.callEnded(*call, std::chrono::milliseconds(7), false);
    model.setActive(true);
    QCOMPARE(writeTable(fileName, tableText(model)), QString());
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString time = cell(model, 0, TrafficModel::TimeColumn);
    QCOMPARE(
        QString::fromUtf8(file.readAll()),
        "\"Time\",\"Duration\",\"Direction\",\"Call\",\"Widget\",\"Arguments\",\"Result\"\r\n\"" +
            time +
            u8"\",\"7.000 ms\",\"plugin \u2192 host\",\"a\",\"\",\"\"\"\u03c0, "
            u8"\\\"\"x\\\"\"\"\"\",\"\"\r\n");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"a.csv"}));
}

void TrafficDockTest::a_file_that_cannot_be_written_is_a_problem()
{
    const QTemporaryDir folder;
    Traffic traffic;
    TrafficModel model(traffic);
    const QString fileName = folder.filePath("none/a.csv");
    const QString problem = writeTable(fileName, tableText(model));
    QVERIFY2(problem.startsWith(fileName + " was not written: "), qPrintable(problem));
    QVERIFY(problem.contains("Choose another folder"));
}

void TrafficDockTest::the_dock_shows_how_the_plugin_was_built()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    const QStringList names = calls(workbench.shown());
    QCOMPARE(names.first(), QString("loadDeviceWidget"));
    QVERIFY(cell(workbench.shown(), 0, TrafficModel::ArgumentsColumn).contains("\"toolbar\""));
    QCOMPARE(cell(workbench.shown(), 0, TrafficModel::ResultColumn), QString("\"Toolbar\""));
    QVERIFY(names.contains("   registerConfigVariable"));
    QVERIFY(names.contains("translate"));
    QVERIFY(names.contains("   trans"));
}

void TrafficDockTest::the_filter_looks_into_every_column()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    QTest::keyClicks(workbench.part<QLineEdit>("filter"), "IPADDRESSHISTORY");
    QVERIFY(workbench.shown().rowCount() > 0);
    for (int row = 0; row < workbench.shown().rowCount(); ++row)
        QVERIFY(cell(workbench.shown(), row, TrafficModel::ArgumentsColumn)
                    .contains("ipAddressHistory"));
    QTest::keyClicks(workbench.part<QLineEdit>("filter"), "x");
    QCOMPARE(workbench.shown().rowCount(), 0);
}

void TrafficDockTest::the_view_goes_with_the_newest_call_until_it_is_scrolled()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
    Traffic& traffic = workbench.device.traffic();
    QScrollBar* const bar = workbench.part<QTreeView>("calls")->verticalScrollBar();
    QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() > 0, patience);
    QCOMPARE(bar->value(), bar->maximum());
    const auto addCall = [&] {
        const int rows = workbench.shown().rowCount();
        makeCall(traffic, "new");
        QTRY_VERIFY_WITH_TIMEOUT(workbench.shown().rowCount() > rows, patience);
    };
    const int before = bar->maximum();
    addCall();
    QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() > before, patience);
    QCOMPARE(bar->value(), bar->maximum());
    bar->setValue(1);
    const int maximum = bar->maximum();
    addCall();
    QTRY_VERIFY_WITH_TIMEOUT(bar->maximum() > maximum, patience);
    QCOMPARE(bar->value(), 1);
}

void TrafficDockTest::the_calls_that_are_shown_are_saved()
{
    expectWarning("does not support (propagateSizeHints|raise)");
    const Workbench workbench;
    const QTemporaryDir folder;
    workbench.part<QLineEdit>("filter")->setText("registerInput");
    QFileDialog* const dialog = workbench.askForFile();
    QVERIFY(dialog);
    dialog->selectFile(folder.filePath("calls"));
    Workbench::save(dialog);
    QFile file(folder.filePath("calls.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QCOMPARE(int(text.count("\r\n")), workbench.shown().rowCount() + 1);
    QVERIFY(text.contains("cameraFrequency"));
    QVERIFY(!text.contains("translate"));
}

void TrafficDockTest::what_cannot_be_saved_is_said_in_the_window()
{
    expectWarning("does not support (propagateSizeHints|raise)");
    const Workbench workbench;
    QVERIFY(workbench.window.findChild<Notice*>()->isHidden());
    QTemporaryDir folder;
    const QString fileName = folder.filePath("calls.csv");
    QFileDialog* const dialog = workbench.askForFile();
    QVERIFY(dialog);
    dialog->selectFile(fileName);
    QVERIFY(folder.remove());
    Workbench::save(dialog);
    QVERIFY(!workbench.window.findChild<Notice*>()->isHidden());
    const QString words = workbench.window.findChild<Notice*>()->findChild<QLabel*>()->text();
    QVERIFY2(words.startsWith(fileName + " was not written"), qPrintable(words));
}

void TrafficDockTest::every_control_has_a_name()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    const QWidget* const content = workbench.dock->widget();
    for (const QWidget* widget : content->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
            continue;
        const bool hasName =
            !widget->accessibleName().isEmpty() || qobject_cast<const QAbstractButton*>(widget);
        QVERIFY2(hasName, widget->metaObject()->className());
    }
    for (const QLabel* label : content->findChildren<QLabel*>())
        QVERIFY(label->buddy() || !label->text().contains('&'));
}

TEST_WITH_WINDOWS(TrafficDockTest)

} // namespace traffic_dock_test

#include "TrafficDockTest.moc"
