#ifndef ROBOT_ENDPOINT_FRAME_H
#define ROBOT_ENDPOINT_FRAME_H

#include <QByteArray>
#include <QCborMap>

namespace robot {

/// The two wire forms of a message, which rosbridge calls the compressions "none" and "cbor".
enum class Encoding
{
    Json, ///< a text frame
    Cbor, ///< a binary frame
};

/// One encoded message; copies share the bytes.
struct Frame
{
    Encoding encoding = Encoding::Json;
    QByteArray bytes;
};

Frame encode(const QCborMap& message, Encoding encoding);

} // namespace robot

#endif
