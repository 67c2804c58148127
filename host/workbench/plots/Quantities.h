// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PLOTS_QUANTITIES_H
#define HOST_WORKBENCH_PLOTS_QUANTITIES_H

#include "host/device/variables/Variables.h"
#include "host/workbench/plots/FieldFinder.h"
#include "host/workbench/plots/Quantity.h"

#include <QObject>
#include <QTimer>

#include <optional>
#include <set>
#include <vector>

namespace host::workbench::plots {

/// What of a device and its robot there is to plot right now.
class Quantities : public QObject
{
    Q_OBJECT

public:
    /// @p device outlives this. Not active at first.
    Quantities(device::Device& device, QObject* parent);

    /// While it is not active nothing new is found.
    void setActive(bool active);

    /// The axes, then the robot's topics, then the device's variables.
    std::vector<Quantity> all() const;

    /// What @p text says, in words: one of all(), or a field of a topic that the robot has, whether
    /// there is such a field or not.
    std::optional<Quantity> find(const QString& text) const;

Q_SIGNALS:
    /// There are others, at most a few times a second.
    void changed();

private:
    void addTopics(std::vector<Quantity>& quantities) const;
    void addVariables(std::vector<Quantity>& quantities) const;

    device::Device& m_device;
    FieldFinder m_finder;
    std::set<device::variables::Variables::Key> m_seen;
    bool m_isActive = false;
    QTimer m_timer{this}; // runs only while something is to be told
};

} // namespace host::workbench::plots

#endif
