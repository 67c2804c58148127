// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_SCANTEXT_H
#define HOST_WORKBENCH_VALUES_SCANTEXT_H

#include "olm/core/LaserScanMessage.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// Scans as developers read and enter them: as the JSON of a sensor_msgs/LaserScan of ROS 1; and as
/// spreadsheets read them.
namespace host::workbench::values {

/// All of @p scan. JSON knows no infinite numbers: they are null, as from a rosbridge server.
QString scanToText(const olm::core::LaserScanMessage& scan);

/// Nothing where @p text is no scan; @p error then holds what is wrong and what is right.
std::optional<olm::core::LaserScanMessage> scanFromText(const QString& text, QString* error);

/// Comma-separated values, a measurement a line: the number of the scan, its time in seconds, its
/// frame, the angle in radians, the range in metres, and the intensity if there is one.
QByteArray scanTable(const olm::core::LaserScanMessage& scan);

} // namespace host::workbench::values

#endif
