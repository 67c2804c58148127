// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_TRAFFIC_TRAFFICDOCK_H
#define HOST_WORKBENCH_TRAFFIC_TRAFFICDOCK_H

#include "host/workbench/traffic/TrafficFilter.h"
#include "host/workbench/traffic/TrafficModel.h"
#include "host/workbench/values/TableDock.h"

class QCheckBox;

namespace host::workbench::traffic {

/// For developers of plugins: every call between the host and the plugin, in order, with what it
/// was given and how long it took. Hidden at first; then the calls are only kept.
class TrafficDock : public values::TableDock
{
    Q_OBJECT

public:
    /// @p traffic outlives the dock.
    TrafficDock(device::trace::Traffic& traffic, QWidget* parent);

private:
    void translate() override;

    TrafficModel m_model;
    TrafficFilter m_filtered{m_model};
    QCheckBox* m_onlyWrites;
    QCheckBox* m_fold;
};

} // namespace host::workbench::traffic

#endif
