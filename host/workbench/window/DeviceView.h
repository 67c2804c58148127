// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_DEVICEVIEW_H
#define HOST_WORKBENCH_WINDOW_DEVICEVIEW_H

#include "host/workbench/window/Paced.h"
#include "host/workbench/window/PluginView.h"

namespace host::device {
class Device;
}

namespace host::workbench::names {
class NamesDialog;
} // namespace host::workbench::names

namespace host::workbench::operation {
class OperationBar;
} // namespace host::workbench::operation

namespace host::workbench::plots {
class PlotsDock;
} // namespace host::workbench::plots

namespace host::workbench::robotview {
class RobotDock;
} // namespace host::workbench::robotview

namespace host::workbench::window {

class StartPage;
class StatusLine;

/// One device: the plugin's tool bar, its dialog or the page that stands in for it, how the
/// connection stands, and the docks that look into the device.
class DeviceView : public PluginView
{
    Q_OBJECT

public:
    /// @p robot says where the device's simulated robot runs, empty for none. The others outlive
    /// the view.
    DeviceView(const loading::PluginLoader& plugin, device::Device& device, const QString& robot);

    device::Device& device() const { return m_device; }

    /// Where the device's simulated robot runs; empty without one.
    const QString& robot() const { return m_robot; }

    QList<QMenu*> menus() const override;

    /// Also what the docks follow and plot.
    void saveLayout(QSettings& layout) const override;
    void restoreLayout(const QSettings& layout) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void openNames();
    void addDocks();
    void exportScan();
    void showConnection();

    device::Device& m_device;
    QString m_robot;
    QMenu* m_robotMenu;
    QMenu* m_faultsMenu;
    QAction* m_connect;
    QAction* m_names;
    QAction* m_exportScan;
    operation::OperationBar* m_operationBar = nullptr; // without a plugin there is none
    robotview::RobotDock* m_robotDock = nullptr;
    plots::PlotsDock* m_plotsDock = nullptr;
    StartPage* m_startPage = nullptr;
    Paced m_connection;
    StatusLine* m_status;
    names::NamesDialog* m_namesDialog = nullptr; // until somebody opens it
};

} // namespace host::workbench::window

#endif
