// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPERATION_OPERATIONBAR_H
#define HOST_WORKBENCH_OPERATION_OPERATIONBAR_H

#include <QToolBar>

class QPushButton;
class QToolButton;

namespace host::device {
class Device;
}

namespace host::workbench::operation {

/// What an operator must always have in sight: whether this device is in control, and the button
/// that stops the robot. It never shrinks.
class OperationBar : public QToolBar
{
    Q_OBJECT

public:
    /// @p device outlives the bar. The choices about control are also added to @p robotMenu.
    OperationBar(device::Device& device, QMenu& robotMenu);

protected:
    bool event(QEvent* event) override;

private:
    void refresh();
    void refreshControl();

    device::Device& m_device;
    QToolButton* m_control;
    QPushButton* m_release;
    QAction* m_releaseAction; // shows and hides the button
};

} // namespace host::workbench::operation

#endif
