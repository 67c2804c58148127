// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPERATION_DRIVEDOCK_H
#define HOST_WORKBENCH_OPERATION_DRIVEDOCK_H

#include <QDockWidget>
#include <QTimer>

class QDoubleSpinBox;
class QLabel;

namespace host::device {
class Device;
}

namespace host::workbench::operation {

class DrivePad;

/// Drives a robot by hand: a pad to hold, the greatest speeds beside it, and beneath why it does
/// not drive. Hidden at first.
class DriveDock : public QDockWidget
{
    Q_OBJECT

public:
    /// @p device outlives the dock.
    DriveDock(device::Device& device, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void setActive(bool isActive);
    void refresh();
    void takeLimits();

    device::Device& m_device;
    DrivePad* m_pad;
    QLabel* m_linearTitle;
    QDoubleSpinBox* m_linear;
    QLabel* m_angularTitle;
    QDoubleSpinBox* m_angular;
    QLabel* m_words;
    QTimer m_ageTimer{this}; // runs only while the dock is shown: what does not come grows old
};

} // namespace host::workbench::operation

#endif
