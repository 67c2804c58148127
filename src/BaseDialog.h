// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef BASEDIALOG_H
#define BASEDIALOG_H

#include "TabLog.h"
#include "plugin/gui/DeviceWidget.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;

/// The tab of the robot's base: the connection's address field and button, the resolution and
/// frame rate of the camera, the switch of the drive system, and the base's log. It keeps
/// nothing of the device beyond what its controls show.
class BaseDialog : public plugin::gui::DeviceWidget
{
    Q_OBJECT

public:
    BaseDialog(plugin::gui::DeviceDelegate& delegate, QWidget* parent);

    using plugin::gui::DeviceWidget::update;

    void translate() override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    void connected() override;
    void disconnected() override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

private Q_SLOTS:
    void on_resolutionSelector_currentIndexChanged(int index);
    void on_disableDriveSystem_stateChanged(int state);

private:
    bool isConnectedToSimulator() const;
    void updateResolutionSelector();
    void showFrequency(unsigned int hertz);

    TabLog m_log;
    QLabel* const m_frequencyCaption;
    QLabel* const m_frequency;
    QGroupBox* const m_camera;
    QComboBox* const m_resolutionSelector;
    QLabel* const m_resolutionCaption;
    QCheckBox* const m_disableDriveSystem;
};

#endif
