// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_TYPEDEFINITIONS_H
#define ROBOT_NETWORK_TYPEDEFINITIONS_H

#include <QString>

namespace robot::network {

/// What a type consists of, in the notation of ROS's .msg files, with the full names of other
/// types. Messages go by their type's name; "std_srvs/SetBoolRequest" and
/// "std_srvs/SetBoolResponse" are the two sides of the service std_srvs/SetBool. Null for a type
/// that the robot does not use.
QString typeDefinition(const QString& type);

} // namespace robot::network

#endif
