// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/BoolReader.h"

#include "rosbridge/protocol/Fields.h"

namespace host::device::readers {

std::optional<bool> readBool(const QCborMap& message, QString* fault)
{
    rosbridge::protocol::Fields fields(message, fault);
    const bool value = fields.truth("data");
    return fields.isGood() ? std::optional<bool>(value) : std::nullopt;
}

} // namespace host::device::readers
