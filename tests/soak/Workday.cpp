// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Workday.h"

#include "Census.h"
#include "Flood.h"

#include "host/device/connection/MessageRole.h"
#include "host/workbench/window/DeviceView.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/Vector.h"
#include "plugin/gui/HistoryBundleContent.h"
#include "robot/network/RobotLimits.h"
#include "robot/simulation/Laser.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QDockWidget>
#include <QTabWidget>
#include <QTest>
#include <QTextCursor>
#include <QTextEdit>
#include <QToolBar>

#include <optional>

namespace {

using host::device::Device;
using host::device::connection::Connection;
using plugin::gui::HistoryBundleContent;
using plugin::gui::VariableKind;

constexpr int patience = 60000;

/// As many lines as a log keeps, and some more.
constexpr int logLines = 5500;

constexpr int floodLines = 1000;

constexpr QSize windowSize(1600, 1000);

host::device::connection::Timing quick()
{
    host::device::connection::Timing timing;
    timing.frame = std::chrono::milliseconds(20);
    // The robots share this thread: an answer may take its time.
    timing.answer = timing.link.connect = timing.link.pongDeadline =
        std::chrono::milliseconds(patience);
    return timing;
}

/// Flooded, the robot answers as slowly as the window paints: a flood is over sooner like this.
rosbridge::server::Limits narrow()
{
    rosbridge::server::Limits limits = robot::network::robotLimits();
    limits.messageBurst = 200;
    limits.closeDeadline = std::chrono::milliseconds(100);
    return limits;
}

/// The resolution in which the camera is the quickest.
olm::core::Vector<unsigned int> quickestResolution()
{
    olm::core::Vector<unsigned int> resolution(2);
    resolution[0] = 320;
    resolution[1] = 240;
    return resolution;
}

/// As large as those of the robot.
olm::core::LaserScanMessage exampleScan()
{
    olm::core::LaserScanMessage scan;
    scan.ranges.resize(robot::simulation::Laser::rangeCount);
    return scan;
}

/// Far more than a robot should say. Into one log, so that what it keeps is of the same kind after
/// each time.
void sayTooMuch(Device& device)
{
    const auto say = [&device](const QString& line) {
        Q_EMIT device.connection().message(host::device::connection::baseLogLine, line);
    };
    for (int i = 0; i < floodLines; ++i)
        say(QStringLiteral("Line %1 of a flood.").arg(i));
    say(QString(100000, QLatin1Char('x')));
    say(QString(20000, QLatin1Char('\n')));
}

template <class Condition>
void waitFor(const Device& device, const char* what, const Condition& condition)
{
    if (!QTest::qWaitFor(condition, patience)) {
        qFatal("%s: that did not come about within a minute. The device says: %s", what,
               qPrintable(device.status()));
    }
}

} // namespace

Workday::Station::Station(const QString& name, quint32 seed, const QString& settings,
                          host::workbench::plugin::PluginEnvironment& environment)
    : robot(seed, narrow()),
      device(name, settings, environment, quick())
{
    QString error;
    if (!robot.listen({QStringLiteral("127.0.0.1"), 0}, &error))
        qFatal("%s", qPrintable(error));
    device.overrideAddress(address());
    QObject::connect(&device.variables(), &host::device::variables::Variables::touched,
                     [this](const host::device::variables::Variables::Key& key) {
                         if (key.second == "scan")
                             ++scans;
                     });
}

QString Workday::Station::address() const
{
    return QStringLiteral("127.0.0.1:%1").arg(robot.port());
}

QAbstractButton& Workday::Station::connectButton() const
{
    return *view->findChild<QToolBar*>()->findChild<QAbstractButton*>(
        "OLM GmbH Quandrel ConnectButton");
}

Workday::Workday()
    : m_stations{Station("Left", 1, m_settings.path(), m_environment),
                 Station("Right", 2, m_settings.path(), m_environment)}
{
    for (Station& station : m_stations) {
        station.view = &m_window.add(station.device, station.address());
        for (auto* dock : station.view->findChildren<QDockWidget*>()) {
            dock->show();
            // Side by side: a dock behind another one does nothing.
            station.view->addDockWidget(Qt::BottomDockWidgetArea, dock, Qt::Vertical);
        }
    }
    m_window.resize(windowSize);
    m_window.show();
    fill();
    connectAll();
}

void Workday::fill()
{
    HistoryBundleContent content;
    content.insert(VariableKind::Input, "scan", exampleScan());
    QString lines;
    for (int i = 0; i < logLines; ++i)
        lines += QStringLiteral("Line %1: this is what a robot says now and then.\n").arg(i);
    for (Station& station : m_stations) {
        Device& device = station.device;
        // Not line by line: a log takes in no more than somebody could read.
        for (const auto* log : station.view->findChildren<QTextEdit*>())
            QTextCursor(log->document()).insertText(lines);
        QCoreApplication::processEvents();
        const auto end = device.traffic().end() + host::device::trace::Traffic::capacity;
        while (device.traffic().end() < end)
            Q_EMIT device.variables().changed(content);
    }
}

void Workday::cycle()
{
    Station& flooded = m_stations[0];
    const std::size_t sockets = census::sockets();
    std::optional<Flood> flood(flooded.address());
    for (Station& station : m_stations)
        sayTooMuch(station.device);
    changeTabs();
    changeSettings();
    changeLanguage();
    useHelp();
    useDocks();
    disconnectAll();
    connectAll();
    waitFor(flooded.device, "flood cut off", [&flood] { return flood->isOver(); });
    flood.reset();
    waitFor(flooded.device, "its connections gone",
            [sockets] { return census::sockets() == sockets; });
}

void Workday::connectAll()
{
    for (const Station& station : m_stations)
        station.connectButton().click();
    for (Station& station : m_stations) {
        waitFor(station.device, "connected",
                [&station] { return station.device.connectionState() == Connection::connected; });
        station.device.write(VariableKind::Config, "camera_resolution", quickestResolution());
    }
    waitForScans();
}

void Workday::disconnectAll()
{
    for (const Station& station : m_stations)
        station.connectButton().click();
    for (const Station& station : m_stations) {
        waitFor(station.device, "disconnected", [&station] {
            return station.device.connectionState() == Connection::notConnected;
        });
    }
}

void Workday::changeTabs()
{
    for (const int tab : {1, 2, 0}) {
        for (const Station& station : m_stations)
            station.view->findChild<QTabWidget*>()->setCurrentIndex(tab);
        waitForScans();
    }
}

void Workday::changeSettings()
{
    for (Station& station : m_stations) {
        const auto isDisabled = [&station] {
            return station.device.read(VariableKind::Config, "disableDriveSystem").toBool();
        };
        const bool before = isDisabled();
        // The base tab has one check box only.
        station.view->findChild<QTabWidget*>()->currentWidget()->findChild<QCheckBox*>()->click();
        waitFor(station.device, "drive system switched", [&] { return isDisabled() != before; });
    }
}

void Workday::changeLanguage()
{
    for (const char* code : {"de", "en"}) {
        m_environment.language().use(QString::fromLatin1(code));
        waitForScans();
    }
}

void Workday::useHelp()
{
    for (const char* context : {"rangefinder", "manipulator"}) {
        m_environment.helpAction(QString::fromLatin1(context))->trigger();
        waitFor(m_stations[0].device, "help shown",
                [this] { return m_window.findChild<QDockWidget*>("HelpPanel")->isVisible(); });
    }
    m_window.findChild<QDockWidget*>("HelpPanel")->close();
}

void Workday::useDocks()
{
    for (const bool isShown : {false, true}) {
        for (const Station& station : m_stations) {
            for (auto* dock : station.view->findChildren<QDockWidget*>())
                dock->setVisible(isShown);
        }
        waitForScans();
    }
}

void Workday::waitForScans()
{
    for (Station& station : m_stations)
        station.scans = 0;
    for (const Station& station : m_stations)
        waitFor(station.device, "scan", [&station] { return station.scans > 0; });
}
