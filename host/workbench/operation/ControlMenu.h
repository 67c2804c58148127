// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPERATION_CONTROLMENU_H
#define HOST_WORKBENCH_OPERATION_CONTROLMENU_H

#include <QMenu>

namespace host::device::operation {
class Control;
} // namespace host::device::operation

namespace host::workbench::operation {

/// Takes control of a device's robot, at once or as soon as it is free, and releases it.
class ControlMenu : public QMenu
{
    Q_OBJECT

public:
    /// @p control outlives the menu.
    ControlMenu(device::operation::Control& control, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void translate();
    void refresh();

    device::operation::Control& m_control;
    QAction* m_take;
    QAction* m_takeWhenFree;
    QAction* m_release;
};

} // namespace host::workbench::operation

#endif
