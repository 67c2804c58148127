// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Whatever bytes a peer sends, the handshake and the frames behind it are read within bounds, and
// what is read does not depend on how the bytes are cut on their way.
#include "Require.h"
#include "tests/rosbridge/websocket/Reading.h"

#include "rosbridge/protocol/Address.h"
#include "rosbridge/websocket/Handshake.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>

using namespace rosbridge::websocket;

namespace {

constexpr qint64 limit = 1000;

void readFrames(Role reader, const QByteArray& bytes)
{
    const Reading whole = read(reader, bytes, static_cast<int>(bytes.size()), limit);
    const Reading slow = read(reader, bytes, 3, limit);
    require(whole.items.size() == slow.items.size());
    for (int i = 0; i < static_cast<int>(whole.items.size()); ++i) {
        require(whole.items.at(i).data.size() <= limit + 1024); // or what is left of a larger one
        require(whole.items.at(i).data == slow.items.at(i).data &&
                whole.items.at(i).opcode == slow.items.at(i).opcode &&
                whole.items.at(i).leftOut == slow.items.at(i).leftOut);
    }
    require(whole.fault.has_value() == slow.fault.has_value());
}

/// What a person pastes: an address that is taken is written so that it is taken again, and stays
/// one line of a request.
void readAddress(const QByteArray& bytes)
{
    using rosbridge::protocol::Address;
    const auto address = Address::parse(QString::fromUtf8(bytes), nullptr);
    if (!address)
        return;
    const auto again = Address::parse(address->toString(), nullptr);
    require(again && *again == *address);
    const QByteArray asked = request(*address, randomKey());
    require(asked.indexOf("\r\n\r\n") == asked.size() - 4 && asked.count('\n') == 7);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    switch (data[0] % 4) {
    case 0: {
        QBuffer device(&bytes);
        device.open(QIODevice::ReadOnly);
        if (const auto handshake = readHandshake(device)) {
            isAgreement(*handshake, "key");
            require(!isRequest(*handshake) || agreement(*handshake).endsWith("\r\n\r\n"));
            require(handshake->status().size() <= handshake->firstLine.size());
        } else {
            require(device.pos() == 0);
        }
        break;
    }
    case 1:
        readFrames(Role::Client, bytes);
        break;
    case 2:
        readFrames(Role::Server, bytes);
        break;
    default:
        readAddress(bytes);
    }
    return 0;
}
