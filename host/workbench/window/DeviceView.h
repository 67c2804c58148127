// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_DEVICEVIEW_H
#define HOST_WORKBENCH_WINDOW_DEVICEVIEW_H

#include "host/loading/Failure.h"

#include "host/workbench/window/Paced.h"

#include <QList>
#include <QMainWindow>

class QAction;
class QLabel;
class QMenu;
class QSettings;
class QToolBar;
class QVBoxLayout;

namespace host::device {
class Device;
}

namespace plugin::gui {
class DeviceWidget;
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

namespace host::loading {
class PluginLoader;
} // namespace host::loading

namespace host::workbench::robotview {
class RobotDock;
} // namespace host::workbench::robotview

namespace host::workbench::window {

class Notice;
class StartPage;
class StatusLine;

/// One device: the plugin's tool bar, its dialog or the page that stands in for it, how the
/// connection stands, and the docks that look into the device. A main window of its own within
/// the window, so that each device has its docks where somebody left them. What the plugin fails
/// to bring is replaced by a card that says why. It never opens a modal box.
class DeviceView : public QMainWindow
{
    Q_OBJECT

public:
    /// @p robot says where the device's simulated robot runs, empty for none. The others outlive
    /// the view.
    DeviceView(const loading::PluginLoader& plugin, device::Device& device, const QString& robot);

    device::Device& device() const { return m_device; }

    /// Where the device's simulated robot runs; empty without one.
    const QString& robot() const { return m_robot; }

    /// What the plugin failed to bring, in the order of the cards and the language of the moment.
    QList<loading::Failure> failures() const;

    /// Menus about this device, owned by the view, to be shown in the window's menu bar.
    QList<QMenu*> menus() const;

    /// Whether the device's name stands above it, and whether marked as the one that the menus
    /// are about.
    void setNameShown(bool isShown);
    void setCurrent(bool isCurrent);

    /// What a person arranged: docks, the plugin's tab, and what the docks follow and plot. Under
    /// keys of their own in the group of @p layout that is open; what cannot be read stays as it
    /// is.
    void saveLayout(QSettings& layout) const;
    void restoreLayout(const QSettings& layout);

    /// Tells what a person should know of, until it is put away.
    void notify(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void openNames();
    void addDocks();
    void addPlugin();
    void addMissingWidgets();
    ::plugin::gui::DeviceWidget* loadWidget(const char* name);
    void addFailure(const loading::FailureWords& failure);
    void exportScan();
    void showConnection();

    const loading::PluginLoader& m_plugin;
    device::Device& m_device;
    QString m_robot;
    QList<loading::FailureWords> m_failures;
    QMenu* m_viewMenu;
    QMenu* m_robotMenu;
    QMenu* m_faultsMenu;
    QAction* m_connect;
    QAction* m_names;
    QAction* m_exportScan;
    QAction* m_resetLayout = nullptr;
    QLabel* m_name;
    QToolBar* m_toolBar = nullptr;                     // the plugin's; null without one
    operation::OperationBar* m_operationBar = nullptr; // without a plugin there is none
    QVBoxLayout* m_middle;
    robotview::RobotDock* m_robotDock = nullptr;
    plots::PlotsDock* m_plotsDock = nullptr;
    QByteArray m_usualDocks; // as nobody has moved them yet
    Notice* m_notice;
    StartPage* m_startPage = nullptr;
    Paced m_connection;
    StatusLine* m_status;
    names::NamesDialog* m_namesDialog = nullptr; // until somebody opens it
};

} // namespace host::workbench::window

#endif
