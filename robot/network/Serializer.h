// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_SERIALIZER_H
#define ROBOT_NETWORK_SERIALIZER_H

#include "robot/network/TypeDetails.h"

#include <QByteArray>
#include <QCborMap>
#include <QCborValue>
#include <QHash>
#include <QString>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

namespace robot::network {

/// Writes messages as ROS 1 does between its nodes and into its recordings.
class Serializer
{
public:
    /// @p type is one that typeDefinition() has. A field that @p message lacks is 0 or empty.
    QByteArray serialize(const QString& type, const QCborMap& message);

private:
    void writeMessage(QDataStream& to, const QString& type, const QCborMap& message);
    void writeArray(QDataStream& to, const TypeDetails::Field& field, const QCborValue& value);
    void writeValue(QDataStream& to, const QString& type, const QCborValue& value);

    QHash<QString, TypeDetails> m_types; // those that were needed
};

} // namespace robot::network

#endif
