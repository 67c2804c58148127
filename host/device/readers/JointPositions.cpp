// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/JointPositions.h"

#include "rosbridge/protocol/Fields.h"

namespace host::device::readers {

using rosbridge::protocol::Fields;

namespace {

std::optional<JointPositions> read(Fields namesIn, const char* names, Fields positionsIn,
                                   const char* positions)
{
    JointPositions joints;
    joints.names = namesIn.texts(names, JointPositions::mostJoints);
    joints.positions = positionsIn.floats(positions);
    if (joints.positions.size() != joints.names.size())
        positionsIn.fail(positions, JointPositions::tr("has %1 numbers for %2 names")
                                        .arg(joints.positions.size())
                                        .arg(joints.names.size()));
    return namesIn.isGood() ? std::make_optional(joints) : std::nullopt;
}

} // namespace

std::optional<JointPositions> JointPositions::readPresent(const QCborMap& message, QString* fault)
{
    const Fields fields(message, fault);
    return read(fields, "name", fields, "position");
}

std::optional<JointPositions> JointPositions::readTargets(const QCborMap& message, QString* fault)
{
    Fields fields(message, fault);
    return read(fields, "joint_names", fields.object("desired"), "positions");
}

} // namespace host::device::readers
