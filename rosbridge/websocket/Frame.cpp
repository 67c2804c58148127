// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/websocket/Frame.h"

#include <QRandomGenerator>
#include <QtEndian>

#include <cstring>

namespace rosbridge::websocket {

namespace {

Mask randomMask()
{
    const quint32 bits = QRandomGenerator::system()->generate(); // unforeseeable, says the RFC
    Mask mask;
    std::memcpy(mask.data(), &bits, sizeof(bits));
    return mask;
}

template <typename Number>
void appendBigEndian(QByteArray* bytes, Number number)
{
    const Number bigEndian = qToBigEndian(number);
    bytes->append(reinterpret_cast<const char*>(&bigEndian), sizeof(bigEndian));
}

} // namespace

QByteArray frame(Opcode opcode, const QByteArray& payload, Role sender)
{
    constexpr int isFinal = 0x80;
    const int isMasked = sender == Role::Client ? 0x80 : 0;
    QByteArray frame;
    frame.reserve(payload.size() + 14);
    frame.append(static_cast<char>(isFinal | static_cast<int>(opcode)));
    if (payload.size() < 126) {
        frame.append(static_cast<char>(isMasked | static_cast<int>(payload.size())));
    } else if (payload.size() <= 0xffff) {
        frame.append(static_cast<char>(isMasked | 126));
        appendBigEndian(&frame, static_cast<quint16>(payload.size()));
    } else {
        frame.append(static_cast<char>(isMasked | 127));
        appendBigEndian(&frame, static_cast<quint64>(payload.size()));
    }
    if (!isMasked)
        return frame + payload;

    const Mask mask = randomMask();
    frame.append(reinterpret_cast<const char*>(mask.data()), static_cast<int>(mask.size()));
    const auto header = frame.size();
    frame.append(payload);
    applyMask(frame.data() + header, payload.size(), mask, 0);
    return frame;
}

void applyMask(char* bytes, qint64 size, const Mask& mask, qint64 position)
{
    for (qint64 i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(bytes[i] ^ mask[static_cast<size_t>((position + i) % 4)]);
}

} // namespace rosbridge::websocket
