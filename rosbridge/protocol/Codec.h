#ifndef ROSBRIDGE_PROTOCOL_CODEC_H
#define ROSBRIDGE_PROTOCOL_CODEC_H

#include <QByteArray>
#include <QCborMap>
#include <QCborValue>
#include <QString>
#include <QVector>

#include <optional>

/// A rosbridge v2 message in memory and on the wire.
///
/// In memory it is a QCborMap with text keys, among them the text "op". The values are null,
/// bool, integer, double, text, byte string (uint8[]), array, map and RFC 8746 typed array, and
/// nothing else; CBOR is the superset of what the two wire forms carry. A whole number may
/// arrive as an integer even where the field is a float: read numbers with toDouble().
///
/// On the wire it is JSON in a text frame, either way, or CBOR in a binary frame, to a client
/// that subscribed with the compression "cbor".
namespace rosbridge::protocol {

/// No message in either form may be longer, in bytes; a socket's bound on what it receives too.
/// Ample for a map or an image; a hostile message can take a hundred times as much memory.
constexpr int maximumMessageSize = 4 * 1024 * 1024;

/// Maps and arrays nest no deeper than this, the message itself counted. ROS's standard
/// messages need less than ten levels.
constexpr int maximumMessageDepth = 32;

/// Decode one message of any origin. Too large, too deep, malformed, a field given twice, data
/// after the end or no "op" all give nothing and a reason in @p error (may be null).
std::optional<QCborMap> decodeText(const QByteArray& utf8Json, QString* error);
std::optional<QCborMap> decodeBinary(const QByteArray& cbor, QString* error);

/// Encode one message. JSON has no NaN and no infinity, they become null; typed arrays become
/// plain arrays and byte strings base64 text, as rosbridge has it for uint8[].
QByteArray encodeText(const QCborMap& message);
QByteArray encodeBinary(const QCborMap& message);

/// A float32[] as the little-endian typed array, which encodeBinary() writes as one block.
QCborValue typedArray(const QVector<float>& values);

/// The nearest float, infinite where @p number is beyond a float's range.
float toFloat(double number);

/// Reads a float32[] in any of its forms: a plain array of numbers, where null stands for NaN,
/// or any numeric typed array. Anything else gives nothing and, in @p error (may be null), what
/// was found instead and at which index.
std::optional<QVector<float>> toFloats(const QCborValue& value, QString* error);

/// What kind of value this is, for a sentence: "text", "an array", "nothing".
QString kindOf(const QCborValue& value);

} // namespace rosbridge::protocol

#endif
