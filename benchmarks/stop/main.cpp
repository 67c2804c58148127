// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "benchmarks/Row.h"
#include "benchmarks/Seconds.h"
#include "host/device/Device.h"
#include "host/loading/PluginLoader.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"
#include "rosbridge/protocol/Topics.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDockWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using host::device::operation::Driving;
using host::device::operation::Stopping;

constexpr std::chrono::seconds patience{30};
constexpr double moving = 0.1;
constexpr double odometryInterval = 1000.0 / 30; // ms, the robot's

QCborMap field(const QCborMap& map, const char* name)
{
    return map.value(QLatin1String(name)).toMap();
}

/// Without QTest's sleep between two looks. False if it lasted too long.
template <class Condition>
bool waitFor(const Condition& condition)
{
    const QDeadlineTimer end(patience);
    while (!condition()) {
        if (end.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// In m/s and rad/s together.
double motionIn(const QCborMap& odometry)
{
    const QCborMap twist = field(field(odometry, "twist"), "twist");
    return std::abs(field(twist, "linear").value(QLatin1String("x")).toDouble()) +
           std::abs(field(twist, "angular").value(QLatin1String("z")).toDouble());
}

/// The workbench's window with one device, all its docks, and the robot that it has in itself.
class Scene
{
public:
    Scene()
    {
        namespace topic = rosbridge::protocol::topic;
        m_device.connection().follow(
            topic::odometry.name, topic::odometry.type,
            [this](const QCborMap& message) { m_motion = motionIn(message); });
        m_device.overrideAddress(m_robot.address());
        m_window.add(m_device, QString());
        for (auto* dock : m_window.findChildren<QDockWidget*>())
            dock->show();
        m_window.resize(1200, 900);
        m_window.show();
        m_device.connectDevice();
    }

    /// Drives, presses the key, and returns the milliseconds until the robot has told that it
    /// stands still; none if it does not come that far.
    std::optional<double> measure()
    {
        Driving& driving = m_device.driving();
        Stopping& stopping = m_device.stopping();
        if (!waitFor([&] { return driving.obstacle().isEmpty(); }))
            return std::nullopt;
        driving.hold({0, 1}); // there is room to turn everywhere
        if (!waitFor([this] { return m_motion > moving; }))
            return std::nullopt;
        const auto pressed = Clock::now();
        QTest::keyClick(m_window.windowHandle(), Qt::Key_F12);
        if (!waitFor([this] { return m_motion == 0; }))
            return std::nullopt;
        const std::chrono::duration<double, std::milli> time = Clock::now() - pressed;
        driving.letGo();
        if (!waitFor([&] { return stopping.state() == Stopping::State::Stopped; }))
            return std::nullopt;
        stopping.release();
        return time.count();
    }

private:
    host::workbench::EmbeddedRobot m_robot{0};
    QTemporaryDir m_settings;
    host::workbench::plugin::PluginEnvironment m_environment;
    host::loading::PluginLoader m_plugin{QStringLiteral(DEVICE_PLUGIN_FILE)};
    host::device::Device m_device{QStringLiteral("Robot"), m_settings.path(), m_environment};
    host::workbench::window::Window m_window{m_plugin, m_environment};
    double m_motion = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    keepTableClean();
    const QApplication application(argc, argv);
    const std::optional<int> seconds = secondsOf(application);
    if (!seconds)
        return 2;
    Scene scene;
    std::vector<double> times;
    const QDeadlineTimer end(std::chrono::seconds{*seconds});
    while (!end.hasExpired() || times.empty()) {
        const std::optional<double> time = scene.measure();
        if (!time) {
            std::fprintf(stderr, "The robot could not be driven and stopped.\n");
            return 1;
        }
        times.push_back(*time);
    }
    std::sort(times.begin(), times.end());
    const auto row = [](const char* what, double time) {
        print(Row{std::string("stop: from the key to standstill, ") + what, figure(time, 1, "ms"),
                  "from one odometry to the next", figure(odometryInterval, 1, "ms"),
                  time / odometryInterval, "100 ms"});
    };
    row("median", times[times.size() / 2]);
    row("longest", times.back());
    return 0;
}
