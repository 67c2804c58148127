#ifndef HOST_WORKBENCH_TOUR_H
#define HOST_WORKBENCH_TOUR_H

#include <QCoreApplication>
#include <QString>

#include <functional>

class QWidget;

namespace host::device {
class Device;
}

namespace host::workbench {

class Window;

/// Operates the window as a person would, with mouse and keys, through every state of the
/// connection, and writes a picture of each. Each step waits for what it is to show, so that the
/// pictures are the same however busy the machine is.
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
    bool disconnectRobot();
    bool connectNowhere();
    bool showFailure();

    bool waitUntil(const std::function<bool()>& condition);
    bool show(QWidget& window);
    void click(QWidget& target);
    void press(int key, Qt::KeyboardModifiers modifiers, const QString& text);
    bool takePicture(QWidget& window, const QString& name);
    bool fail(const QString& why);

    QString m_folder;
    Window& m_window;
    Window& m_failureWindow;
    device::Device& m_device;
    QString m_step; // what is being tried, for people
    int m_pictures = 0;
    bool m_isStopped = false;
};

} // namespace host::workbench

#endif
