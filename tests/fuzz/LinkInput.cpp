// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "LinkInput.h"

#include "Require.h"

#include "rosbridge/protocol/Codec.h"

using namespace rosbridge::protocol;

std::vector<InputFrame> framesOf(const QByteArray& input)
{
    const QByteArray separator = QByteArrayLiteral("\n--\n");
    std::vector<InputFrame> frames;
    for (int begin = 0; begin < static_cast<int>(input.size());) {
        int end = static_cast<int>(input.indexOf(separator, begin));
        if (end < 0)
            end = static_cast<int>(input.size());
        frames.push_back({input.at(begin) == 'b', input.mid(begin + 1, end - begin - 1)});
        begin = end + static_cast<int>(separator.size());
    }
    return frames;
}

std::optional<QCborMap> decode(const InputFrame& frame, QString* error)
{
    std::optional<QCborMap> message =
        frame.isBinary ? decodeBinary(frame.bytes, error) : decodeText(frame.bytes, error);
    require(message.has_value() == error->isEmpty());
    require(!message || frame.bytes.size() <= maximumMessageSize);
    return message;
}
