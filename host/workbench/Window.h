#ifndef HOST_WORKBENCH_WINDOW_H
#define HOST_WORKBENCH_WINDOW_H

#include "host/workbench/Failure.h"

#include <QList>
#include <QMainWindow>

class QAction;
class QLabel;
class QMenu;
class QToolBar;
class QVBoxLayout;

namespace host::device {
class Device;
}

namespace plugin::gui {
class DeviceWidget;
}

namespace host::workbench {

class HelpPanel;
class Notice;
class PluginLoader;
class Services;
class StartPage;

/// One device in one window: the plugin's tool bar, its dialog or the page that stands in for
/// it, and the device's status in words. What the plugin fails to bring is replaced by a card
/// that says why. It never opens a modal box.
class Window : public QMainWindow
{
    Q_OBJECT

public:
    /// @p robot says where the simulated robot runs, empty for none. The others outlive the
    /// window.
    Window(const PluginLoader& plugin, device::Device& device, Services& services,
           const QString& robot);

    /// What the plugin failed to bring, in the order of the cards and the language of the moment.
    QList<Failure> failures() const;

    /// Tells what a person should know of, until it is put away.
    void notify(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void addMenus();
    void addDocks();
    void addStatusBar();
    void addPlugin();
    plugin::gui::DeviceWidget* loadWidget(const char* name);
    void addFailure(const FailureWords& failure);
    void showConnection();
    void showHelp(const QString& context);
    void showMainHelp();
    void showHelpOfFocus();
    void showAbout();

    const PluginLoader& m_plugin;
    device::Device& m_device;
    Services& m_services;
    QString m_robot;
    QList<FailureWords> m_failures;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_view = nullptr;
    QMenu* m_helpMenu = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_contextHelp = nullptr;
    QAction* m_contents = nullptr;
    QAction* m_about = nullptr;
    QToolBar* m_toolBar = nullptr;  // the plugin's; null without one
    QLabel* m_robotLabel = nullptr; // null without a robot
    QVBoxLayout* m_middle;
    Notice* m_notice;
    StartPage* m_startPage = nullptr;
    HelpPanel* m_help;
    QLabel* m_status;
};

} // namespace host::workbench

#endif
