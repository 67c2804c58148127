// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_WINDOW_STATUSLINE_H
#define HOST_WORKBENCH_WINDOW_STATUSLINE_H

#include "host/workbench/window/Paced.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QToolButton;

namespace host::device {
class Device;
}

namespace host::workbench::window {

class Lamp;

/// How the connection stands, in words: with whom, since when, how old the newest data is, what
/// went wrong last, with what to try, and the faults that are injected.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    /// @p device outlives the line. @p robot says where its simulated robot runs, empty for none.
    StatusLine(device::Device& device, const QString& robot);

    // As high as its words need at the width that it has: a status bar knows no heights for widths.
    bool hasHeightForWidth() const override { return false; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void showConnection();
    void showReconnection();
    void showTimes();
    void showFaults();

    device::Device& m_device;
    QString m_robotAddress;
    Lamp* m_lamp;
    QLabel* m_words;
    QLabel* m_duration;
    QLabel* m_age;
    QLabel* m_retry; // after a loss
    QToolButton* m_giveUp;
    QLabel* m_robot; // null without one
    QLabel* m_failure;
    QLabel* m_faults; // those that are injected
    Paced m_connection;
    QTimer m_clock; // runs while connected
};

} // namespace host::workbench::window

#endif
