// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "BaseDialog.h"
#include "ContextMenu.h"
#include "Delivery.h"
#include "FakeHost.h"
#include "LaserRangeFinderDialog.h"
#include "TestCase.h"
#include "Throws.h"
#include "olm/core/Vector.h"

#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace log_lifetime_test {

using olm::qt::log::View;

/// A tab's log is a member of the tab and dies before the view that shows it. What the
/// sanitizers and valgrind see counts as much as what is compared here.
class LogLifetimeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void no_order_of_destruction_touches_a_dead_log_data();
    void no_order_of_destruction_touches_a_dead_log();
    void a_view_that_outlives_its_tab_is_empty_and_usable_data();
    void a_view_that_outlives_its_tab_is_empty_and_usable();
    void an_exception_of_the_host_leaves_nothing_behind_data();
    void an_exception_of_the_host_leaves_nothing_behind();
};

namespace {

struct Tab
{
    const char* name;
    int messageRole;
    plugin::gui::DeviceWidget* (*create)(FakeHost&, QWidget*);
};

const Tab tabs[] = {
    {"base", 1000,
     [](FakeHost& host, QWidget* parent) -> plugin::gui::DeviceWidget* {
         return new BaseDialog(host, parent);
     }},
    {"laser", 1002,
     [](FakeHost& host, QWidget* parent) -> plugin::gui::DeviceWidget* {
         return new LaserRangeFinderDialog(host, parent);
     }},
};

} // namespace

void LogLifetimeTest::no_order_of_destruction_touches_a_dead_log_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("moment");
    QTest::addColumn<int>("order");
    const char* const moments[] = {"hidden", "shown", "selected", "menu open"};
    const char* const orders[] = {"the tab", "the window", "the view", "the tab as a window"};
    for (int tab = 0; tab < 2; ++tab) {
        for (int moment = 0; moment < 4; ++moment) {
            for (int order = 0; order < 4; ++order)
                QTest::addRow("%s, %s, %s", tabs[tab].name, orders[order], moments[moment])
                    << tab << moment << order;
        }
    }
}

void LogLifetimeTest::no_order_of_destruction_touches_a_dead_log()
{
    QFETCH(int, tab);
    QFETCH(int, moment);
    QFETCH(int, order);
    FakeHost host;
    auto window = std::make_unique<QWidget>();
    window->setLayout(new QVBoxLayout);
    plugin::gui::DeviceWidget* const dialog = tabs[tab].create(host, nullptr);
    if (order == 3)
        window.reset(dialog);
    else
        window->layout()->addWidget(dialog);
    auto* const view = dialog->findChild<View*>();
    for (int i = 0; i < 100; ++i)
        message(host, tabs[tab].messageRole, QString("line %1").arg(i));

    if (moment >= 1) {
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    if (moment >= 2) {
        view->setFocus();
        view->selectAll();
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum());
        QVERIFY(view->hasFocus());
    }
    const auto die = [&] {
        if (order == 0)
            delete dialog;
        else if (order == 2)
            delete view;
        else
            window.reset();
    };
    if (moment == 3) {
        QVERIFY(withContextMenu(*view->viewport(), [&die](const QMenu&) { die(); }));
    } else {
        die();
    }
    message(host, tabs[tab].messageRole, QString("late"));
    QCoreApplication::processEvents();
}

void LogLifetimeTest::a_view_that_outlives_its_tab_is_empty_and_usable_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < 2; ++tab)
        QTest::newRow(tabs[tab].name) << tab;
}

void LogLifetimeTest::a_view_that_outlives_its_tab_is_empty_and_usable()
{
    QFETCH(int, tab);
    FakeHost host;
    const std::unique_ptr<plugin::gui::DeviceWidget> window(tabs[tab].create(host, nullptr));
    message(host, tabs[tab].messageRole, QString("line"));
    auto* const dialog = tabs[tab].create(host, nullptr);
    const std::unique_ptr<View> view(dialog->findChild<View*>());
    message(host, tabs[tab].messageRole, QString("line"));
    view->setParent(nullptr);
    view->show();
    view->selectAll();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));

    delete dialog;
    QCOMPARE(view->toPlainText(), QString());
    view->selectAll();
    QTest::mouseClick(view->viewport(), Qt::LeftButton);
    QTest::keyClick(view.get(), Qt::Key_End);
    QVERIFY(!view->grab().isNull());
    QCoreApplication::processEvents();
}

void LogLifetimeTest::an_exception_of_the_host_leaves_nothing_behind_data()
{
    a_view_that_outlives_its_tab_is_empty_and_usable_data();
}

void LogLifetimeTest::an_exception_of_the_host_leaves_nothing_behind()
{
    QFETCH(int, tab);
    const auto prepare = [](FakeHost& host) {
        host.set(Kind::Config, "camera_resolution", olm::core::Vector<unsigned int>(2));
        host.answers[LaserStartTextRole] = QString("Ready.");
    };
    QWidget window;
    window.show();
    FakeHost model;
    prepare(model);
    delete tabs[tab].create(model, &window);
    QVERIFY(model.calls.size() >= 3);
    for (int index = 0; index < model.calls.size(); ++index) {
        FakeHost host;
        prepare(host);
        host.throwAtCall = index;
        QVERIFY2(throws<std::runtime_error>([&] { tabs[tab].create(host, &window); }),
                 qPrintable(model.calls.at(index)));
        QVERIFY(host.widgets.isEmpty());
        QVERIFY(window.findChildren<QWidget*>().isEmpty());
        QCoreApplication::processEvents();
    }
}

TEST_WITH_WINDOWS(LogLifetimeTest)

} // namespace log_lifetime_test

#include "LogLifetimeTest.moc"
