// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_TYPEDARRAY_H
#define ROSBRIDGE_PROTOCOL_TYPEDARRAY_H

#include <QByteArray>
#include <QCborValue>
#include <QCoreApplication>
#include <QString>
#include <QtEndian>
#include <qfloat16.h>

#include <optional>
#include <type_traits>

namespace rosbridge::protocol {

/// An RFC 8746 typed array: numbers of one type as a block of bytes, and a tag that says which
/// type.
class TypedArray
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::protocol::TypedArray)

public:
    /// Gives nothing, and in @p error (may be null) why, if @p value is no typed array, has numbers
    /// of 128 bits, or a last number that is cut.
    static std::optional<TypedArray> read(const QCborValue& value, QString* error);

    int size() const { return static_cast<int>(m_bytes.size()) / m_elementSize; }

    /// Calls @p use with each number in its own type, qint8 to quint64 or double; a float16 is
    /// given as the same float.
    template <typename Use>
    void forEach(Use use) const;

private:
    TypedArray(quint64 tag, const QByteArray& bytes);

    template <typename Number, typename Use>
    void unpack(Use use) const;

    // The tag's bits are 010fsell: float, signed, little-endian, and the element's size.
    static constexpr unsigned floatBit = 0x10;
    static constexpr unsigned signedBit = 0x08;
    static constexpr unsigned littleEndianBit = 0x04;
    static constexpr unsigned sizeBits = 0x03;

    unsigned m_tag;
    int m_elementSize;
    QByteArray m_bytes;
};

template <typename Use>
void TypedArray::forEach(Use use) const
{
    switch (m_tag & (floatBit | signedBit | sizeBits)) {
    case 0:
        return unpack<quint8>(use);
    case 1:
        return unpack<quint16>(use);
    case 2:
        return unpack<quint32>(use);
    case 3:
        return unpack<quint64>(use);
    case signedBit:
        return unpack<qint8>(use);
    case signedBit | 1U:
        return unpack<qint16>(use);
    case signedBit | 2U:
        return unpack<qint32>(use);
    case signedBit | 3U:
        return unpack<qint64>(use);
    case floatBit:
        return unpack<qfloat16>(use);
    case floatBit | 1U:
        return unpack<float>(use);
    default:
        return unpack<double>(use);
    }
}

template <typename Number, typename Use>
void TypedArray::unpack(Use use) const
{
    for (const char* at = m_bytes.cbegin(); at != m_bytes.cend(); at += sizeof(Number)) {
        const auto number =
            (m_tag & littleEndianBit) ? qFromLittleEndian<Number>(at) : qFromBigEndian<Number>(at);
        if constexpr (std::is_same_v<Number, qfloat16>)
            use(static_cast<float>(number));
        else
            use(number);
    }
}

} // namespace rosbridge::protocol

#endif
