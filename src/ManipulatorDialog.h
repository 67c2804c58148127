// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef MANIPULATORDIALOG_H
#define MANIPULATORDIALOG_H

#include "TabLog.h"
#include "plugin/gui/DeviceWidget.h"

#include <QPointer>
#include <QVector>

class PositionModel;
class PositionView;
class QCheckBox;
class QPushButton;

/// The tab of the robot's arm: its three supply lines, its torque, the table of the stored
/// positions, and its log. A new position is made by the device, out of the arm's present pose.
class ManipulatorDialog : public plugin::gui::DeviceWidget
{
    Q_OBJECT

public:
    ManipulatorDialog(plugin::gui::DeviceDelegate& delegate, QWidget* parent);
    ~ManipulatorDialog() override;

    using plugin::gui::DeviceWidget::update;

    void translate() override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    void connected() override;
    void disconnected() override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

private Q_SLOTS:
    void on_line_stateChanged(int state);
    void on_toggleTorque_clicked();
    void on_addPos();

private:
    TabLog m_log;
    PositionModel* const m_positionModel;
    const QPointer<PositionView> m_positionView;
    QPushButton* const m_toggleTorque;
    QVector<QCheckBox*> m_lines;
};

#endif
