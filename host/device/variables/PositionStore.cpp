// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/PositionStore.h"

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
    olm::core::Vector<float> values(2 * readers::ArmPose::axisCount);
    for (int axis = 0; axis < readers::ArmPose::axisCount; ++axis) {
        const int speed = 2 * axis + 1;
        values[2 * axis] = pose.at(static_cast<std::size_t>(axis));
        values[speed] = speed < static_cast<int>(previous.size())
                            ? static_cast<const olm::core::Vector<float>&>(previous)[speed]
                            : usualSpeed;
    }
    const std::string name = "pos" + std::to_string(count);
    const std::string title = "Pos" + std::to_string(count + 1);
    m_host.beginTransaction(tr("Store the arm's position"));
    write(name, values);
    write(name + "_name", title);
    write("num_pos", count + 1);
    m_host.endTransaction();
    return tr("The arm's position was stored as %1.").arg(QString::fromStdString(title));
}

Variant PositionStore::read(const std::string& name) const
{
    return m_host.read(VariableKind::Config, name.c_str());
}

void PositionStore::write(const std::string& name, const Variant& value)
{
    m_host.write(VariableKind::Config, name.c_str(), value);
}

} // namespace host::device::variables
