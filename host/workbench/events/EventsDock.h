// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_EVENTS_EVENTSDOCK_H
#define HOST_WORKBENCH_EVENTS_EVENTSDOCK_H

#include "host/workbench/events/EventFilter.h"
#include "host/workbench/events/EventModel.h"
#include "host/workbench/values/TableDock.h"

class QComboBox;

namespace host::workbench::events {

/// What happened to a device, in one list: all lines of the robot's log and of the logs in the
/// tabs, with their levels and where they came from. Hidden at first; then they are only kept.
class EventsDock : public values::TableDock
{
    Q_OBJECT

public:
    /// @p events outlives the dock.
    EventsDock(device::events::Events& events, QWidget* parent);

private:
    void translate() override;

    EventModel m_model;
    EventFilter m_filtered{m_model};
    QLabel* m_levelLabel;
    QComboBox* m_level;
};

} // namespace host::workbench::events

#endif
