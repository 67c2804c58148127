// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_ENCODEDMESSAGE_H
#define ROSBRIDGE_SERVER_ENCODEDMESSAGE_H

#include <QByteArray>
#include <QCborMap>

namespace rosbridge::server {

/// The wire forms of a message, which rosbridge calls the compressions "none", "cbor" and
/// "cbor-raw". A client that asks for a topic in several ways gets the last of them.
enum class Encoding
{
    Json,    ///< a text frame
    Cbor,    ///< a binary frame
    CborRaw, ///< the same, with the topic's message as ROS itself serializes it
};

/// One encoded message; copies share the bytes.
struct EncodedMessage
{
    Encoding encoding = Encoding::Json;
    QByteArray bytes;
};

EncodedMessage encode(const QCborMap& message, Encoding encoding);

} // namespace rosbridge::server

#endif
