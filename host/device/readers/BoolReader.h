// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_READERS_BOOLREADER_H
#define HOST_DEVICE_READERS_BOOLREADER_H

#include <QCborMap>
#include <QString>

#include <optional>

namespace host::device::readers {

/// The value of a std_msgs/Bool message. One of the wrong shape gives nothing and, in @p fault,
/// which was empty, what is wrong with which field.
std::optional<bool> readBool(const QCborMap& message, QString* fault);

} // namespace host::device::readers

#endif
