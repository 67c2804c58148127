#include "robot/endpoint/Frame.h"

#include "robot/link/Message.h"

namespace robot {

Frame encode(const QCborMap& message, Encoding encoding)
{
    return {encoding,
            encoding == Encoding::Json ? link::encodeText(message) : link::encodeBinary(message)};
}

} // namespace robot
