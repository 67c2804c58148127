// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/serialization/MessageReader.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/serialization/ArrayTag.h"

#include <QCborArray>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace rosbridge::serialization {

std::optional<QCborMap> MessageReader::read(const MessageDefinition& definition,
                                            const QByteArray& bytes, QString* error)
{
    MessageReader reader(definition, bytes);
    QCborMap message = reader.message(definition.root());
    const qint64 rest = bytes.size() - reader.m_at;
    QString fault;
    if (!reader.m_fault.isEmpty())
        fault = tr("the field \"%1\" %2").arg(reader.m_path.join(u'.'), reader.m_fault);
    else if (rest > 0)
        fault = tr("there are %1 bytes more than a message has").arg(rest);
    else
        return message;
    if (error)
        *error = fault;
    return std::nullopt;
}

MessageReader::MessageReader(const MessageDefinition& definition, const QByteArray& bytes)
    : m_definition(definition),
      m_bytes(bytes),
      m_partsLeft(protocol::maximumParts)
{
}

QCborMap MessageReader::message(const MessageDefinition::Type& type)
{
    QCborMap message;
    for (const Field& field : type.fields) {
        const QCborValue value = this->value(field);
        if (!m_fault.isEmpty()) {
            m_path.prepend(field.name);
            return {};
        }
        message.insert(field.name, value);
    }
    return message;
}

QCborValue MessageReader::value(const Field& field)
{
    return field.arrayLength == MessageDefinition::noArray ? one(field) : array(field);
}

QCborValue MessageReader::array(const Field& field)
{
    const qint64 count = field.arrayLength == MessageDefinition::anyLength
                             ? qint64{number<quint32>()}
                             : qint64{field.arrayLength};
    const bool isMessage = field.kind == Kind::Message;
    if (!isMessage && field.kind == Kind::UInt8)
        return block(count);
    if (const auto tag = arrayTag(field.kind))
        return {QCborTag(*tag), block(count * MessageDefinition::size(field.kind))};
    // Messages without fields count as a byte, so that their number is bounded, too.
    const qint64 least = isMessage ? std::max(qint64{1}, m_definition.type(field).leastSize)
                                   : qint64{MessageDefinition::size(field.kind)};
    if (count * least > m_bytes.size() - m_at)
        fail(tr("has %1 elements, more than there are bytes for").arg(count));
    QCborArray elements;
    for (qint64 i = 0; i < count && m_fault.isEmpty(); ++i) {
        elements.append(one(field));
        if (!m_fault.isEmpty())
            m_path.prepend(QString::number(i));
    }
    return elements;
}

QCborValue MessageReader::one(const Field& field)
{
    if (m_partsLeft-- == 0)
        fail(tr("is one part too many: more than %1").arg(protocol::maximumParts));
    if (!m_fault.isEmpty())
        return {};
    switch (field.kind) {
    case Kind::Bool:
        return number<quint8>() != 0;
    case Kind::Int8:
        return number<qint8>();
    case Kind::UInt8:
        return number<quint8>();
    case Kind::Int16:
        return number<qint16>();
    case Kind::UInt16:
        return number<quint16>();
    case Kind::Int32:
        return number<qint32>();
    case Kind::UInt32:
        return qint64{number<quint32>()};
    case Kind::Int64:
        return number<qint64>();
    case Kind::UInt64: {
        const auto whole = number<quint64>();
        constexpr auto most = static_cast<quint64>(std::numeric_limits<qint64>::max());
        return whole <= most ? QCborValue(static_cast<qint64>(whole))
                             : QCborValue(static_cast<double>(whole));
    }
    case Kind::Float32:
        return static_cast<double>(number<float>());
    case Kind::Float64:
        return number<double>();
    case Kind::String:
        return QString::fromUtf8(block(number<quint32>()));
    case Kind::Time:
        return time(false);
    case Kind::Duration:
        return time(true);
    case Kind::Message:
        break;
    }
    return message(m_definition.type(field));
}

QCborMap MessageReader::time(bool isSigned)
{
    const auto part = [&] {
        return isSigned ? qint64{number<qint32>()} : qint64{number<quint32>()};
    };
    const qint64 seconds = part();
    const qint64 nanoseconds = part();
    return {{QStringLiteral("secs"), seconds}, {QStringLiteral("nsecs"), nanoseconds}};
}

/// Null, and a fault, where not so many bytes are left.
const char* MessageReader::take(qint64 size)
{
    const qint64 left = m_bytes.size() - m_at;
    if (size > left)
        fail(tr("ends too early: it takes %1 bytes, and %2 are left").arg(size).arg(left));
    if (!m_fault.isEmpty())
        return nullptr;
    const char* const at = m_bytes.constData() + m_at;
    m_at += size;
    return at;
}

QByteArray MessageReader::block(qint64 size)
{
    const char* const at = take(size);
    return at ? QByteArray(at, static_cast<int>(size)) : QByteArray();
}

template <typename Number>
Number MessageReader::number()
{
    const char* const at = take(qint64{sizeof(Number)});
    return at ? qFromLittleEndian<Number>(at) : Number{};
}

void MessageReader::fail(const QString& fault)
{
    if (m_fault.isEmpty())
        m_fault = fault;
}

} // namespace rosbridge::serialization
