// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_SCANTEXT_H
#define HOST_WORKBENCH_VALUES_SCANTEXT_H

#include "olm/core/LaserScanMessage.h"

#include <QString>

#include <optional>

/// Scans as developers read and enter them: as the JSON of a sensor_msgs/LaserScan of ROS 1.
namespace host::workbench::values {

/// All of @p scan. JSON knows no infinite numbers: they are null, as from a rosbridge server.
QString scanToText(const olm::core::LaserScanMessage& scan);

/// Nothing where @p text is no scan; @p error then holds what is wrong and what is right.
std::optional<olm::core::LaserScanMessage> scanFromText(const QString& text, QString* error);

} // namespace host::workbench::values

#endif
