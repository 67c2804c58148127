// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef LASERRANGEFINDERDIALOG_H
#define LASERRANGEFINDERDIALOG_H

#include "TabLog.h"
#include "plugin/gui/DeviceWidget.h"

class QLabel;

/// The tab of the laser range finder: header and geometry of the newest scan with the numbers
/// of its measurements, and the finder's log. It only displays; the last scan stays on screen
/// after a disconnect.
class LaserRangeFinderDialog : public plugin::gui::DeviceWidget
{
    Q_OBJECT

public:
    LaserRangeFinderDialog(plugin::gui::DeviceDelegate& delegate, QWidget* parent);

    using plugin::gui::DeviceWidget::update;

    void translate() override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    void connected() override;
    void disconnected() override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

private:
    static const int rowCount = 12;

    TabLog m_log;
    QLabel* m_values[rowCount];
    QLabel* m_captions[rowCount];
};

#endif
