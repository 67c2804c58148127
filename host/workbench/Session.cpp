// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/Session.h"

#include "host/workbench/Options.h"
#include "host/workbench/bugreport/BugReportDialog.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/replay/ReplayView.h"
#include "host/workbench/window/DeviceView.h"

#include <QTextStream>

namespace host::workbench {

Session::Session(const Options& options, const QString& settings,
                 plugin::PluginEnvironment& environment)
    : m_environment(environment),
      m_settings(settings),
      m_stations(static_cast<std::size_t>(options.devices().size())),
      m_plugin(options.pluginFile().isEmpty() ? loading::PluginLoader::defaultFile()
                                              : options.pluginFile()),
      m_window(m_plugin, environment)
{
    QObject::connect(&m_window, &window::Window::bugReportRequested, &m_window,
                     [this] { showBugReport(); });
    if (!options.replayFile().isEmpty()) {
        openReplay(options.replayFile());
        return;
    }
    if (options.hasRobot() && !startRobots(options))
        return;
    for (int i = 0; i < options.devices().size(); ++i)
        addDevice(i, options, settings);
    tellBadLines();
}

void Session::openReplay(const QString& file)
{
    if (auto conversation = device::replay::Conversation::open(file, &m_error)) {
        m_replay.emplace(std::move(conversation), m_environment);
        m_window.add(new replay::ReplayView(m_plugin, *m_replay, file));
    }
}

/// Each with a world and, where it is free, a port of its own.
bool Session::startRobots(const Options& options)
{
    const robot::LaserLogOptions& laserLog = options.laserLog();
    for (std::size_t i = 0; i < m_stations.size(); ++i) {
        const auto port = static_cast<quint16>(rosbridge::protocol::Address::defaultPort + i);
        EmbeddedRobot& robot = m_stations[i].robot.emplace(port, static_cast<quint32>(i + 1));
        if (!laserLog.file().isEmpty() &&
            !robot.setLaserLog(laserLog.file(), laserLog.rate(), &m_badLines, &m_error))
            return false;
    }
    return true;
}

void Session::addDevice(int index, const Options& options, const QString& settings)
{
    auto& [robot, device] = m_stations[static_cast<std::size_t>(index)];
    device.emplace(options.devices().at(index), settings, m_environment);
    const QString robotAddress = robot ? robot->address() : QString();
    if (!robotAddress.isEmpty())
        device->setDefaultAddress(robotAddress);
    if (index < options.addresses().size())
        device->overrideAddress(options.addresses().at(index).toString());
    device->connection().certificates().believe(options.certificates());
    for (const auto& [ours, theirs] : options.names())
        device->remappings().set(ours, theirs);
    if (index == 0 && !options.recordFile().isEmpty()) // the plugin's first calls, too
        device->recorder().start(options.recordFile(), &m_error);
    window::DeviceView& view = m_window.add(*device, robotAddress);
    if (robot && !robot->error().isEmpty())
        view.notify(robot->error());
}

bugreport::BugReport Session::bugReport()
{
    QList<device::Device*> devices;
    for (Station& station : m_stations) {
        if (station.device)
            devices << &*station.device;
    }
    return {m_plugin, devices, m_settings};
}

void Session::showBugReport()
{
    auto* dialog = new bugreport::BugReportDialog(bugReport(), &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void Session::tellBadLines()
{
    for (const QString& line : std::as_const(m_badLines))
        QTextStream(stderr) << line << '\n';
    if (!m_badLines.isEmpty())
        m_window.notify(m_badLines.first());
    if (m_badLines.size() > 1)
        m_window.notify(tr("The standard error lists further lines that cannot be read."));
}

} // namespace host::workbench
