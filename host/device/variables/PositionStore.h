// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_POSITIONSTORE_H
#define HOST_DEVICE_VARIABLES_POSITIONSTORE_H

#include "host/device/readers/ArmPose.h"
#include "plugin/gui/DeviceHost.h"

#include <QCoreApplication>
#include <QString>

namespace host::device::variables {

/// Adds positions to those that the device's configuration holds.
class PositionStore
{
    Q_DECLARE_TR_FUNCTIONS(host::device::variables::PositionStore)

public:
    /// @p host holds the configuration and outlives the store.
    explicit PositionStore(plugin::gui::DeviceHost& host) : m_host(host) {}

    /// Adds @p pose as the last position, with the speeds of the one before it, while there is
    /// room. Says what was done, or why not.
    QString add(const readers::ArmPose::Axes& pose);

private:
    olm::core::variant::Variant read(const std::string& name) const;

    plugin::gui::DeviceHost& m_host;
};

} // namespace host::device::variables

#endif
