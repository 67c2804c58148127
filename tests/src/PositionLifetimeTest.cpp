// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Delivery.h"
#include "ManipulatorDialog.h"
#include "Meanwhile.h"
#include "PositionModel.h"
#include "PositionView.h"
#include "Positions.h"
#include "TestCase.h"

#include <QItemDelegate>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

namespace position_lifetime_test {

namespace {

enum Moment
{
    Hidden,
    Shown,
    EditingName,
    EditingTarget,
    InMenu,
    InSpeedDialog
};

const char* const moments[] = {"hidden",
                               "shown",
                               "in the edit of a name",
                               "in the edit of a target",
                               "in the menu",
                               "in the speed dialog"};

/// The tab of the arm in a window, with a press, an edit or a dialog of the second position's
/// first axis under way.
struct Stage
{
    FakeHost host;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    ManipulatorDialog* tab;
    QPointer<PositionModel> model;
    QPointer<PositionView> view;
    QPointer<QWidget> editor; ///< of a cell

    Stage()
    {
        setPositions(host, 3, 5);
        window->setLayout(new QVBoxLayout);
        tab = new ManipulatorDialog(host, window.get());
        window->layout()->addWidget(tab);
        window->resize(1200, 600);
        model = tab->findChild<PositionModel*>();
        view = tab->findChild<PositionView*>();
    }

    QPoint cell(int column) const { return view->visualRect(model->index(1, column)).center(); }

    /// Brings the table to the moment and runs @p happen, in the event loop of the menu or
    /// dialog where one is open. False where the moment did not come.
    bool reach(Moment moment, const std::function<void()>& happen);
    void beginEdit(int column);
    /// All that a user and the host can still do to whatever is there.
    void useWhatIsLeft();
};

void Stage::beginEdit(int column)
{
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell(column));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell(column));
    if (view->viewport()->isAncestorOf(QApplication::focusWidget()))
        editor = QApplication::focusWidget();
    QTest::keyClicks(QApplication::focusWidget(), "77");
}

bool Stage::reach(Moment moment, const std::function<void()>& happen)
{
    if (moment != Hidden) {
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get(), 20000))
            return false;
    }
    host.calls.clear();
    if (moment < InMenu) {
        if (moment >= EditingName)
            beginEdit(moment == EditingName ? 0 : 1);
        const bool reached = moment < EditingName || editor;
        happen();
        return reached;
    }
    const Meanwhile inMenu([&] {
        if (!openMenu())
            return false;
        if (moment == InSpeedDialog)
            return choose(*openMenu(), "Edit speed");
        happen();
        return true;
    });
    const Meanwhile inDialog([&] {
        auto* const dialog = openDialog<SpeedEditor>();
        if (!dialog || moment == InMenu)
            return false;
        dialog->findChild<QSpinBox*>()->setValue(77);
        happen();
        return true;
    });
    QTest::mousePress(view->viewport(), Qt::RightButton, Qt::NoModifier, cell(1));
    return moment == InMenu ? inMenu.isDone() : inDialog.isDone();
}

void Stage::useWhatIsLeft()
{
    change(host, Kind::Config, "pos1", countedValues(18));
    change(host, Kind::Config, "pos1_name", std::string("name"));
    change(host, Kind::Config, "num_pos", 2);
    message(host, 1001, QString("late"));
    const auto widgets = host.widgets;
    for (plugin::gui::DeviceWidget* widget : widgets) {
        widget->connected();
        widget->disconnected();
        widget->translate();
    }
    for (PositionView* left : window->findChildren<PositionView*>()) {
        const Meanwhile inMenu([] { return openMenu() && openMenu()->close(); });
        QTest::mousePress(left->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 20));
        QCOMPARE(inMenu.isDone(), !widgets.isEmpty());
        QTest::keyClick(left, Qt::Key_F2);
        QVERIFY(!left->grab().isNull());
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace

/// Positions, views and tabs that go away in the middle of something. What the sanitizers and
/// valgrind see counts as much as what is compared here.
class PositionLifetimeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void no_order_of_destruction_touches_a_dead_object_data();
    void no_order_of_destruction_touches_a_dead_object();
    void a_tab_that_is_a_window_can_be_deleted_while_it_is_shown();
    void a_view_that_outlives_its_tab_is_empty_and_idle();
    void a_table_of_other_positions_ends_every_edit_data();
    void a_table_of_other_positions_ends_every_edit();
    void the_menu_asks_for_the_row_that_was_clicked_whatever_came_since();
    void a_speed_is_written_where_it_was_pressed_whatever_came_since_data();
    void a_speed_is_written_where_it_was_pressed_whatever_came_since();
    void a_speed_is_not_written_once_the_model_is_gone();
    void a_position_that_the_device_removed_is_not_shown_before_it_says_so();
};

void PositionLifetimeTest::no_order_of_destruction_touches_a_dead_object_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("moment");
    const char* const orders[] = {"the tab",  "the window",   "the tab, after the view moved out",
                                  "the view", "the delegate", "the log's view"};
    for (int order = 0; order < static_cast<int>(std::size(orders)); ++order) {
        for (int moment = Hidden; moment <= InSpeedDialog; ++moment)
            QTest::addRow("%s, %s", orders[order], moments[moment]) << order << moment;
    }
}

void PositionLifetimeTest::no_order_of_destruction_touches_a_dead_object()
{
    QFETCH(int, order);
    QFETCH(int, moment);
    Stage stage;
    if (order == 2)
        stage.window->layout()->addWidget(stage.view);
    const std::function<void()> orders[] = {
        [&] { delete stage.tab; },
        [&] { stage.window = std::make_unique<QWidget>(); },
        [&] { delete stage.tab; },
        [&] { delete stage.view; },
        [&] { delete stage.view->itemDelegate(); },
        [&] { delete stage.tab->findChild<olm::qt::log::View*>(); },
    };

    QStringList written;
    bool leftOpen = false;
    QVERIFY(stage.reach(static_cast<Moment>(moment), [&] {
        orders[order]();
        written = changes(stage.host);
        leftOpen = openMenu() || QApplication::activeModalWidget();
        // What is left is closed as a user does.
        if (QWidget* const dialog = QApplication::activeModalWidget())
            QTest::keyClick(dialog, Qt::Key_Escape);
        if (openMenu())
            openMenu()->close();
    }));

    // What a view opened goes along with it, and an edit is left as by a press elsewhere.
    QCOMPARE(leftOpen, !stage.view.isNull() && moment >= InMenu);
    QStringList expected;
    if (order < 3 && moment == EditingName)
        expected.append("write config pos1_name");
    if (order < 3 && moment == EditingTarget)
        expected.append("write config pos1");
    QCOMPARE(written, expected);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!QApplication::activePopupWidget());
    stage.useWhatIsLeft();
}

void PositionLifetimeTest::a_tab_that_is_a_window_can_be_deleted_while_it_is_shown()
{
    FakeHost host;
    setPositions(host, 3, 5);
    auto tab = std::make_unique<ManipulatorDialog>(host, nullptr);
    tab->show();
    QVERIFY(QTest::qWaitForWindowExposed(tab.get(), 20000));
    host.calls.clear();

    tab.reset();

    QCOMPARE(changes(host), QStringList());
    QVERIFY(host.widgets.isEmpty());
}

void PositionLifetimeTest::a_view_that_outlives_its_tab_is_empty_and_idle()
{
    FakeHost host;
    setPositions(host, 3, 5);
    auto* const tab = new ManipulatorDialog(host, nullptr);
    const std::unique_ptr<PositionView> view(tab->findChild<PositionView*>());
    view->setParent(nullptr);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get(), 20000));
    host.calls.clear();

    delete tab;
    QTest::mousePress(view->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 20));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));

    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!view->model());
    QVERIFY(!host.calls.contains("help manipulator"));
    QCOMPARE(changes(host), QStringList());
}

void PositionLifetimeTest::a_table_of_other_positions_ends_every_edit_data()
{
    QTest::addColumn<int>("moment");
    QTest::addColumn<int>("count");
    for (const int moment : {EditingName, EditingTarget}) {
        for (const int count : {0, 1, 2, 3, 4})
            QTest::addRow("%s, %d left", moments[moment], count) << moment << count;
    }
}

void PositionLifetimeTest::a_table_of_other_positions_ends_every_edit()
{
    QFETCH(int, moment);
    QFETCH(int, count);
    Stage stage;

    QVERIFY(stage.reach(static_cast<Moment>(moment), [&] {
        change(stage.host, Kind::Config, "num_pos", count);
        QTRY_VERIFY(!stage.editor);
    }));

    QCOMPARE(changes(stage.host), QStringList());
    QCOMPARE(stage.view->model()->rowCount(), count);
    QVERIFY(!stage.view->currentIndex().isValid());
}

void PositionLifetimeTest::the_menu_asks_for_the_row_that_was_clicked_whatever_came_since()
{
    Stage stage;
    const QSignalSpy removed(stage.view, &PositionView::removePos);

    QVERIFY(stage.reach(InMenu, [&] {
        change(stage.host, Kind::Config, "num_pos", 2);
        QVERIFY(choose(*openMenu(), "Remove position 2"));
    }));

    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.first().first().toInt(), 1);
}

void PositionLifetimeTest::a_speed_is_written_where_it_was_pressed_whatever_came_since_data()
{
    QTest::addColumn<int>("moment");
    QTest::addColumn<int>("count");
    for (const int moment : {InMenu, InSpeedDialog}) {
        for (const int count : {4, 2, 1})
            QTest::addRow("%s, %d positions", moments[moment], count) << moment << count;
    }
}

void PositionLifetimeTest::a_speed_is_written_where_it_was_pressed_whatever_came_since()
{
    QFETCH(int, moment);
    QFETCH(int, count);
    Stage stage;
    Values expected = storedValues(stage.host, "pos1");
    expected[1] = 78;

    QVERIFY(stage.reach(static_cast<Moment>(moment), [&] {
        change(stage.host, Kind::Config, "num_pos", count);
        const Meanwhile acceptance([] {
            auto* const dialog = openDialog<SpeedEditor>();
            if (!dialog)
                return false;
            dialog->findChild<QSpinBox*>()->setValue(78);
            dialog->accept();
            return true;
        });
        if (moment == InMenu)
            QVERIFY(choose(*openMenu(), "Edit speed"));
        QTRY_VERIFY(acceptance.isDone());
    }));

    QCOMPARE(changes(stage.host), QStringList("write config pos1"));
    QVERIFY(storedValues(stage.host, "pos1") == expected);
}

void PositionLifetimeTest::a_speed_is_not_written_once_the_model_is_gone()
{
    for (const Moment moment : {InMenu, InSpeedDialog}) {
        Stage stage;
        QVERIFY(stage.reach(moment, [&] {
            stage.view->setModel(nullptr);
            const Meanwhile acceptance([] {
                auto* const dialog = openDialog<SpeedEditor>();
                if (dialog)
                    dialog->accept();
                return dialog != nullptr;
            });
            if (moment == InMenu)
                QVERIFY(choose(*openMenu(), "Edit speed"));
            QTRY_VERIFY(acceptance.isDone());
        }));
        QCOMPARE(changes(stage.host), QStringList());
    }
}

void PositionLifetimeTest::a_position_that_the_device_removed_is_not_shown_before_it_says_so()
{
    Stage stage;
    QVERIFY(stage.reach(Shown, [&] {
        // The device holds fewer positions already, and reports it with the next bundle.
        stage.host.set(Kind::Config, "num_pos", 1);
        QVERIFY(!stage.view->grab().isNull());
        QStringList entries;
        const Meanwhile inMenu([&entries] {
            if (!openMenu())
                return false;
            entries = entriesOf(*openMenu());
            return openMenu()->close();
        });
        const int below = stage.view->rowViewportPosition(1) + 3;
        QTest::mousePress(stage.view->viewport(), Qt::RightButton, Qt::NoModifier,
                          QPoint(200, below));
        QVERIFY(inMenu.isDone());
        QCOMPARE(entries, (QStringList{"Add position", "-", "Help on manipulator"}));
        QTest::mouseDClick(stage.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                           QPoint(200, below));
        QTest::keyClick(stage.view, Qt::Key_7);
    }));
    QCOMPARE(changes(stage.host), QStringList());
}

TEST_WITH_WINDOWS(PositionLifetimeTest)

} // namespace position_lifetime_test

#include "PositionLifetimeTest.moc"
