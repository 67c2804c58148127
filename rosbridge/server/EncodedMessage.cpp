// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/EncodedMessage.h"

#include "rosbridge/protocol/Codec.h"

namespace rosbridge::server {

EncodedMessage encode(const QCborMap& message, Encoding encoding)
{
    return {encoding, encoding == Encoding::Json ? protocol::encodeText(message)
                                                 : protocol::encodeBinary(message)};
}

} // namespace rosbridge::server
