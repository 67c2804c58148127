// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

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

/// No message in either form may be longer, in bytes; what a client takes of a robot. It fits a map
/// of 4096 x 4096 cells as JSON, spaces between them included.
constexpr int maximumMessageSize = 96 * 1024 * 1024;

/// A value takes many times its size in memory, so that their number is bounded too: that of all
/// values, and that of texts, arrays and objects among them.
constexpr int maximumValues = 20 * 1000 * 1000;
constexpr int maximumParts = 4 * 1000 * 1000;

/// Maps and arrays nest no deeper than this, the message itself counted. ROS's standard
/// messages need less than ten levels.
constexpr int maximumMessageDepth = 32;

/// Decode one message of any origin. Too large, too many values, too deep, malformed, a field given
/// twice, data after the end or no "op" all give nothing and a reason in @p error (may be null).
std::optional<QCborMap> decodeText(const QByteArray& utf8Json, QString* error);
std::optional<QCborMap> decodeBinary(const QByteArray& cbor, QString* error);

/// Encode one message, as JSON with a JsonWriter.
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
