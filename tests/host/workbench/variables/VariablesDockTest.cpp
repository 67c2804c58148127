// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"
#include "tests/host/workbench/window/DockInWindow.h"

#include "host/loading/PluginLoader.h"
#include "host/workbench/variables/VariableModel.h"
#include "host/workbench/variables/VariablesDock.h"
#include "host/workbench/window/Window.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolBar>
#include <QTreeView>
#include <QtTest>

namespace variables_dock_test {

using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using namespace host::workbench::variables;
using namespace host::workbench::window;
using host::device::variables::Variables;
using Kind = plugin::gui::VariableKind;

namespace {

bool isFlashing(const QAbstractItemModel& model, int row)
{
    return model.index(row, 0).data(Qt::BackgroundRole).isValid();
}

const QTimer& timerOf(const VariableModel& model)
{
    return *model.findChild<QTimer*>();
}

struct Workbench : DockInWindow<VariablesDock>
{
    /// With the keyboard. The first of those that contain the name.
    void choose(const QString& name) const
    {
        auto* const view = part<QTreeView>("variables");
        auto* const filter = part<QLineEdit>("filter");
        filter->setFocus();
        filter->selectAll();
        QTest::keyClicks(filter, name);
        view->setFocus();
        QTest::keyClick(view, Qt::Key_Home);
        QCOMPARE(cell(*view->model(), view->currentIndex().row(), VariableModel::NameColumn), name);
        QTest::keyClick(view, Qt::Key_Return);
        QVERIFY(part<QLineEdit>("value")->hasFocus());
    }

    void enter(const QString& type, const QString& value) const
    {
        auto* const field = part<QLineEdit>("value");
        part<QComboBox>("type")->setCurrentText(type);
        field->selectAll();
        QTest::keyClicks(field, value);
        QTest::keyClick(field, Qt::Key_Return);
    }
};

} // namespace

/// The variables as developers see and set them: the table, and the dock in the window.
class VariablesDockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_row_says_all_of_a_variable();
    void what_happened_while_nobody_looked_is_there_on_return();
    void a_variable_that_comes_later_gets_a_row();
    void a_changed_row_flashes_and_then_no_timer_runs();
    void many_changes_are_few_updates();
    void nothing_is_done_while_nobody_looks();
    void a_value_set_here_is_this_docks();
    void the_dock_is_closed_at_first_and_opened_by_the_menu();
    void the_plugin_follows_a_value_that_is_set();
    void the_plugin_gets_a_wrong_type_too();
    void a_text_that_is_no_value_is_said_and_not_set();
    void a_row_stays_while_its_value_changes();
    void every_control_has_a_name();
};

void VariablesDockTest::a_row_says_all_of_a_variable()
{
    Variables variables;
    VariableModel model(variables);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    variables.set(Kind::Input, "a", 5, "Widget");
    variables.set(Kind::Output, "b", std::string("x"));
    variables.follow(Kind::Output, "b");
    variables.follow(Kind::Config, "c");
    model.setActive(true);
    QCOMPARE(model.rowCount(), 3);
    QStringList rows;
    for (int row = 0; row < 3; ++row) {
        QStringList cells;
        for (int column = 0; column < VariableModel::WrittenColumn; ++column)
            cells += cell(model, row, column);
        rows += cells.join('|');
    }
    QCOMPARE(rows,
             QStringList({"input|a|int|5|no|Widget", "output|b|std::string|\"x\"|yes|the device",
                          "config|c|empty|empty|yes|"}));
    const QRegularExpression time("^\\d\\d:\\d\\d:\\d\\d\\.\\d{6}$");
    QVERIFY(cell(model, 0, VariableModel::WrittenColumn).contains(time));
    QCOMPARE(cell(model, 2, VariableModel::WrittenColumn), QString());
}

void VariablesDockTest::what_happened_while_nobody_looked_is_there_on_return()
{
    Variables variables;
    VariableModel model(variables);
    variables.set(Kind::Input, "a", 1);
    model.setActive(true);
    model.setActive(false);
    variables.set(Kind::Input, "a", 2);
    variables.set(Kind::Input, "b", 3);
    QCOMPARE(model.rowCount(), 1);
    QSignalSpy changes(&model, &VariableModel::dataChanged);
    model.setActive(true);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(int(changes.count()), 1);
    QCOMPARE(cell(model, 0, VariableModel::ValueColumn), QString("2"));
    QVERIFY(!isFlashing(model, 0));
}

void VariablesDockTest::a_variable_that_comes_later_gets_a_row()
{
    Variables variables;
    VariableModel model(variables);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setActive(true);
    variables.follow(Kind::Input, "b");
    variables.set(Kind::Input, "a", 1);
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), 2, patience);
    variables.unfollow(Kind::Input, "b");
    QCOMPARE(cell(model, 1, VariableModel::RegisteredColumn), QString("no"));
}

void VariablesDockTest::a_changed_row_flashes_and_then_no_timer_runs()
{
    Variables variables;
    VariableModel model(variables);
    variables.set(Kind::Input, "a", 1);
    variables.set(Kind::Input, "b", 1);
    model.setActive(true);
    QVERIFY(!timerOf(model).isActive());
    QVERIFY(!isFlashing(model, 1));
    QList<int> alphas;
    connect(&model, &VariableModel::dataChanged, this, [&] {
        const QVariant background = model.index(1, 0).data(Qt::BackgroundRole);
        alphas += background.isValid() ? background.value<QBrush>().color().alpha() : 0;
    });
    variables.set(Kind::Input, "b", 2);
    QVERIFY(timerOf(model).isActive());
    QTRY_VERIFY_WITH_TIMEOUT(!timerOf(model).isActive(), patience);
    QVERIFY(alphas.size() >= 2);
    QVERIFY(alphas.first() > 0);
    QVERIFY(std::is_sorted(alphas.crbegin(), alphas.crend()));
    QCOMPARE(alphas.last(), 0);
    QVERIFY(!isFlashing(model, 0));
}

void VariablesDockTest::many_changes_are_few_updates()
{
    Variables variables;
    VariableModel model(variables);
    variables.set(Kind::Input, "a", 1);
    model.setActive(true);
    QSignalSpy changes(&model, &VariableModel::dataChanged);
    QElapsedTimer time;
    time.start();
    for (int i = 0; changes.count() < 3; ++i) {
        variables.set(Kind::Input, "a", i);
        QCoreApplication::processEvents();
        QVERIFY(time.elapsed() < patience);
    }
    // Three intervals of 100 ms; a coarse timer may be 5 % early.
    QVERIFY2(time.elapsed() >= 270, qPrintable(QString::number(time.elapsed())));
}

void VariablesDockTest::nothing_is_done_while_nobody_looks()
{
    Variables variables;
    VariableModel model(variables);
    variables.set(Kind::Input, "a", 1);
    QVERIFY(!timerOf(model).isActive());
    model.setActive(true);
    variables.set(Kind::Input, "a", 1);
    QVERIFY(timerOf(model).isActive());
    model.setActive(false);
    QVERIFY(!timerOf(model).isActive());
}

void VariablesDockTest::a_value_set_here_is_this_docks()
{
    Variables variables;
    VariableModel model(variables);
    variables.set(Kind::Input, "a", 1);
    model.setActive(true);
    model.setValue(0, true);
    QVERIFY(variables.value(Kind::Input, "a").get<bool>());
    QVERIFY(model.value(0).get<bool>());
    QCOMPARE(cell(model, 0, VariableModel::WriterColumn), QString("this dock"));
}

void VariablesDockTest::the_dock_is_closed_at_first_and_opened_by_the_menu()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
    workbench.dock->toggleViewAction()->trigger();
    QVERIFY(!workbench.dock->isVisible());
    const auto menus = workbench.window.menuBar()->actions();
    const auto view = std::find_if(menus.begin(), menus.end(),
                                   [](const QAction* menu) { return menu->text() == "&View"; });
    QVERIFY(view != menus.end());
    QVERIFY((*view)->menu()->actions().contains(workbench.dock->toggleViewAction()));

    PluginLoader none(TEST_PLUGIN_FOLDER "/no_such_file.so");
    Window fresh(none, workbench.environment);
    fresh.add(workbench.device, QString());
    QVERIFY(fresh.findChild<VariablesDock*>()->isHidden());
}

void VariablesDockTest::the_plugin_follows_a_value_that_is_set()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    workbench.choose("ipAddress");
    QCOMPARE(workbench.part<QLabel>("chosen")->text(), QString("config ipAddress"));
    QCOMPARE(workbench.part<QComboBox>("type")->currentText(), QString("std::string"));
    QCOMPARE(workbench.part<QLineEdit>("value")->text(), QString("127.0.0.1:9090"));
    workbench.enter("std::string", "10.0.0.7:1234");
    const auto* const field = workbench.window.findChild<QToolBar*>()->findChild<QLineEdit*>();
    QTRY_COMPARE_WITH_TIMEOUT(field->text(), QString("10.0.0.7:1234"), patience);
    QVERIFY(QDir(workbench.settings.path()).isEmpty()); // the device is not a widget: not stored
}

void VariablesDockTest::the_plugin_gets_a_wrong_type_too()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    const auto shows = [&](const QString& text) {
        const auto labels = workbench.window.centralWidget()->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel* label) { return label->text() == text; });
    };
    workbench.choose("cameraFrequency");
    QCOMPARE(workbench.part<QComboBox>("type")->currentText(), QString("empty"));
    workbench.enter("unsigned int", "15");
    QTRY_VERIFY_WITH_TIMEOUT(shows("15 Hz"), patience);
    workbench.enter("QString", "fast");
    QTRY_VERIFY_WITH_TIMEOUT(shows("0 Hz"), patience);
    QCOMPARE(workbench.device.read(Kind::Input, "cameraFrequency").get<QString>(), QString("fast"));
}

void VariablesDockTest::a_text_that_is_no_value_is_said_and_not_set()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    const auto* const problem = workbench.part<QLabel>("problem");
    QVERIFY(!problem->isVisible());
    QVERIFY(!workbench.part<QPushButton>("set")->isEnabled()); // nothing is chosen
    workbench.choose("cameraFrequency");
    workbench.enter("unsigned int", "-1");
    QVERIFY(problem->isVisible());
    QVERIFY2(problem->text().contains("\"-1\""), qPrintable(problem->text()));
    QVERIFY(workbench.device.read(Kind::Input, "cameraFrequency").isEmpty());
    workbench.part<QLineEdit>("value")->setText("3");
    QTest::mouseClick(workbench.part<QPushButton>("set"), Qt::LeftButton);
    QVERIFY(!problem->isVisible());
    QCOMPARE(workbench.device.read(Kind::Input, "cameraFrequency").get<unsigned int>(), 3U);
}

void VariablesDockTest::a_row_stays_while_its_value_changes()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench;
    Variables& variables = workbench.device.variables();
    const auto* const view = workbench.part<QTreeView>("variables");
    variables.set(Kind::Input, "first", QString("match"));
    variables.set(Kind::Input, "second", QString("match"));
    QTRY_VERIFY_WITH_TIMEOUT(view->model()->rowCount() > 2, patience);
    workbench.part<QLineEdit>("filter")->setText("match");
    QTRY_COMPARE_WITH_TIMEOUT(view->model()->rowCount(), 2, patience);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(0, 0)).center());
    QCOMPARE(workbench.part<QLabel>("chosen")->text(), QString("input first"));
    QSignalSpy changes(view->model(), &QAbstractItemModel::dataChanged);
    variables.set(Kind::Input, "first", 1);
    QTRY_VERIFY_WITH_TIMEOUT(changes.count() > 0, patience);
    QCOMPARE(view->model()->rowCount(), 2);
    QCOMPARE(workbench.part<QLabel>("chosen")->text(), QString("input first"));
    QCOMPARE(workbench.part<QLineEdit>("value")->text(), QString("match"));
}

void VariablesDockTest::every_control_has_a_name()
{
    expectWarning("does not support propagateSizeHints");
    const Workbench workbench;
    const QWidget* const content = workbench.dock->widget();
    for (const QWidget* widget : content->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
            continue;
        const bool hasName =
            !widget->accessibleName().isEmpty() || qobject_cast<const QPushButton*>(widget);
        QVERIFY2(hasName, widget->metaObject()->className());
    }
    for (const QLabel* label : content->findChildren<QLabel*>())
        QCOMPARE(label->buddy() != nullptr, label->text().contains('&'));
}

TEST_WITH_WINDOWS(VariablesDockTest)

} // namespace variables_dock_test

#include "VariablesDockTest.moc"
