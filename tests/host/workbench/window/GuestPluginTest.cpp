// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/FailureCard.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/Notice.h"
#include "host/workbench/window/StartPage.h"
#include "host/workbench/window/Window.h"
#include "tests/host/device/FakeRobot.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QToolBar>
#include <QtTest>

namespace guest_plugin_test {

using host::device::Device;
using host::loading::Failure;
using host::loading::PluginLoader;
using host::workbench::plugin::FailureCard;
using host::workbench::plugin::PluginEnvironment;
using host::workbench::window::Notice;
using host::workbench::window::StartPage;
using host::workbench::window::Window;

namespace {

struct Workbench
{
    explicit Workbench(const QString& file)
        : plugin(file),
          device("Guest", settings.path(), environment),
          window(plugin, environment)
    {
        window.add(device, QString());
    }

    QAction& entry(const char* name) const { return *window.findChild<QAction*>(name); }

    const QTemporaryDir settings;
    const PluginLoader plugin;
    PluginEnvironment environment;
    Device device;
    Window window;
};

} // namespace

/// Window, with plugins for other devices and with widgets of their own choice.
class GuestPluginTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_dialog_alone_is_all_it_takes();
    void a_plugin_that_knows_neither_widget_is_told_what_it_was_asked();
    void the_menu_connects_cancels_and_disconnects();
    void a_plugin_that_was_built_again_is_offered();
    void a_new_tool_bar_stands_before_the_button_that_stops();
};

void GuestPluginTest::a_dialog_alone_is_all_it_takes()
{
    const Workbench workbench(TEST_PLUGIN_FOLDER "/OnlyDialog.so");
    QVERIFY(workbench.window.failures().isEmpty());
    QVERIFY(!workbench.window.findChild<FailureCard*>());
    QVERIFY(!workbench.window.findChild<StartPage*>());
    QVERIFY(workbench.window.centralWidget()->findChild<QWidget*>("dialog"));
    QVERIFY(!workbench.window.findChild<QToolBar*>("toolBar"));
    QVERIFY(workbench.window.findChild<QWidget*>("stop"));
}

void GuestPluginTest::a_plugin_that_knows_neither_widget_is_told_what_it_was_asked()
{
    const Workbench workbench(TEST_PLUGIN_FOLDER "/NullWidgets.so");
    QCOMPARE(workbench.window.failures().size(), 1);
    const Failure failure = workbench.window.failures().first();
    QCOMPARE(failure.title, QString("The plugin has no widgets"));
    for (const char* word : {"\"toolbar\"", "\"dialog\"", "\"tests test plugin\""})
        QVERIFY2(failure.reason.contains(word), qPrintable(failure.reason));
    QVERIFY2(failure.advice.contains("PluginInfo"), qPrintable(failure.advice));
    QVERIFY(failure.file.endsWith("/NullWidgets.so"));
    QCOMPARE(workbench.window.findChildren<FailureCard*>().size(), 1);
}

void GuestPluginTest::the_menu_connects_cancels_and_disconnects()
{
    QTcpServer silent; // accepts and says nothing
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    FakeRobot robot;
    robot.obey();
    Workbench workbench(TEST_PLUGIN_FOLDER "/OnlyDialog.so");
    workbench.device.overrideAddress(QString("127.0.0.1:%1").arg(silent.serverPort()));
    QAction& entry = workbench.entry("connect");
    QTRY_COMPARE_WITH_TIMEOUT(entry.text(), QString("&Connect"), patience);
    entry.trigger();
    QTRY_COMPARE_WITH_TIMEOUT(entry.text(), QString("&Cancel connecting"), patience);
    entry.trigger();
    QTRY_COMPARE_WITH_TIMEOUT(entry.text(), QString("&Connect"), patience);
    QCOMPARE(workbench.device.connectionState(), -1);
    workbench.device.overrideAddress(robot.address());
    entry.trigger();
    QTRY_COMPARE_WITH_TIMEOUT(entry.text(), QString("&Disconnect"), patience);
    QCOMPARE(workbench.device.connectionState(), 3);
    entry.trigger();
    QTRY_COMPARE_WITH_TIMEOUT(entry.text(), QString("&Connect"), patience);
}

void GuestPluginTest::a_plugin_that_was_built_again_is_offered()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("plugin.so");
    QVERIFY(QFile::copy(TEST_PLUGIN_FOLDER "/OnlyDialog.so", file));
    Workbench workbench(file);
    const auto* notice = workbench.window.findChild<Notice*>();
    const QSignalSpy restart(&workbench.window, &Window::restartRequested);
    QVERIFY(notice->isHidden());
    QVERIFY(QFile::remove(file));
    QVERIFY(QFile::copy(TEST_PLUGIN_FOLDER "/TwoWidgets.so", file));
    QTRY_VERIFY_WITH_TIMEOUT(!notice->isHidden(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(notice->findChild<QLabel*>()->text().contains("File > Restart"),
                             patience);
    QCOMPARE(restart.size(), 0); // nobody asked for it
    workbench.entry("restart").trigger();
    QCOMPARE(restart.size(), 1);
}

void GuestPluginTest::a_new_tool_bar_stands_before_the_button_that_stops()
{
    expectWarning("does not support propagateSizeHints");
    const QTemporaryDir layout;
    {
        Workbench before(TEST_PLUGIN_FOLDER "/OnlyDialog.so");
        before.window.restoreLayout(layout.path());
        before.window.show();
        QVERIFY(before.window.close());
    }
    Workbench after(TEST_PLUGIN_FOLDER "/TwoWidgets.so");
    after.window.restoreLayout(layout.path());
    after.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&after.window, patience));
    const auto left = [&](const char* name) {
        return after.window.findChild<QWidget*>(name)->mapToGlobal(QPoint()).x();
    };
    QTRY_VERIFY_WITH_TIMEOUT(left("toolBar") < left("stop"), patience);
}

TEST_WITH_WINDOWS(GuestPluginTest)

} // namespace guest_plugin_test

#include "GuestPluginTest.moc"
