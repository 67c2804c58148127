// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "TestCase.h"
#include "tests/host/device/FakeRobot.h"
#include "tests/host/workbench/window/FullWindow.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QtTest>

namespace stop_key_test {

using full_window::FullWindow;

namespace {

struct Robots
{
    FakeRobot robots[2];
};

/// Two devices in one window, each with a robot that can be stopped.
struct Fixture : Robots, FullWindow
{
    Fixture()
    {
        // The first one's, so that it lives as long: the window goes before it.
        auto* const second = new host::device::Device("Second", settings.path(), environment,
                                                      host::device::connection::Timing(), &device);
        window.add(*second, QString());
        for (auto* each : {&device, second}) {
            FakeRobot& robot = each == &device ? robots[0] : robots[1];
            robot.obey();
            robot.answerTrigger("/stop", true);
            each->overrideAddress(robot.address());
            each->connectDevice();
            QTRY_COMPARE_WITH_TIMEOUT(each->connectionState(), 3, patience);
        }
        QVERIFY(window.isActiveWindow());
    }

    /// Into the window of the system that has the focus.
    static void press(Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_F12, modifiers);
    }

    bool areStopped(int times) const
    {
        return QTest::qWaitFor(
            [&] { return calls(robots[0]) == times && calls(robots[1]) == times; }, patience);
    }

    static int calls(const FakeRobot& robot) { return int(robot.calls().count("/stop {}")); }
};

} // namespace

/// One key stops all robots, whatever has the focus.
class StopKeyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_works_wherever_the_focus_is();
    void a_shortcut_does_not_take_it();
    void a_key_that_is_held_stops_once();
};

void StopKeyTest::it_works_wherever_the_focus_is()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    int times = 0;
    // A field, a table and the editor in its cell.
    f.window.findChild<QLineEdit*>()->setFocus();
    Fixture::press();
    QVERIFY(f.areStopped(++times));
    f.tabs().setCurrentIndex(1);
    f.table().setFocus();
    f.table().setCurrentIndex(f.table().model()->index(0, 0));
    QTest::keyClick(f.window.windowHandle(), Qt::Key_F2);
    QVERIFY(f.table().isAncestorOf(QApplication::focusWidget()));
    QVERIFY(QApplication::focusWidget() != &f.table());
    Fixture::press(Qt::ShiftModifier);
    QVERIFY(f.areStopped(++times));
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Escape);

    // An open menu.
    QMenu* const menu = f.window.menuBar()->actions().first()->menu();
    menu->popup(f.window.mapToGlobal(QPoint()));
    QCOMPARE(QApplication::activePopupWidget(), static_cast<QWidget*>(menu));
    QTest::keyClick(menu->windowHandle(), Qt::Key_F12);
    QVERIFY(f.areStopped(++times));
    menu->close();

    // A floating dock.
    QDockWidget* const dock = f.docks().first();
    dock->setFloating(true);
    dock->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dock, patience));
    Fixture::press();
    QVERIFY(f.areStopped(++times));
    dock->setFloating(false);

    // A dialog that blocks all windows.
    QDialog dialog(&f.window);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    dialog.activateWindow();
    QTRY_COMPARE_WITH_TIMEOUT(QGuiApplication::focusWindow(), dialog.windowHandle(), patience);
    QCOMPARE(QGuiApplication::modalWindow(), dialog.windowHandle());
    Fixture::press();
    QVERIFY(f.areStopped(++times));
}

void StopKeyTest::a_shortcut_does_not_take_it()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    QShortcut shortcut(QKeySequence(Qt::Key_F12), &f.window);
    QSignalSpy activations(&shortcut, &QShortcut::activated);
    Fixture::press();
    QVERIFY(f.areStopped(1));
    QCOMPARE(int(activations.count()), 0);
}

void StopKeyTest::a_key_that_is_held_stops_once()
{
    expectWarning("does not support propagateSizeHints");
    Fixture f;
    for (const bool isAutoRepeat : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_F12, Qt::NoModifier, QString(), isAutoRepeat);
        QCoreApplication::sendEvent(f.window.windowHandle(), &press);
    }
    QVERIFY(f.areStopped(1));
}

TEST_WITH_WINDOWS(StopKeyTest)

} // namespace stop_key_test

#include "StopKeyTest.moc"
