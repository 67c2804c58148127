// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_TYPEDEFINITIONS_H
#define ROBOT_NETWORK_TYPEDEFINITIONS_H

#include <QMap>
#include <QString>

namespace rosbridge::serialization {
class MessageDefinition;
} // namespace rosbridge::serialization

namespace robot::network {

/// What the types consist of that the robot uses.
class TypeDefinitions
{
public:
    /// Those of the simulated robot.
    TypeDefinitions();

    /// Adds a message's type and all that it needs.
    void add(const rosbridge::serialization::MessageDefinition& definition);

    /// In the notation of ROS's .msg files, with the full names of other types. Messages go by
    /// their type's name; "std_srvs/SetBoolRequest" and "std_srvs/SetBoolResponse" are the two
    /// sides of the service std_srvs/SetBool. Null for a type that the robot does not use.
    QString text(const QString& type) const { return m_texts.value(type); }

private:
    QMap<QString, QString> m_texts; // by type
};

} // namespace robot::network

#endif
