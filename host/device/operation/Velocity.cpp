// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/operation/Velocity.h"

namespace host::device::operation {

namespace {

QCborMap vector(double x, double z)
{
    return {{QStringLiteral("x"), x}, {QStringLiteral("y"), 0.0}, {QStringLiteral("z"), z}};
}

} // namespace

QCborMap toMessage(const Velocity& velocity)
{
    return {{QStringLiteral("linear"), vector(velocity.linear, 0)},
            {QStringLiteral("angular"), vector(0, velocity.angular)}};
}

} // namespace host::device::operation
