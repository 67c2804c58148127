// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_SERIALIZER_H
#define ROBOT_NETWORK_SERIALIZER_H

#include "rosbridge/serialization/MessageDefinition.h"

#include <QByteArray>
#include <QCborMap>
#include <QHash>
#include <QString>

#include <optional>

namespace robot::network {

class TypeDefinitions;

/// Writes the robot's messages as ROS 1 does between its nodes and into its recordings.
class Serializer
{
public:
    /// @p definitions outlive the serializer.
    explicit Serializer(const TypeDefinitions& definitions) : m_definitions(definitions) {}

    /// @p type is one that the definitions have, and @p message all that it consists of.
    QByteArray serialize(const QString& type, const QCborMap& message);

private:
    using MessageDefinition = rosbridge::serialization::MessageDefinition;

    const TypeDefinitions& m_definitions;
    QHash<QString, std::optional<MessageDefinition>> m_types; // those that were needed
};

} // namespace robot::network

#endif
