// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_OPERATION_STOPBUTTON_H
#define HOST_WORKBENCH_OPERATION_STOPBUTTON_H

#include <QPushButton>

namespace host::device::operation {
class Stopping;
} // namespace host::device::operation

namespace host::workbench::operation {

/// Stops one device's robot, shows whether it is stopped, and says beforehand in its tool tip what
/// it can do there.
class StopButton : public QPushButton
{
    Q_OBJECT

public:
    /// @p stopping outlives the button.
    explicit StopButton(device::operation::Stopping& stopping);

    /// As large as the longest of its words needs, so that nothing moves under the mouse.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();

    device::operation::Stopping& m_stopping;
};

} // namespace host::workbench::operation

#endif
