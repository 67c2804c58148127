// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/PositionStore.h"

#include "host/device/variables/Positions.h"
#include "olm/core/Vector.h"

#include <string>

namespace host::device::variables {

using olm::core::variant::Variant;
using plugin::gui::VariableKind;

namespace {

constexpr float usualSpeed = 30.0F; // where there is no position to take the speeds from

} // namespace

QString PositionStore::add(const readers::ArmPose::Axes& pose)
{
    const int count = read("num_pos").toInt();
    const int maximum = read("num_pos_max").toInt();
    if (count >= maximum)
        return tr("The arm's position was not stored: all %1 positions are in use. Remove one and "
                  "try again.")
            .arg(maximum);

    const auto previous = read("pos" + std::to_string(count - 1)).get<olm::core::Vector<float>>();
    Position position{QStringLiteral("Pos%1").arg(count + 1), {}};
    int speed = 1; // in the numbers of the previous one
    for (std::size_t axis = 0; axis < pose.size(); ++axis, speed += 2)
        position.axes.at(axis) = {pose.at(axis), speed < static_cast<int>(previous.size())
                                                     ? previous[speed]
                                                     : usualSpeed};
    m_host.beginTransaction(tr("Store the arm's position"));
    storePosition(m_host, count, position);
    m_host.write(VariableKind::Config, "num_pos", count + 1);
    m_host.endTransaction();
    return tr("The arm's position was stored as %1.").arg(position.name);
}

Variant PositionStore::read(const std::string& name) const
{
    return m_host.read(VariableKind::Config, name.c_str());
}

} // namespace host::device::variables
