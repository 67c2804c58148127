// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace several_devices_test {

using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using namespace host::workbench::window;
using host::device::Device;
using host::workbench::EmbeddedRobot;

namespace {

/// A window with two devices, each with settings of its own name in one folder.
struct Workbench
{
    explicit Workbench(const QString& settings)
        : plugin(DEVICE_PLUGIN_FILE),
          left("Left", settings, environment, timing()),
          right("Right", settings, environment, timing()),
          window(plugin, environment)
    {
        window.add(left, QString());
        window.add(right, QString());
    }

    static host::device::connection::Timing timing()
    {
        host::device::connection::Timing timing;
        timing.frame = std::chrono::milliseconds(20);
        return timing;
    }

    DeviceView& view(int index) const { return *window.views().at(index); }

    QAbstractButton& button(int index) const
    {
        return *view(index).findChild<QToolBar*>()->findChild<QAbstractButton*>(
            "OLM GmbH Quandrel ConnectButton");
    }

    QLineEdit& field(int index) const
    {
        return *view(index).findChild<QToolBar*>()->findChild<QLineEdit*>();
    }

    /// The menus in the menu bar, by whose they are.
    bool areMenusOf(int index) const
    {
        for (int i = 0; i < window.views().size(); ++i) {
            for (const QMenu* menu : view(i).menus()) {
                if (!window.menuBar()->actions().contains(menu->menuAction()) ||
                    menu->menuAction()->isVisible() != (i == index))
                    return false;
            }
        }
        return true;
    }

    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    }

    PluginLoader plugin;
    PluginEnvironment environment;
    Device left;
    Device right;
    Window window;
};

QDockWidget* dock(const DeviceView& view, const char* name)
{
    return view.findChild<QDockWidget*>(name);
}

QTabWidget& tabs(const DeviceView& view)
{
    return *view.centralWidget()->findChild<QTabWidget*>();
}

} // namespace

/// Window with several devices side by side.
class SeveralDevicesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void each_device_has_its_own_tool_bar_dialog_and_name();
    void one_device_alone_needs_no_name();
    void devices_connect_to_different_robots_at_once();
    void settings_are_the_devices_own();
    void the_menus_are_those_of_the_device_with_the_focus();
    void one_device_has_room_in_the_smallest_window_and_the_others_are_scrolled_to();
    void docks_and_size_come_back_where_they_were();
    void docks_can_be_put_back_where_they_were_at_first();
    void the_first_window_has_room_on_its_screen();
    void a_layout_that_cannot_be_read_is_the_usual_one();
};

void SeveralDevicesTest::each_device_has_its_own_tool_bar_dialog_and_name()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir settings;
    Workbench workbench(settings.path());
    workbench.show();
    QCOMPARE(workbench.window.windowTitle(), QString("Left, Right - device workbench"));
    QCOMPARE(workbench.window.views().size(), 2);
    for (int i = 0; i < 2; ++i) {
        const auto* const name = workbench.view(i).findChild<QLabel*>("name");
        QVERIFY(name->isVisible());
        QCOMPARE(name->text(), QString(i == 0 ? "Left" : "Right"));
        QVERIFY(workbench.button(i).isVisible());
        QVERIFY(workbench.view(i).failures().isEmpty());
    }
    QVERIFY(workbench.view(0).geometry().right() < workbench.view(1).geometry().left());
}

void SeveralDevicesTest::one_device_alone_needs_no_name()
{
    const QTemporaryDir settings;
    PluginEnvironment environment;
    const PluginLoader plugin(DEVICE_PLUGIN_FILE);
    Device device("Quandrel", settings.path(), environment);
    Window window(plugin, environment);
    window.add(device, QString());
    QVERIFY(window.findChild<QLabel*>("name")->isHidden());
}

void SeveralDevicesTest::devices_connect_to_different_robots_at_once()
{
    expectWarning("does not support propagateSizeHints");
    const EmbeddedRobot first(0, 1);
    const EmbeddedRobot second(0, 2);
    const QTemporaryDir settings;
    Workbench workbench(settings.path());
    workbench.left.overrideAddress(first.address());
    workbench.right.overrideAddress(second.address());
    workbench.show();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.field(1).text(), second.address(), patience);

    workbench.button(0).click();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.left.connectionState(), 3, patience);
    QCOMPARE(workbench.right.connectionState(), -1);
    workbench.button(1).click();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.right.connectionState(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.button(0).toolTip(),
                              QString("Connected to %1.").arg(first.address()), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.button(1).toolTip(),
                              QString("Connected to %1.").arg(second.address()), patience);
    workbench.button(0).click();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.left.connectionState(), -1, patience);
    QCOMPARE(workbench.right.connectionState(), 3);
}

void SeveralDevicesTest::settings_are_the_devices_own()
{
    const QTemporaryDir settings;
    {
        Workbench workbench(settings.path());
        workbench.left.write(plugin::gui::VariableKind::Config, "ipAddress",
                             std::string("10.0.0.1"));
        workbench.right.write(plugin::gui::VariableKind::Config, "ipAddress",
                              std::string("10.0.0.2"));
    }
    const Workbench workbench(settings.path());
    QTRY_COMPARE_WITH_TIMEOUT(workbench.field(0).text(), QString("10.0.0.1"), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.field(1).text(), QString("10.0.0.2"), patience);
}

void SeveralDevicesTest::the_menus_are_those_of_the_device_with_the_focus()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir settings;
    Workbench workbench(settings.path());
    workbench.show();
    QVERIFY(workbench.areMenusOf(0));
    QTest::mouseClick(&workbench.field(1), Qt::LeftButton);
    QVERIFY(workbench.areMenusOf(1));
    // Where nothing takes the keys, the view does.
    QTest::mouseClick(workbench.view(0).findChild<QLabel*>("status"), Qt::LeftButton);
    QVERIFY(workbench.areMenusOf(0));
}

void SeveralDevicesTest::one_device_has_room_in_the_smallest_window_and_the_others_are_scrolled_to()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir settings;
    Workbench workbench(settings.path());
    workbench.show();
    workbench.window.resize(1, 1);
    const auto* const area = qobject_cast<QScrollArea*>(workbench.window.centralWidget());
    const QSize room = area->viewport()->size();
    for (int i = 0; i < 2; ++i) {
        const QSize needed = workbench.view(i).minimumSizeHint();
        QVERIFY(room.width() >= needed.width() && room.height() >= needed.height());
    }
    QVERIFY(area->horizontalScrollBar()->maximum() > 0);
    QVERIFY(area->verticalScrollBar()->maximum() == 0);

    // Docks need room, too.
    const int height = workbench.window.height();
    dock(workbench.view(0), "VariablesDock")->show();
    QTRY_VERIFY_WITH_TIMEOUT(workbench.window.height() > height, patience);
}

void SeveralDevicesTest::docks_and_size_come_back_where_they_were()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir settings;
    const QTemporaryDir state;
    QSize size;
    {
        Workbench workbench(settings.path());
        workbench.window.restoreLayout(state.filePath("made"));
        workbench.show();
        workbench.window.resize(900, 780);
        dock(workbench.view(0), "RobotDock")->close();
        workbench.view(1).addDockWidget(Qt::RightDockWidgetArea,
                                        dock(workbench.view(1), "VariablesDock"));
        dock(workbench.view(1), "VariablesDock")->show();
        tabs(workbench.view(1)).setCurrentIndex(2);
        workbench.view(1).findChild<QToolButton*>("follow")->setChecked(true);
        size = workbench.window.size();
        workbench.window.close();
    }
    Workbench workbench(settings.path());
    workbench.window.restoreLayout(state.filePath("made"));
    workbench.show();
    QCOMPARE(workbench.window.size(), size);
    QVERIFY(!dock(workbench.view(0), "RobotDock")->isVisible());
    QVERIFY(!dock(workbench.view(0), "VariablesDock")->isVisible());
    QVERIFY(dock(workbench.view(1), "RobotDock")->isVisible());
    QVERIFY(dock(workbench.view(1), "VariablesDock")->isVisible());
    QCOMPARE(workbench.view(1).dockWidgetArea(dock(workbench.view(1), "VariablesDock")),
             Qt::RightDockWidgetArea);
    QCOMPARE(tabs(workbench.view(0)).currentIndex(), 0);
    QCOMPARE(tabs(workbench.view(1)).currentIndex(), 2);
    QVERIFY(!workbench.view(0).findChild<QToolButton*>("follow")->isChecked());
    QVERIFY(workbench.view(1).findChild<QToolButton*>("follow")->isChecked());
}

void SeveralDevicesTest::docks_can_be_put_back_where_they_were_at_first()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir settings;
    const Workbench workbench(settings.path());
    DeviceView& view = workbench.view(0);
    dock(view, "RobotDock")->setFloating(true);
    view.addDockWidget(Qt::LeftDockWidgetArea, dock(view, "VariablesDock"));
    dock(view, "VariablesDock")->show();
    view.findChild<QAction*>("resetLayout")->trigger();
    QVERIFY(!dock(view, "RobotDock")->isFloating() && !dock(view, "RobotDock")->isHidden());
    QVERIFY(dock(view, "VariablesDock")->isHidden());
    QCOMPARE(view.dockWidgetArea(dock(view, "VariablesDock")), Qt::BottomDockWidgetArea);
}

void SeveralDevicesTest::the_first_window_has_room_on_its_screen()
{
    const QTemporaryDir settings;
    const Workbench workbench(settings.path());
    const QSize room = workbench.window.screen()->availableSize();
    QVERIFY(workbench.window.width() <= room.width());
    QVERIFY(workbench.window.height() < room.height()); // its title needs room, too
}

void SeveralDevicesTest::a_layout_that_cannot_be_read_is_the_usual_one()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir settings;
    const QTemporaryDir state;
    QFile file(state.filePath("window.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\ngeometry=@ByteArray(nonsense)\ndevices=7\n[views]\nLeft\\docks="
               "x\nLeft\\tab=99\n\0\xff",
               83);
    file.close();
    Workbench workbench(settings.path());
    const QSize size = workbench.window.size();
    workbench.window.restoreLayout(state.path());
    workbench.show();
    QCOMPARE(workbench.window.size(), size);
    QVERIFY(workbench.button(0).isVisible() && workbench.button(1).isVisible());
}

TEST_WITH_WINDOWS(SeveralDevicesTest)

} // namespace several_devices_test

#include "SeveralDevicesTest.moc"
