// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Patience.h"
#include "TestCase.h"

#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"
#include "tests/host/device/FakeRobot.h"

#include <QAction>
#include <QLabel>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest>

namespace markup_test {

using host::device::Device;
using host::device::connection::Connection;
using host::loading::PluginLoader;
using namespace host::workbench::plugin;
using namespace host::workbench::window;

namespace {

/// In each text that comes from outside.
constexpr const char* markup = "<b>bold</b>";

/// Whether @p tip shows the tags of the text, if it has any.
bool isPlain(const QString& tip)
{
    if (!Qt::mightBeRichText(tip))
        return true;
    QTextDocument shown;
    shown.setHtml(tip);
    return !shown.toPlainText().contains("bold") || shown.toPlainText().contains(markup);
}

} // namespace

/// What robots, plugins and people write, wherever the window shows it.
class MarkupTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void no_text_from_outside_is_markup_data();
    void no_text_from_outside_is_markup();
};

void MarkupTest::no_text_from_outside_is_markup_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::newRow("the plugin") << DEVICE_PLUGIN_FILE;
    QTest::newRow("without dialog") << TEST_PLUGIN_FOLDER "/OnlyToolbar.so";
    QTest::newRow("without plugin") << QString("/no/such/") + markup + ".so";
}

void MarkupTest::no_text_from_outside_is_markup()
{
    QFETCH(const QString, plugin);
    FakeRobot robot;
    robot.obey();
    robot.answerTrigger("/control/acquire", false, markup);
    const QTemporaryDir settings;
    PluginEnvironment environment;
    const PluginLoader loader(plugin);
    Device device(markup, settings.path(), environment);
    Window window(loader, environment);
    DeviceView& view = window.add(device, markup);
    view.setNameShown(true);
    view.notify(markup);
    window.show();
    device.overrideAddress(robot.address());
    QVERIFY(device.connectDevice());
    QTRY_COMPARE_WITH_TIMEOUT(device.connectionState(), Connection::passive, patience);
    QTRY_VERIFY_WITH_TIMEOUT(view.findChild<QLabel*>("status")->text().contains(markup), patience);

    int texts = 0;
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (!label->text().contains("bold"))
            continue;
        ++texts;
        const bool isEscaped = label->textFormat() == Qt::RichText && isPlain(label->text());
        QVERIFY2(label->textFormat() == Qt::PlainText || isEscaped, qPrintable(label->text()));
    }
    QVERIFY(texts >= 3); // name, notice and status, at least
    for (const auto* widget : window.findChildren<QWidget*>())
        QVERIFY2(isPlain(widget->toolTip()), qPrintable(widget->toolTip()));
    for (const auto* action : window.findChildren<QAction*>())
        QVERIFY2(isPlain(action->toolTip()), qPrintable(action->toolTip()));
}

TEST_WITH_WINDOWS(MarkupTest)

} // namespace markup_test

#include "MarkupTest.moc"
