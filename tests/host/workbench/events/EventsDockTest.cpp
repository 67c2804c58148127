// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/window/DockInWindow.h"

#include "host/workbench/events/EventModel.h"
#include "host/workbench/events/EventsDock.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QtTest>

namespace events_dock_test {

using namespace host::workbench::events;
using host::device::events::Events;
using host::device::events::Level;

namespace {

QStringList texts(const QAbstractItemModel& model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << cell(model, row, EventModel::TextColumn);
    return texts;
}

struct OpenedDock : DockInWindow<EventsDock>
{
    void happens(Level level, const QString& source, const QString& text)
    {
        device.events().add({level, source, text});
    }

    QStringList shown() const { return texts(*part<QTreeView>("events")->model()); }
};

} // namespace

/// EventsDock and its model: what happened to a device, in one list.
class EventsDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_robots_log_and_the_devices_own_lines_are_in_one_list();
    void a_row_has_time_level_source_and_text();
    void what_happened_before_somebody_looked_is_there();
    void a_level_and_a_text_leave_the_rest_out();
    void a_pause_keeps_the_list_and_loses_nothing();
    void clearing_discards_all();
    void a_flood_comes_in_lots_and_the_newest_stay();
    void the_newest_is_in_sight_unless_somebody_scrolled_up();
    void what_is_listed_can_be_saved();
};

void EventsDockTest::the_robots_log_and_the_devices_own_lines_are_in_one_list()
{
    expectWarning("does not support propagateSizeHints");
    FakeRobot robot;
    robot.obey();
    OpenedDock dock;
    dock.device.overrideAddress(robot.address());
    QVERIFY(dock.device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(dock.device.connectionState(), 3, patience);
    robot.publish("/rosout", {{"name", "/planner"}, {"level", 8}, {"msg", "No way"}});
    QTRY_VERIFY_WITH_TIMEOUT(dock.shown().contains("No way"), patience);
    const QAbstractItemModel& model = *dock.part<QTreeView>("events")->model();
    const int row = int(dock.shown().indexOf("No way"));
    QCOMPARE(cell(model, row, EventModel::LevelColumn), QString("Error"));
    QCOMPARE(cell(model, row, EventModel::SourceColumn), QString("planner"));

    robot.drop();
    QTRY_COMPARE_WITH_TIMEOUT(dock.device.connectionState(), -1, patience);
    const QString words = dock.device.connection().lastFailure().words;
    QVERIFY(!words.isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(!dock.shown().filter(words).isEmpty(), patience);
    const int lost = int(dock.shown().indexOf(dock.shown().filter(words).first()));
    QCOMPARE(cell(model, lost, EventModel::SourceColumn), QString("device"));
    QCOMPARE(cell(model, lost, EventModel::LevelColumn), QString("Warning"));
}

void EventsDockTest::a_row_has_time_level_source_and_text()
{
    Events events;
    EventModel model(events);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setActive(true);
    events.add({Level::Fatal, "base", "<b>Broken</b>"});
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), 1, patience);
    const QRegularExpression time("^\\d\\d:\\d\\d:\\d\\d\\.\\d{6}$");
    QVERIFY(cell(model, 0, EventModel::TimeColumn).contains(time));
    QCOMPARE(cell(model, 0, EventModel::LevelColumn), QString("Fatal"));
    QCOMPARE(cell(model, 0, EventModel::SourceColumn), QString("base"));
    QCOMPARE(cell(model, 0, EventModel::TextColumn), QString("<b>Broken</b>"));
    QVERIFY(model.index(0, 0).data(Qt::BackgroundRole).isValid());
    const QString toolTip = model.index(0, EventModel::TextColumn).data(Qt::ToolTipRole).toString();
    QVERIFY2(!toolTip.contains("<b>"), qPrintable(toolTip));
}

void EventsDockTest::what_happened_before_somebody_looked_is_there()
{
    Events events;
    EventModel model(events);
    events.add({Level::Info, "base", "early"});
    QCOMPARE(model.rowCount(), 0);
    model.setActive(true);
    QCOMPARE(texts(model), QStringList("early"));
    model.setActive(false);
    events.add({Level::Info, "base", "late"});
    QVERIFY(!model.findChild<QTimer*>()->isActive());
    model.setActive(true);
    QCOMPARE(texts(model), QStringList({"early", "late"}));
}

void EventsDockTest::a_level_and_a_text_leave_the_rest_out()
{
    expectWarning("does not support propagateSizeHints");
    OpenedDock dock;
    dock.happens(Level::Debug, "planner", "d");
    dock.happens(Level::Warning, "planner", "w");
    dock.happens(Level::Error, "camera", "e");
    dock.happens(Level::Fatal, "camera", "f");
    QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), QStringList({"d", "w", "e", "f"}), patience);
    auto* const level = dock.part<QComboBox>("level");
    level->setCurrentText("Warning or worse");
    QCOMPARE(dock.shown(), QStringList({"w", "e", "f"}));
    dock.part<QLineEdit>("filter")->setText("CAM");
    QCOMPARE(dock.shown(), QStringList({"e", "f"}));
    level->setCurrentText("All");
    dock.part<QLineEdit>("filter")->setText("plan");
    QCOMPARE(dock.shown(), QStringList({"d", "w"}));
}

void EventsDockTest::a_pause_keeps_the_list_and_loses_nothing()
{
    expectWarning("does not support propagateSizeHints");
    OpenedDock dock;
    dock.happens(Level::Info, "base", "a");
    QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), QStringList("a"), patience);
    dock.part<QPushButton>("pause")->click();
    dock.happens(Level::Info, "base", "b");
    QCOMPARE(dock.shown(), QStringList("a"));
    dock.part<QPushButton>("pause")->click();
    QCOMPARE(dock.shown(), QStringList({"a", "b"}));
}

void EventsDockTest::clearing_discards_all()
{
    expectWarning("does not support propagateSizeHints");
    OpenedDock dock;
    dock.happens(Level::Info, "base", "a");
    QTRY_COMPARE_WITH_TIMEOUT(dock.shown(), QStringList("a"), patience);
    dock.part<QPushButton>("clear")->click();
    QCOMPARE(dock.shown(), QStringList());
    QCOMPARE(dock.device.events().begin(), dock.device.events().end());
}

void EventsDockTest::a_flood_comes_in_lots_and_the_newest_stay()
{
    Events events;
    EventModel model(events);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setActive(true);
    QSignalSpy insertions(&model, &EventModel::rowsInserted);
    for (std::size_t i = 0; i < 3 * Events::capacity; ++i)
        events.add({Level::Info, "base", QString::number(i)});
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), int(Events::capacity), patience);
    QCOMPARE(int(insertions.count()), 1);
    QCOMPARE(cell(model, 0, EventModel::TextColumn), QString::number(2 * Events::capacity));
    events.add({Level::Info, "base", "one more"});
    QTRY_COMPARE_WITH_TIMEOUT(texts(model).last(), QString("one more"), patience);
    QCOMPARE(model.rowCount(), int(Events::capacity));
}

void EventsDockTest::the_newest_is_in_sight_unless_somebody_scrolled_up()
{
    expectWarning("does not support propagateSizeHints");
    OpenedDock dock;
    const auto fill = [&](int count) {
        const int before = int(dock.shown().size());
        for (int i = 0; i < count; ++i)
            dock.happens(Level::Info, "base", QString::number(i));
        QTRY_COMPARE_WITH_TIMEOUT(int(dock.shown().size()), before + count, patience);
    };
    fill(100);
    QScrollBar& bar = *dock.part<QTreeView>("events")->verticalScrollBar();
    QTRY_VERIFY_WITH_TIMEOUT(bar.maximum() > 0 && bar.value() == bar.maximum(), patience);
    bar.setValue(3);
    fill(100);
    QCOMPARE(bar.value(), 3);
}

void EventsDockTest::what_is_listed_can_be_saved()
{
    expectWarning("does not support propagateSizeHints");
    OpenedDock dock;
    dock.happens(Level::Info, "base", "a \"quoted\" line");
    dock.happens(Level::Info, "base", "left out");
    QTRY_COMPARE_WITH_TIMEOUT(int(dock.shown().size()), 2, patience);
    dock.part<QLineEdit>("filter")->setText("quoted");
    dock.part<QPushButton>("save")->click();
    auto* const dialog = dock.dock->findChild<QFileDialog*>();
    QVERIFY(dialog && !dialog->isModal());
    const QString fileName = dock.settings.filePath("events.csv");
    Q_EMIT dialog->fileSelected(fileName);
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QVERIFY2(content.startsWith("\"Time\",\"Level\",\"Source\",\"Text\"\r\n"), content.constData());
    QVERIFY2(content.endsWith(",\"Info\",\"base\",\"a \"\"quoted\"\" line\"\r\n"),
             content.constData());
    QVERIFY(!content.contains("left out"));
}

TEST_WITH_WINDOWS(EventsDockTest)

} // namespace events_dock_test

#include "EventsDockTest.moc"
