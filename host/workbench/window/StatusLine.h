// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_STATUSLINE_H
#define HOST_WORKBENCH_WINDOW_STATUSLINE_H

#include "host/workbench/window/Paced.h"

#include <QDateTime>
#include <QTimer>
#include <QWidget>

#include <chrono>

class QLabel;
class QToolButton;

namespace host::device {
class Device;
}

namespace host::workbench::recording {
class RecordButton;
} // namespace host::workbench::recording

namespace host::workbench::window {

class ElidedLabel;
class Lamp;

/// How the connection stands, in words: with whom, since when, how old the newest data is, what
/// went wrong last, with what to try, until somebody puts it away, and the faults that are
/// injected; and the button that records. Always of one height, so that nothing above it moves
/// under the mouse.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    /// @p device outlives the line. @p robot says where its simulated robot runs, empty for none.
    StatusLine(device::Device& device, const QString& robot);

    recording::RecordButton& recordButton() { return *m_record; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void arrange();
    void fixHeight();
    void translate();
    void showConnection();
    void showReconnection();
    void showTimes();
    void showAge(std::chrono::milliseconds connectedFor);
    void showFailure();
    void showFaults();

    device::Device& m_device;
    QString m_robotAddress;
    Lamp* m_lamp;
    ElidedLabel* m_words;
    QLabel* m_duration;
    QLabel* m_age;
    QLabel* m_retry; // after a loss
    QToolButton* m_giveUp;
    recording::RecordButton* m_record;
    QLabel* m_robot; // null without one
    ElidedLabel* m_failure;
    QToolButton* m_dismiss;
    ElidedLabel* m_faults; // those that are injected
    QDateTime m_dismissed; // the time of the last failure that somebody put away
    Paced m_connection;
    QTimer m_clock; // runs while connected
};

} // namespace host::workbench::window

#endif
