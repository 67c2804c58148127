// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERIALIZATION_MESSAGEWRITER_H
#define ROSBRIDGE_SERIALIZATION_MESSAGEWRITER_H

#include "rosbridge/serialization/MessageDefinition.h"

#include <QByteArray>
#include <QCborMap>
#include <QCborValue>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

namespace rosbridge::serialization {

/// Writes a message of any origin, in any form in which the link carries it, as ROS 1 serializes it
/// between its nodes and into its recordings. ROS 2's times {sec, nanosec} are taken as well, and
/// its headers, which have no "seq".
class MessageWriter
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::serialization::MessageWriter)

public:
    /// Nothing if a field is missing or not what @p definition says, and @p error (may be null)
    /// names it. Fields that are not in the definition do not matter.
    static std::optional<QByteArray> write(const MessageDefinition& definition,
                                           const QCborMap& message, QString* error);

private:
    using Field = MessageDefinition::Field;
    using Kind = MessageDefinition::Kind;

    explicit MessageWriter(const MessageDefinition& definition) : m_definition(definition) {}

    void message(const MessageDefinition::Type& type, const QCborMap& message);
    void array(const Field& field, const QCborValue& value);
    void bytes(const Field& field, const QByteArray& bytes);
    void numbers(const Field& field, const QCborValue& value);
    void length(const Field& field, qint64 count);
    void one(const Field& field, const QCborValue& value);
    void text(const QCborValue& value);
    void time(const QCborValue& value, bool isSigned);
    template <typename Number>
    void timePart(const QCborMap& time, const char* name, const char* ros2Name);
    void number(Kind kind, const QCborValue& value);
    template <typename Number>
    void whole(double number);
    template <typename Number>
    void put(Number number);
    void fail(const QString& fault);

    const MessageDefinition& m_definition;
    QByteArray m_bytes;
    QString m_fault;    // empty: none so far
    QStringList m_path; // of the field that has it
};

} // namespace rosbridge::serialization

#endif
