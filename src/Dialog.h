// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef DIALOG_H
#define DIALOG_H

#include "plugin/gui/DeviceWidget.h"

class QTabWidget;

/// The device's main window content: its three parts as tabs. It holds no device logic, and
/// passes nothing on: the host notifies the tabs themselves.
class Dialog : public plugin::gui::DeviceWidget
{
    Q_OBJECT

public:
    /// No parent: the host takes the widget.
    explicit Dialog(plugin::gui::DeviceDelegate& delegate);

    using plugin::gui::DeviceWidget::update;

    void translate() override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    void connected() override;
    void disconnected() override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

private:
    QTabWidget* const m_tabs;
};

#endif
