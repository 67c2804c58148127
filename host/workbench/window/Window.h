// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_WINDOW_H
#define HOST_WORKBENCH_WINDOW_WINDOW_H

#include "host/loading/Failure.h"
#include "host/workbench/operation/StopKey.h"
#include "host/workbench/plugin/PluginWatch.h"

#include <QList>
#include <QMainWindow>
#include <QPointer>

class QAction;
class QMenu;
class QMessageBox;

namespace host::device {
class Device;
}

namespace host::workbench::help {
class HelpPanel;
} // namespace host::workbench::help

namespace host::loading {
class PluginLoader;
} // namespace host::loading

namespace host::workbench::plugin {
class PluginEnvironment;
} // namespace host::workbench::plugin

namespace host::workbench::window {

class DeviceArea;
class DeviceView;
class PluginView;

/// All devices of the workbench side by side, with the menus and the help. The menus about a
/// device are those of the one which has the focus, or had it last.
class Window : public QMainWindow
{
    Q_OBJECT

public:
    /// Both outlive the window.
    Window(const loading::PluginLoader& plugin, plugin::PluginEnvironment& environment);
    ~Window() override;

    /// Shows one more device, which outlives the window. @p robot says where its simulated robot
    /// runs, empty for none.
    DeviceView& add(device::Device& device, const QString& robot);

    /// Shows a view that has a device of its own. Takes ownership.
    void add(PluginView* view);

    /// Those of devices.
    const QList<DeviceView*>& views() const { return m_deviceViews; }

    /// Puts window and docks back to where they were when the window was closed last, and keeps
    /// their places in @p folder when it is closed again.
    void restoreLayout(const QString& folder);

    /// What the plugin failed to bring, for the first device.
    QList<loading::Failure> failures() const;

    /// Tells what a person should know of, until it is put away.
    void notify(const QString& words);

Q_SIGNALS:
    /// Somebody wants the program to begin anew, with the plugin as its file is now.
    void restartRequested();
    /// Somebody wants to save a bug report.
    void bugReportRequested();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void translate();
    void addMenus();
    void setCurrent(PluginView& view);
    void onFocusChanged(const QWidget* focus);
    void saveLayout();
    void showHelp(const QString& context);
    void showMainHelp();
    void showHelpOfFocus();
    void showAbout();
    QString aboutText() const;

    const loading::PluginLoader& m_plugin;
    plugin::PluginEnvironment& m_environment;
    const plugin::PluginWatch m_pluginWatch;
    operation::StopKey m_stopKey;
    DeviceArea* m_devices;
    QList<PluginView*> m_views;
    QList<DeviceView*> m_deviceViews;
    PluginView* m_current = nullptr; // null as long as there is no device
    QString m_layoutFile;            // empty: nothing is kept
    QMenu* m_fileMenu = nullptr;
    QMenu* m_languageMenu = nullptr;
    QMenu* m_helpMenu = nullptr;
    QAction* m_restart = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_contextHelp = nullptr;
    QAction* m_contents = nullptr;
    QAction* m_bugReport = nullptr;
    QAction* m_about = nullptr;
    help::HelpPanel* m_help;
    QPointer<QMessageBox> m_aboutBox; // null while it is not open
};

} // namespace host::workbench::window

#endif
