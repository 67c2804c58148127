// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/TypedArray.h"

namespace rosbridge::protocol {

std::optional<TypedArray> TypedArray::read(const QCborValue& value, QString* error)
{
    const auto tag = static_cast<quint64>(value.tag());
    const bool isSupported = tag >= 64 && tag <= 86 && tag != 76 && tag != 83;
    QString fault;
    if (!isSupported || !value.taggedValue().isByteArray()) {
        fault = tr("a value with the tag %1 is not a supported array of numbers").arg(tag);
    } else {
        TypedArray array(tag, value.taggedValue().toByteArray());
        if (array.m_bytes.size() % array.m_elementSize == 0)
            return array;
        fault = tr("the typed array has %1 bytes, not a multiple of its element's %2")
                    .arg(array.m_bytes.size())
                    .arg(array.m_elementSize);
    }
    if (error)
        *error = fault;
    return std::nullopt;
}

TypedArray::TypedArray(quint64 tag, const QByteArray& bytes)
    : m_tag(static_cast<unsigned>(tag)),
      m_elementSize(1 << ((m_tag & sizeBits) + ((m_tag & floatBit) ? 1 : 0))),
      m_bytes(bytes)
{
}

} // namespace rosbridge::protocol
