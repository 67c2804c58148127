// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_TOUR_OPERATOR_H
#define HOST_TOUR_OPERATOR_H

#include <QCoreApplication>
#include <QString>

#include <functional>

class QAbstractButton;
class QLineEdit;
class QWidget;

namespace host::device {
class Device;
}

namespace host::workbench::window {
class Window;
} // namespace host::workbench::window

namespace host::tour {

/// Who goes on the tour: has a hand, patience and a camera, and says where it came to an end. What
/// it does gives true, or false after the standard error was told why.
class Operator
{
    Q_DECLARE_TR_FUNCTIONS(host::tour::Operator)

public:
    /// @p window shows @p device alone; both outlive the operator.
    Operator(const QString& folder, workbench::window::Window& window, device::Device& device);

    workbench::window::Window& window() const { return m_window; }
    device::Device& device() const { return m_device; }

    /// Makes the folder of the pictures and shows the window.
    bool start();

    /// From now on everything is part of @p step, in words for people.
    void begin(const QString& step) { m_step = step; }
    bool fail(const QString& why);
    /// Everything fails from now on.
    void stop() { m_isStopped = true; }

    /// Runs the event loop; says nothing where it gives false.
    bool waitUntil(const std::function<bool()>& condition);
    bool show(QWidget& window);
    /// What is open above @p window, a menu or a dialog, is in the picture, too.
    bool takePicture(QWidget& window, const QString& name);
    bool takePicture(const QString& name); // of the window
    /// Has @p open bring up a menu or a dialog, which may hold it up until it is closed, and
    /// does @p act in it.
    bool within(const std::function<void()>& open, const std::function<bool(QWidget&)>& act);

    // What the plugin offers. The tool bar's first; a dialog may hold others.
    QAbstractButton* connectButton() const;
    QLineEdit* addressField() const;
    bool openTab(int index);
    /// The open tab: there is one after openTab().
    QWidget& page() const;
    /// Connects, too.
    bool enterAddress(const QString& address);
    bool waitForConnection();
    /// The Robot dock of @p window shows where everything is.
    bool waitForRobot(QWidget& window);
    bool waitForDisconnection();

private:
    QString m_folder;
    workbench::window::Window& m_window;
    device::Device& m_device;
    QString m_step;
    int m_pictures = 0;
    bool m_isStopped = false;
};

} // namespace host::tour

#endif
