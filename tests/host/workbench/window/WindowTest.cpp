// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/help/HelpPanel.h"
#include "host/workbench/names/NamesDialog.h"
#include "host/workbench/plugin/FailureCard.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/Notice.h"
#include "host/workbench/window/StartPage.h"
#include "host/workbench/window/Window.h"
#include "tests/host/device/FakeRobot.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextEdit>
#include <QTimer>
#include <QToolBar>
#include <QWindow>
#include <QtTest>

namespace window_test {

using namespace host::workbench::help;
using host::loading::Failure;
using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using namespace host::workbench::window;
using host::device::Device;
using host::workbench::EmbeddedRobot;
using host::workbench::names::NamesDialog;

namespace {

/// All that a window needs, with settings of its own.
struct Workbench
{
    /// With the robot at @p address if that is not empty, and the window said to show @p robot.
    explicit Workbench(const QString& pluginFile, const QString& robot = QString(),
                       const QString& address = QString())
        : plugin(pluginFile),
          device("Quandrel", settings.path(), environment, timing()),
          window(plugin, environment)
    {
        if (!address.isEmpty())
            device.overrideAddress(address);
        window.add(device, robot);
    }

    static host::device::connection::Timing timing()
    {
        host::device::connection::Timing timing;
        timing.frame = std::chrono::milliseconds(20);
        return timing;
    }

    QAbstractButton* button() const
    {
        return window.findChild<QToolBar*>()->findChild<QAbstractButton*>(
            "OLM GmbH Quandrel ConnectButton");
    }

    QLineEdit* field() const { return window.findChild<QToolBar*>()->findChild<QLineEdit*>(); }

    QString text(const char* name) const { return window.findChild<QLabel*>(name)->text(); }

    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patience));
    }

    void click() { QTest::mouseClick(button(), Qt::LeftButton); }

    const QTemporaryDir settings;
    const PluginLoader plugin;
    PluginEnvironment environment;
    Device device;
    Window window;
};

QImage icon(const QAbstractButton& button)
{
    return button.icon().pixmap(button.iconSize()).toImage();
}

void pressF1(const QWidget& window)
{
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->shortcut() == QKeySequence(Qt::Key_F1))
            action->trigger();
    }
}

QImage picture(const QString& name, const QSize& size)
{
    return QIcon(QPixmap(":/device_quandrel_gui/icons/" + name + ".png")).pixmap(size).toImage();
}

} // namespace

/// Window, with the real plugin loaded, with broken ones, and with the real robot.
class WindowTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_plugins_tool_bar_is_in_the_windows_tool_bar();
    void the_windows_icon_is_drawn_in_the_sizes_of_a_theme();
    void a_plugin_without_dialog_leaves_a_page_that_says_how_to_begin();
    void the_page_follows_the_connection();
    void the_plugins_own_dialog_has_its_three_tabs();
    void a_plugins_dialog_takes_the_middle();
    void a_missing_plugin_leaves_a_card_and_a_window_that_works();
    void a_widget_that_throws_is_a_card_and_the_others_are_tried();
    void the_button_shows_the_frames_while_the_robot_does_not_answer();
    void a_click_connects_to_the_robot_and_another_one_disconnects();
    void a_refusal_stands_in_the_status_bar_with_what_to_try();
    void a_lost_connection_is_made_again_unless_somebody_prefers_otherwise();
    void a_problem_of_the_device_stays_until_it_is_put_away();
    void help_is_about_what_has_the_focus();
    void help_in_a_tab_is_about_that_tab_data();
    void help_in_a_tab_is_about_that_tab();
    void about_names_the_program_and_the_plugin();
    void the_keys_go_to_the_tool_bar_at_first();
    void the_robots_names_have_a_dialog_once_it_is_opened();
    void quit_closes_the_window();
};

void WindowTest::the_plugins_tool_bar_is_in_the_windows_tool_bar()
{
    const Workbench workbench(DEVICE_PLUGIN_FILE);
    QVERIFY(workbench.window.failures().isEmpty());
    QVERIFY(workbench.button());
    QVERIFY(qobject_cast<QToolBar*>(workbench.button()->parentWidget()->parentWidget()));
    QVERIFY(workbench.window.windowTitle().contains("Quandrel"));
}

void WindowTest::the_windows_icon_is_drawn_in_the_sizes_of_a_theme()
{
    const Workbench workbench(DEVICE_PLUGIN_FILE);
    const QIcon icon = workbench.window.windowIcon();
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256})
        QVERIFY(icon.availableSizes().contains({side, side}));
}

void WindowTest::a_plugin_without_dialog_leaves_a_page_that_says_how_to_begin()
{
    const Workbench workbench(TEST_PLUGIN_FOLDER "/OnlyToolbar.so", "127.0.0.1:4711");
    QVERIFY(workbench.window.findChild<StartPage*>());
    QCOMPARE(workbench.text("connection"), QString("Not connected."));
    QVERIFY(workbench.text("steps").contains("Press the connect button"));
    QVERIFY(workbench.text("steps").contains("127.0.0.1:4711"));
    QCOMPARE(workbench.text("robot"), QString("Simulated robot: 127.0.0.1:4711"));

    const Workbench withoutRobot(TEST_PLUGIN_FOLDER "/OnlyToolbar.so");
    QVERIFY(!withoutRobot.text("steps").contains("simulated"));
    QVERIFY(!withoutRobot.window.findChild<QLabel*>("robot"));
}

void WindowTest::the_page_follows_the_connection()
{
    QTcpServer silent; // accepts and says nothing
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    EmbeddedRobot robot(0);
    Workbench workbench(TEST_PLUGIN_FOLDER "/OnlyToolbar.so", robot.address(),
                        QString("127.0.0.1:%1").arg(silent.serverPort()));
    QVERIFY(workbench.device.connectDevice());
    QTRY_VERIFY_WITH_TIMEOUT(workbench.text("connection").startsWith("Connecting to 127.0.0.1:"),
                             patience);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.text("steps").contains("To cancel"), patience);
    QVERIFY(workbench.device.disconnectDevice());
    workbench.device.overrideAddress(robot.address());
    QVERIFY(workbench.device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(workbench.device.connectionState(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.text("connection"), workbench.text("status"), patience);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.text("steps").contains("disconnect"), patience);
}

void WindowTest::the_plugins_own_dialog_has_its_three_tabs()
{
    const Workbench workbench(DEVICE_PLUGIN_FILE);
    const auto* const tabs = workbench.window.centralWidget()->findChild<QTabWidget*>();
    QVERIFY(tabs);
    QCOMPARE(tabs->count(), 3);
    QCOMPARE(tabs->tabText(0), QString("Base"));
    QVERIFY(!workbench.window.findChild<StartPage*>());
}

void WindowTest::a_plugins_dialog_takes_the_middle()
{
    const Workbench workbench(TEST_PLUGIN_FOLDER "/TwoWidgets.so");
    QVERIFY(workbench.window.failures().isEmpty());
    QVERIFY(workbench.window.centralWidget()->findChild<QWidget*>("dialog"));
    QVERIFY(workbench.window.findChild<QToolBar*>()->findChild<QWidget*>("toolbar"));
    QVERIFY(!workbench.window.findChild<StartPage*>());
}

void WindowTest::a_missing_plugin_leaves_a_card_and_a_window_that_works()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(TEST_PLUGIN_FOLDER "/no_such_file.so");
    workbench.show();

    QCOMPARE(workbench.window.failures().size(), 1);
    const auto cards = workbench.window.findChildren<FailureCard*>();
    QCOMPARE(cards.size(), 1);
    QVERIFY(cards.first()->isVisible());
    QCOMPARE(cards.first()->accessibleName(), QString("The plugin was not found"));
    QVERIFY(!workbench.window.findChild<QToolBar*>());
    QVERIFY(!workbench.window.findChild<StartPage*>());
    QVERIFY(!workbench.window.findChild<QLabel*>("status")->isVisible()); // nothing can connect
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(workbench.window.close());
}

void WindowTest::a_widget_that_throws_is_a_card_and_the_others_are_tried()
{
    const Workbench workbench(TEST_PLUGIN_FOLDER "/ThrowingWidget.so");
    QCOMPARE(workbench.window.failures().size(), 2);
    QVERIFY(workbench.window.failures().at(0).reason.contains("\"toolbar\""));
    QVERIFY(workbench.window.failures().at(1).reason.contains("\"dialog\""));
    for (const Failure& failure : workbench.window.failures())
        QVERIFY2(failure.reason.contains("no such picture"), qPrintable(failure.reason));
    QCOMPARE(workbench.window.findChildren<FailureCard*>().size(), 2);
}

void WindowTest::the_button_shows_the_frames_while_the_robot_does_not_answer()
{
    expectWarning("does not support propagateSizeHints");
    QTcpServer silent; // accepts and says nothing
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    Workbench workbench(DEVICE_PLUGIN_FILE, QString(),
                        QString("127.0.0.1:%1").arg(silent.serverPort()));
    workbench.show();

    const QSize size = workbench.button()->iconSize();
    QCOMPARE(icon(*workbench.button()), picture("wifi_disconnect", size));
    QList<QImage> seen;
    const auto look = [&] { seen << icon(*workbench.button()); };
    // The widgets are told out of the event loop, right after the signal: two turns are after it.
    connect(&workbench.device, &Device::connectionStateChanged, &workbench.window, [&] {
        QTimer::singleShot(0, &workbench.window,
                           [&] { QTimer::singleShot(0, &workbench.window, look); });
    });
    workbench.click();
    QTRY_VERIFY_WITH_TIMEOUT(seen.size() >= 4, patience);
    const QStringList frames = {"wifi_connect1", "wifi_connect2", "wifi_connect3", "wifi_connect1"};
    for (int i = 0; i < frames.size(); ++i)
        QCOMPARE(seen.at(i), picture(frames.at(i), size));
    QVERIFY(workbench.button()->toolTip().startsWith("Connecting to 127.0.0.1:"));

    workbench.click();
    QTRY_COMPARE_WITH_TIMEOUT(icon(*workbench.button()), picture("wifi_disconnect", size),
                              patience);
}

void WindowTest::a_click_connects_to_the_robot_and_another_one_disconnects()
{
    expectWarning("does not support propagateSizeHints");
    EmbeddedRobot robot(0);
    Workbench workbench(DEVICE_PLUGIN_FILE, robot.address(), robot.address());
    workbench.show();
    QCOMPARE(workbench.field()->text(), robot.address());

    workbench.click();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.button()->toolTip(),
                              QString("Connected to %1.").arg(robot.address()), patience);
    const QSize size = workbench.button()->iconSize();
    QCOMPARE(icon(*workbench.button()), picture("wifi_connect3", size));
    QVERIFY(!workbench.field()->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(workbench.text("status").contains(robot.address()), patience);

    workbench.click();
    QTRY_COMPARE_WITH_TIMEOUT(workbench.button()->toolTip(), QString("Not connected."), patience);
    QCOMPARE(icon(*workbench.button()), picture("wifi_disconnect", size));
    QTRY_VERIFY_WITH_TIMEOUT(workbench.field()->isEnabled(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(workbench.text("status"), QString("Not connected."), patience);
}

void WindowTest::a_refusal_stands_in_the_status_bar_with_what_to_try()
{
    expectWarning("does not support propagateSizeHints");
    QTcpSocket closedPort; // bound and not listening, so that nobody else opens it
    QVERIFY(closedPort.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress));
    const QString address = QString("127.0.0.1:%1").arg(closedPort.localPort());
    Workbench workbench(DEVICE_PLUGIN_FILE);
    workbench.show();

    QTest::mouseClick(workbench.field(), Qt::LeftButton);
    workbench.field()->selectAll();
    // Keys go through the window, as a person's do: to the field itself the combo box around it
    // would send them a second time.
    for (const QChar c : address)
        QTest::keyClick(workbench.window.windowHandle(), c.toLatin1());
    QTest::keyClick(workbench.window.windowHandle(), Qt::Key_Return);
    QTRY_VERIFY2_WITH_TIMEOUT(workbench.text("status").contains(address + " refuses"),
                              qPrintable(workbench.text("status")), patience);
    QVERIFY(workbench.text("status").contains("Check the port"));
    QCOMPARE(workbench.device.connectionState(), -1);
    QTRY_VERIFY_WITH_TIMEOUT(workbench.field()->isEnabled(), patience);
    QVERIFY(!QApplication::activeModalWidget());
}

void WindowTest::a_lost_connection_is_made_again_unless_somebody_prefers_otherwise()
{
    expectWarning("does not support propagateSizeHints");
    FakeRobot robot;
    robot.obey();
    Workbench workbench(DEVICE_PLUGIN_FILE, QString(), robot.address());
    workbench.show();
    auto& reconnection = workbench.device.reconnection();
    const auto lose = [&] {
        QVERIFY(workbench.device.connectDevice());
        QTRY_COMPARE_WITH_TIMEOUT(workbench.device.connectionState(), 3, patience);
        robot.drop();
        QTRY_VERIFY_WITH_TIMEOUT(reconnection.isLost(), patience);
    };
    lose();
    QVERIFY(reconnection.isTrying());
    workbench.click(); // at once, by hand
    QVERIFY(!reconnection.isTrying());
    workbench.click();
    QCOMPARE(workbench.device.connectionState(), -1);

    lose();
    QVERIFY(reconnection.isTrying());
    const auto* const menu = workbench.window.findChild<QMenu*>("lost_links");
    QCOMPARE(menu->actions().size(), 2);
    QVERIFY(menu->actions().first()->isChecked());
    menu->actions().last()->trigger();
    QVERIFY(!reconnection.isTrying());
    lose();
    QVERIFY(!reconnection.isTrying());
}

void WindowTest::a_problem_of_the_device_stays_until_it_is_put_away()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(DEVICE_PLUGIN_FILE);
    workbench.show();
    auto* notice = workbench.window.findChild<Notice*>();
    QVERIFY(!notice->isVisible());

    Q_EMIT workbench.device.problem("The stored settings are damaged.");
    QVERIFY(notice->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(notice->findChild<QLabel*>()->text(),
                              QString("The stored settings are damaged."), patience);
    Q_EMIT workbench.device.problem("The disk is full.");
    QTRY_COMPARE_WITH_TIMEOUT(notice->findChild<QLabel*>()->text(),
                              QString("The stored settings are damaged.\nThe disk is full."),
                              patience);
    Q_EMIT workbench.device.statusChanged("Not connected.");
    QVERIFY(notice->isVisible());
    QTest::mouseClick(notice->findChild<QAbstractButton*>(), Qt::LeftButton);
    QVERIFY(!notice->isVisible());

    Q_EMIT workbench.device.problem("The disk is full again.");
    QTRY_COMPARE_WITH_TIMEOUT(notice->findChild<QLabel*>()->text(),
                              QString("The disk is full again."), patience);
}

void WindowTest::help_is_about_what_has_the_focus()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(TEST_PLUGIN_FOLDER "/TwoWidgets.so");
    workbench.show();
    auto* help = workbench.window.findChild<HelpPanel*>();
    QVERIFY(!help->isVisible());

    workbench.environment.helpAction("")->trigger();
    QVERIFY(help->isVisible());
    QCOMPARE(help->windowTitle(), QString("The base tab"));

    if (QWidget* focus = workbench.window.focusWidget())
        focus->clearFocus();
    pressF1(workbench.window);
    QCOMPARE(help->windowTitle(), QString("The workbench"));

    workbench.window.findChild<QWidget*>("dialog")->setFocus();
    pressF1(workbench.window);
    QCOMPARE(help->windowTitle(), QString("Connecting"));
    QVERIFY(help->findChild<QTextBrowser*>()->toPlainText().contains("The address field"));
    QVERIFY(!QApplication::activeModalWidget());
}

void WindowTest::help_in_a_tab_is_about_that_tab_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("title");
    QTest::newRow("base") << 0 << "The base tab";
    QTest::newRow("manipulator") << 1 << "The manipulator tab";
    QTest::newRow("laser") << 2 << "The laser rangefinder tab";
}

void WindowTest::help_in_a_tab_is_about_that_tab()
{
    QFETCH(int, tab);
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(DEVICE_PLUGIN_FILE);
    workbench.show();
    auto* tabs = workbench.window.centralWidget()->findChild<QTabWidget*>();
    tabs->setCurrentIndex(tab);
    for (QWidget* focus : {static_cast<QWidget*>(tabs->tabBar()),
                           static_cast<QWidget*>(tabs->currentWidget()->findChild<QTextEdit*>()),
                           static_cast<QWidget*>(&workbench.window)}) {
        auto* help = workbench.window.findChild<HelpPanel*>();
        help->hide();
        focus->setFocus();
        pressF1(workbench.window);
        QVERIFY(help->isVisible());
        QTEST(help->windowTitle(), "title");
    }
}

void WindowTest::about_names_the_program_and_the_plugin()
{
    const Workbench workbench(DEVICE_PLUGIN_FILE);
    for (QAction* action : workbench.window.findChildren<QAction*>()) {
        if (action->text() == "&About")
            action->trigger();
    }
    QVERIFY(workbench.window.findChild<HelpPanel*>()->isHidden()); // it would squeeze the rest
    const auto* about = workbench.window.findChild<QMessageBox*>();
    QVERIFY(about && about->isVisible() && !about->isModal());
    const QString text = about->text();
    QVERIFY2(text.contains(QApplication::applicationName()), qPrintable(text));
    QVERIFY2(text.contains(DEVICE_PLUGIN_FILE), qPrintable(text));
    QVERIFY2(text.contains("Quandrel"), qPrintable(text));
}

void WindowTest::the_keys_go_to_the_tool_bar_at_first()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(DEVICE_PLUGIN_FILE);
    workbench.show();
    const QWidget* const focus = workbench.window.focusWidget();
    QVERIFY(focus);
    QVERIFY(workbench.window.findChild<QToolBar*>()->isAncestorOf(focus));
}

void WindowTest::the_robots_names_have_a_dialog_once_it_is_opened()
{
    const Workbench workbench(DEVICE_PLUGIN_FILE);
    const auto dialogs = [&workbench] { return workbench.window.findChildren<NamesDialog*>(); };
    QVERIFY(dialogs().isEmpty());
    auto* const entry = workbench.window.findChild<QAction*>("names");
    entry->trigger();
    QVERIFY(dialogs().size() == 1 && dialogs().first()->isVisible());
    dialogs().first()->close();
    entry->trigger();
    QVERIFY(dialogs().size() == 1 && dialogs().first()->isVisible());
}

void WindowTest::quit_closes_the_window()
{
    expectWarning("does not support propagateSizeHints");
    Workbench workbench(DEVICE_PLUGIN_FILE);
    workbench.show();
    for (QAction* action : workbench.window.findChildren<QAction*>()) {
        if (action->text() == "&Quit")
            action->trigger();
    }
    QVERIFY(!workbench.window.isVisible());
}

TEST_WITH_WINDOWS(WindowTest)

} // namespace window_test

#include "WindowTest.moc"
