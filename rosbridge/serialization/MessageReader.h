// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERIALIZATION_MESSAGEREADER_H
#define ROSBRIDGE_SERIALIZATION_MESSAGEREADER_H

#include "rosbridge/serialization/MessageDefinition.h"

#include <QByteArray>
#include <QCborMap>
#include <QCborValue>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

namespace rosbridge::serialization {

/// Reads a message of any origin as ROS 1 serializes it: little-endian, without padding, lengths in
/// 32 bits. It becomes what the link carries in memory: arrays of numbers typed arrays, a uint8[] a
/// byte string, times {secs, nsecs}.
class MessageReader
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::serialization::MessageReader)

public:
    /// Nothing if @p bytes are not exactly one such message, or one with more parts than the link
    /// carries, and @p error (may be null) names the field.
    static std::optional<QCborMap> read(const MessageDefinition& definition,
                                        const QByteArray& bytes, QString* error);

private:
    using Field = MessageDefinition::Field;
    using Kind = MessageDefinition::Kind;

    MessageReader(const MessageDefinition& definition, const QByteArray& bytes);

    QCborMap message(const MessageDefinition::Type& type);
    QCborValue value(const Field& field);
    QCborValue array(const Field& field);
    QCborValue one(const Field& field);
    QCborMap time(bool isSigned);
    const char* take(qint64 size);
    QByteArray block(qint64 size);
    template <typename Number>
    Number number();
    void fail(const QString& fault);

    const MessageDefinition& m_definition;
    QByteArray m_bytes;
    qint64 m_at = 0;
    int m_partsLeft;
    QString m_fault;    // empty: none so far
    QStringList m_path; // of the field that has it
};

} // namespace rosbridge::serialization

#endif
