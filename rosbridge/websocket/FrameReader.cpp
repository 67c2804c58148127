// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/FrameReader.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <utility>

namespace rosbridge::websocket {

namespace {

constexpr qint64 chunkBytes = qint64{64} * 1024;

// Some libraries end a message with an empty frame; none needs them in its middle.
constexpr int maximumEmptyFrames = 100;

// Of a message that is left out: enough to find the name of its topic.
constexpr int endBytes = 512;

// A peer that never ends a message says nothing any more.
constexpr qint64 maximumLeftOut = qint64(1) << 30;

} // namespace

FrameReader::FrameReader(Role reader, qint64 maximumBytes)
    : m_role(reader),
      m_maximumBytes(maximumBytes)
{
}

std::optional<FrameReader::Item> FrameReader::read(QIODevice& device)
{
    while (!m_fault && (m_frame || readHeader(device))) {
        readPayload(device);
        if (m_frameRead < m_frame->length)
            break;
        if (std::optional<Item> item = endFrame())
            return item;
    }
    return std::nullopt;
}

/// False if it has not come as a whole, or is not fit.
bool FrameReader::readHeader(QIODevice& device)
{
    std::array<char, 14> bytes{};
    const qint64 size = device.peek(bytes.data(), bytes.size());
    if (size < 2)
        return false;
    const auto first = static_cast<quint8>(bytes[0]);
    const auto second = static_cast<quint8>(bytes[1]);
    const int shortLength = second & 0x7f;
    const int lengthBytes = shortLength == 127 ? 8 : shortLength == 126 ? 2 : 0;
    const bool isMasked = (second & 0x80) != 0;
    if (size < 2 + lengthBytes + (isMasked ? 4 : 0))
        return false;

    Header header;
    header.opcode = static_cast<Opcode>(first & 0x0f);
    header.isFinal = (first & 0x80) != 0;
    const char* at = bytes.data() + 2;
    const quint64 length = lengthBytes == 8   ? qFromBigEndian<quint64>(at)
                           : lengthBytes == 2 ? qFromBigEndian<quint16>(at)
                                              : static_cast<quint64>(shortLength);
    header.length = static_cast<qint64>(length);
    if (isMasked)
        std::memcpy(header.mask.data(), at + lengthBytes, header.mask.size());
    device.read(bytes.data(), 2 + lengthBytes + (isMasked ? 4 : 0));

    if ((first & 0x70) != 0)
        fail(CloseCode::ProtocolError, tr("a frame uses an extension that was not agreed on"));
    else if (isMasked != (m_role == Role::Server))
        fail(CloseCode::ProtocolError,
             isMasked ? tr("a server's frame is masked") : tr("a client's frame is not masked"));
    else if ((lengthBytes == 2 && length < 126) || (lengthBytes == 8 && length <= 0xffff) ||
             header.length < 0)
        fail(CloseCode::ProtocolError, tr("a frame's length is encoded wrongly"));
    else
        check(header);
    if (m_fault)
        return false;
    m_frame = header;
    m_frameRead = 0;
    return true;
}

void FrameReader::check(const Header& header)
{
    switch (header.opcode) {
    case Opcode::Text:
    case Opcode::Binary:
        if (m_isInMessage)
            fail(CloseCode::ProtocolError, tr("a message begins inside another"));
        else
            beginMessage(header);
        break;
    case Opcode::Continuation:
        if (!m_isInMessage)
            fail(CloseCode::ProtocolError, tr("a frame continues no message"));
        else
            growMessage(header);
        break;
    case Opcode::Close:
    case Opcode::Ping:
    case Opcode::Pong:
        if (!header.isFinal || header.length > maximumControlPayload)
            fail(CloseCode::ProtocolError, tr("a control frame is too long or split"));
        m_control.clear();
        break;
    default:
        fail(CloseCode::ProtocolError, tr("a frame is of a kind that does not exist"));
    }
}

void FrameReader::beginMessage(const Header& header)
{
    m_isInMessage = true;
    m_isTooLarge = false;
    m_message = {header.opcode, {}, 0};
    m_emptyFrames = 0;
    growMessage(header);
}

void FrameReader::growMessage(const Header& header)
{
    if (header.length == 0 && !header.isFinal && ++m_emptyFrames > maximumEmptyFrames) {
        fail(CloseCode::ProtocolError, tr("a message has too many empty frames"));
        return;
    }
    if (!m_isTooLarge && header.length > m_maximumBytes - m_message.data.size()) {
        if (m_role == Role::Server) {
            fail(CloseCode::TooLarge, tr("a message has more than %1 bytes").arg(m_maximumBytes));
            return;
        }
        m_isTooLarge = true;
        leaveOut(std::exchange(m_message.data, {}));
    }
    if (!m_isTooLarge)
        m_message.data.reserve(static_cast<int>(m_message.data.size() + header.length));
    else if (header.length > maximumLeftOut - m_message.leftOut)
        fail(CloseCode::TooLarge, tr("a message has more than %1 bytes").arg(maximumLeftOut));
}

void FrameReader::readPayload(QIODevice& device)
{
    QByteArray chunk;
    while (m_frameRead < m_frame->length) {
        const bool isLeftOut = !m_frame->isControl() && m_isTooLarge;
        QByteArray& target = m_frame->isControl() ? m_control : isLeftOut ? chunk : m_message.data;
        if (isLeftOut)
            chunk.clear();
        const auto before = target.size();
        const qint64 most = std::min(m_frame->length - m_frameRead, chunkBytes);
        target.resize(before + static_cast<int>(most));
        const qint64 got = std::max<qint64>(device.read(target.data() + before, most), 0);
        target.resize(before + static_cast<int>(got));
        if (m_role == Role::Server)
            applyMask(target.data() + before, got, m_frame->mask, m_frameRead);
        m_frameRead += got;
        if (isLeftOut)
            leaveOut(chunk);
        if (got == 0)
            return;
    }
}

void FrameReader::leaveOut(const QByteArray& bytes)
{
    m_message.leftOut += bytes.size();
    m_message.data.append(bytes.left(endBytes - static_cast<int>(m_message.data.size())));
    m_tail = (m_tail + bytes.right(endBytes)).right(endBytes);
}

std::optional<FrameReader::Item> FrameReader::endFrame()
{
    const Header header = *std::exchange(m_frame, std::nullopt);
    if (header.isControl())
        return Item{header.opcode, std::exchange(m_control, {}), 0};
    if (!header.isFinal)
        return std::nullopt;
    m_isInMessage = false;
    m_message.data += std::exchange(m_tail, {});
    return std::exchange(m_message, {});
}

void FrameReader::fail(CloseCode code, const QString& text)
{
    m_fault = Fault{code, text};
    m_message = {};
}

} // namespace rosbridge::websocket
