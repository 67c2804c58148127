// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ClickProbe.h"
#include "Comers.h"
#include "LoudRobot.h"

#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"
#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QApplication>
#include <QDockWidget>
#include <QEventLoop>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <optional>

namespace {

constexpr int connectPatience = 30000;

/// The workbench's window with one device, all its docks, and a button to click on.
class Scene
{
public:
    explicit Scene(const QString& address)
    {
        m_device.overrideAddress(address);
        m_window.add(m_device, QString());
        for (auto* dock : m_window.findChildren<QDockWidget*>())
            dock->show();
        m_window.statusBar()->addWidget(&m_button);
        m_window.resize(1200, 900);
        m_window.show();
        m_device.connectDevice();
    }

    bool isConnected()
    {
        return QTest::qWaitFor(
            [this] {
                return m_device.connectionState() >=
                       host::device::connection::Connection::connected;
            },
            connectPatience);
    }

    std::vector<double> measure(int seconds)
    {
        const ClickProbe probe(m_button);
        QEventLoop loop; // QTest's own waiting sleeps between two looks
        QTimer::singleShot(std::chrono::seconds(seconds), &loop, &QEventLoop::quit);
        loop.exec();
        return probe.delays();
    }

private:
    QTemporaryDir m_settings;
    host::workbench::plugin::PluginEnvironment m_environment;
    host::loading::PluginLoader m_plugin{QStringLiteral(DEVICE_PLUGIN_FILE)};
    host::device::Device m_device{QStringLiteral("Robot"), m_settings.path(), m_environment};
    host::workbench::window::Window m_window{m_plugin, m_environment};
    QPushButton m_button{QStringLiteral("Click")};
};

QByteArray logLine(const QByteArray& text)
{
    return R"({"op":"publish","topic":"/rosout","msg":{"header":{"seq":1,"stamp":{"secs":1,"nsecs":0},)"
           R"("frame_id":""},"level":4,"name":"/talker","msg":")" +
           text + R"(","file":"","function":"","line":0,"topics":[]}})";
}

/// The longest of the @p delays; @p most is that of the first row of a group, 0 in that row.
void print(const std::string& name, const std::vector<double>& delays, double& most)
{
    if (most == 0)
        most = delays.back();
    const double median = delays[delays.size() / 2];
    print(Row{"flood: " + name + ", click to answer, longest",
              figure(delays.back(), 1, "ms") + ", median " + figure(median, 1, "ms"), "no flood",
              figure(most, 1, "ms"), delays.back() / most, "200 ms"});
}

/// With what the flood really had, which a busy machine limits.
std::string perSecond(const char* name, int count, int seconds)
{
    return std::string(name) + ", " + std::to_string(count / seconds) + " a second";
}

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    const QApplication application(argc, argv);
    const std::optional<int> asked = secondsOf(application);
    if (!asked)
        return 2;
    const int seconds = *asked;

    struct Flood
    {
        const char* name;
        QByteArray message;
        int rate;
    };
    QByteArray newlines;
    for (int i = 0; i < 20000; ++i)
        newlines += "\\n";
    const Flood floods[] = {
        {"none", logLine("quiet"), 0},
        {"lines of the log, short", logLine("one of many"), 10000},
        {"lines of the log, 100 kB each", logLine(QByteArray(100000, 'x')), 100},
        {"lines of the log, 20,000 newlines", logLine(newlines), 100},
        {"status messages", R"({"op":"status","level":"warning","msg":"one of many"})", 10000},
    };
    double most = 0;
    for (const Flood& flood : floods) {
        const LoudRobot robot(flood.message, flood.rate);
        Scene scene(robot.address());
        if (!scene.isConnected())
            return 1;
        const int before = robot.count();
        const std::vector<double> delays = scene.measure(seconds);
        print(flood.rate > 0 ? perSecond(flood.name, robot.count() - before, seconds) : flood.name,
              delays, most);
    }

    double mostWithRobot = 0;
    for (const int rate : {0, 2000}) {
        const host::workbench::EmbeddedRobot robot(0);
        Scene scene(robot.address());
        if (!scene.isConnected())
            return 1;
        std::optional<Comers> comers;
        if (rate > 0)
            comers.emplace(robot.address(), rate);
        const std::vector<double> delays = scene.measure(seconds);
        print(comers ? perSecond("embedded robot's clients come and go", comers->count(), seconds)
                     : "none, with the embedded robot",
              delays, mostWithRobot);
    }
    return 0;
}
