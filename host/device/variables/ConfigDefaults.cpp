// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/ConfigDefaults.h"

#include "olm/core/StringList.h"
#include "olm/core/Vector.h"
#include "rosbridge/protocol/Address.h"

namespace host::device::variables {

namespace {

/// Nine targets of @p target degrees, each to be reached at 30 degrees per second.
olm::core::Vector<float> position(float target)
{
    olm::core::Vector<float> values(18);
    for (int axis = 0; axis < 9; ++axis) {
        values[2 * axis] = target;
        values[2 * axis + 1] = 30.0F;
    }
    return values;
}

} // namespace

std::vector<ConfigDefault> configDefaults()
{
    olm::core::Vector<unsigned int> resolution(2);
    resolution[0] = 640;
    resolution[1] = 480;
    return {
        {"ipAddress", rosbridge::protocol::Address().toString().toStdString()},
        {"ipAddressHistory", olm::core::StringList()},
        {"camera_resolution", resolution},
        {"disableDriveSystem", false},
        {"line0_enabled", true},
        {"line1_enabled", true},
        {"line2_enabled", true},
        {"num_pos_max", 16},
        // Two to begin with: an empty table shows nobody what it is for.
        {"num_pos", 2},
        {"pos0", position(0.0F)},
        {"pos0_name", std::string("Pos1")},
        {"pos1", position(90.0F)},
        {"pos1_name", std::string("Pos2")},
    };
}

} // namespace host::device::variables
