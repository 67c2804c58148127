// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef TESTS_HOST_WORKBENCH_POSITIONS_POSITIONS_H
#define TESTS_HOST_WORKBENCH_POSITIONS_POSITIONS_H

#include "Patience.h"
#include "tests/host/device/DeviceFixture.h"

#include "host/device/variables/Positions.h"

/// A position whose axes are all alike.
inline host::device::variables::Position position(const QString& name, float target, float speed)
{
    host::device::variables::Position position{name, {}};
    position.axes.fill({target, speed});
    return position;
}

/// A device that stores positions.
struct PositionsFixture : DeviceFixture
{
    using Positions = std::vector<host::device::variables::Position>;

    explicit PositionsFixture(const Positions& positions = {position("Home", 90, 30),
                                                            position("Grasp", 120.5F, 20)})
    {
        store(positions);
    }

    void store(const Positions& positions)
    {
        host::device::variables::storePositions(device, positions, "test");
    }

    Positions stored() { return host::device::variables::storedPositions(device.variables()); }

    /// "Home 90 30, Grasp 120.5 20": of each position its first axis.
    QString inWords()
    {
        QStringList words;
        for (const auto& position : stored())
            words << QStringLiteral("%1 %2 %3")
                         .arg(position.name)
                         .arg(double(position.axes[0].target))
                         .arg(double(position.axes[0].speed));
        return words.join(", ");
    }
};

#endif
