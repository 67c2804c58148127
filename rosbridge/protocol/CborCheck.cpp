// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/CborCheck.h"

#include "rosbridge/protocol/Codec.h"

namespace rosbridge::protocol {

namespace {

enum MajorType
{
    PositiveInteger,
    NegativeInteger,
    ByteString,
    TextString,
    Array,
    Map,
    Tag,
    SimpleOrFloat,
};

constexpr unsigned openEnded = 31; // in place of a length

} // namespace

CborCheck::CborCheck(const QByteArray& cbor, int maximumDepth)
    : m_data(cbor.constData(), static_cast<size_t>(cbor.size())),
      m_maximumDepth(maximumDepth)
{
}

std::optional<QString> CborCheck::fault()
{
    do
        readItem();
    while (!m_fault && !m_open.empty());

    if (!m_fault && m_position != m_data.size())
        fail(tr("data follows the message's end"));
    return m_fault;
}

QString CborCheck::tooManyText()
{
    return tr("the message has more than %1 values, or %2 texts, arrays and objects")
        .arg(maximumValues)
        .arg(maximumParts);
}

void CborCheck::readItem()
{
    const unsigned head = readByte();
    if (m_fault)
        return;
    if (head == 0xff) {
        readBreak();
        return;
    }
    const unsigned major = head >> 5;
    const unsigned info = head & 0x1fU;
    const bool isPart = major >= ByteString && major <= Tag;
    if (++m_values > maximumValues || (isPart && ++m_parts > maximumParts)) {
        fail(tooManyText());
        return;
    }
    const bool isKey = !m_open.empty() && m_open.back().isKeyNext;
    if (isKey && major != TextString) {
        fail(tr("a field's name is not text"));
        return;
    }
    const std::optional<quint64> argument = readArgument(info);
    if (m_fault)
        return;
    if (!argument && major != Array && major != Map) {
        fail(tr("only arrays and objects may have indefinite length"));
        return;
    }
    switch (major) {
    case PositiveInteger:
    case NegativeInteger:
        completeItem();
        break;
    case ByteString:
        readBytes(*argument);
        completeItem();
        break;
    case TextString:
        readText(*argument, isKey);
        break;
    case Array:
    case Map:
        enter(major == Map, argument);
        break;
    case Tag:
        readTag(*argument);
        break;
    default:
        // false, true, null and undefined, or a number of 2, 4 or 8 bytes
        if (info < 20 || info == 24)
            fail(tr("the simple value %1 is not supported").arg(*argument));
        else
            completeItem();
    }
}

void CborCheck::readText(quint64 length, bool isKey)
{
    const std::string_view text = readBytes(length);
    if (m_fault)
        return;
    if (isKey && !m_open.back().keys.insert(text).second) {
        fail(tr("the field \"%1\" occurs twice")
                 .arg(QString::fromUtf8(text.data(), static_cast<int>(text.size()))));
        return;
    }
    completeItem();
}

void CborCheck::readTag(quint64 tag)
{
    // RFC 8746: one of these tags and the bytes of the elements.
    if (tag < 64 || tag > 87) {
        fail(tr("the tag %1 is not that of a typed array").arg(tag));
        return;
    }
    checkDepth(); // in JSON it is an array like any other
    const unsigned head = readByte();
    if (!m_fault && head >> 5 != ByteString)
        fail(tr("a typed array is not a byte string"));
    const std::optional<quint64> length = m_fault ? std::nullopt : readArgument(head & 0x1fU);
    if (!m_fault && !length)
        fail(tr("only arrays and objects may have indefinite length"));
    if (m_fault)
        return;
    readBytes(*length);
    completeItem();
}

void CborCheck::readBreak()
{
    // In a map, an end is due only where a key is.
    if (m_open.empty() || !m_open.back().isOpenEnded ||
        m_open.back().isMap != m_open.back().isKeyNext) {
        fail(tr("an unexpected end marker"));
        return;
    }
    m_open.pop_back();
    completeItem();
}

void CborCheck::enter(bool isMap, std::optional<quint64> length)
{
    // Every item has at least one byte, so a greater count is a lie or a cut.
    if (length && *length > m_data.size() - m_position) {
        fail(tr("the data ends too early"));
        return;
    }
    checkDepth();
    if (m_fault)
        return;
    if (length == quint64(0)) {
        completeItem();
        return;
    }
    Container container;
    container.isMap = isMap;
    container.isKeyNext = isMap;
    container.isOpenEnded = !length;
    container.itemsLeft = length.value_or(0) * (isMap ? 2 : 1);
    m_open.push_back(std::move(container));
}

/// For one more level.
void CborCheck::checkDepth()
{
    if (m_open.size() >= static_cast<size_t>(m_maximumDepth))
        fail(tr("the message nests deeper than %1 levels").arg(m_maximumDepth));
}

/// The last item of a container completes the container too, and so on outwards.
void CborCheck::completeItem()
{
    while (!m_open.empty()) {
        Container& container = m_open.back();
        if (container.isMap)
            container.isKeyNext = !container.isKeyNext;
        if (container.isOpenEnded || --container.itemsLeft > 0)
            return;
        m_open.pop_back();
    }
}

/// The number that comes with an item's first byte; none for "open-ended".
std::optional<quint64> CborCheck::readArgument(unsigned info)
{
    if (info < 24)
        return info;
    if (info == openEnded)
        return std::nullopt;
    if (info > 27) {
        fail(tr("a byte that CBOR does not define"));
        return std::nullopt;
    }
    quint64 argument = 0;
    for (unsigned left = 1U << (info - 24); left > 0; --left)
        argument = argument << 8 | readByte();
    return argument;
}

std::string_view CborCheck::readBytes(quint64 length)
{
    if (length > m_data.size() - m_position) {
        fail(tr("the data ends too early"));
        return {};
    }
    const std::string_view bytes = m_data.substr(m_position, length);
    m_position += length;
    return bytes;
}

unsigned CborCheck::readByte()
{
    const std::string_view byte = readBytes(1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
}

void CborCheck::fail(const QString& why)
{
    if (!m_fault)
        m_fault = tr("%1, at byte %2").arg(why, QString::number(m_position));
}

} // namespace rosbridge::protocol
