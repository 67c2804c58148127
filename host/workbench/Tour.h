#ifndef HOST_WORKBENCH_TOUR_H
#define HOST_WORKBENCH_TOUR_H

#include "host/workbench/EmbeddedRobot.h"

#include <QCoreApplication>
#include <QString>

#include <functional>

class QTableView;
class QWidget;

namespace host::device {
class Device;
}

namespace host::workbench {

class Window;

/// Operates the window as a person would, with mouse and keys, through every state of the
/// connection and every tab of the dialog, and writes a picture of each. Each step waits for what
/// it is to show, so that the pictures show it however busy the machine is.
class Tour
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::Tour)

public:
    /// @p window shows @p device with a working plugin, @p failureWindow one that is missing;
    /// all of them outlive the tour. @p folder is made where it is missing.
    Tour(const QString& folder, Window& window, Window& failureWindow, device::Device& device);

    /// Prints the pictures' names to the standard output as they are written. False when a step
    /// could not be reached or its picture not be written: the standard error says which and
    /// why. Runs the event loop.
    bool run();
    /// Makes run() end at the step under way.
    void stop() { m_isStopped = true; }

private:
    bool start();
    bool connectRobot();
    bool showBase();
    bool showLaser();
    bool showRecording();
    bool showManipulator();
    bool editPosition(QTableView& table);
    bool fillPositions(QTableView& table);
    bool disconnectRobot();
    bool connectNowhere();
    bool showFailure();

    bool openTab(int index);
    bool enterAddress(const QString& address);
    bool waitForConnection();
    bool waitForDisconnection();
    bool waitUntil(const std::function<bool()>& condition);
    bool within(const std::function<void()>& open, const std::function<bool(QWidget&)>& act);
    bool show(QWidget& window);
    bool takePicture(QWidget& window, const QString& name);
    bool fail(const QString& why);

    QString m_folder;
    Window& m_window;
    Window& m_failureWindow;
    device::Device& m_device;
    EmbeddedRobot m_replayRobot{0}; // on any port: replays a recording
    QString m_step;                 // what is being tried, for people
    int m_pictures = 0;
    bool m_isStopped = false;
};

} // namespace host::workbench

#endif
