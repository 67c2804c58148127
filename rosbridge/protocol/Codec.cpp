// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/Codec.h"

#include "rosbridge/protocol/CborCheck.h"
#include "rosbridge/protocol/JsonWriter.h"
#include "rosbridge/protocol/TypedArray.h"

#include <QCborArray>
#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <limits>

namespace rosbridge::protocol {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::protocol::Codec)
};

/// Sets the error, if anyone asked for it; converts to the empty result of any decoder here.
std::nullopt_t refuse(QString* error, const QString& why)
{
    if (error)
        *error = why;
    return std::nullopt;
}

std::optional<QString> sizeFault(const QByteArray& data)
{
    if (data.size() <= maximumMessageSize)
        return std::nullopt;
    return Text::tr("the message has %1 bytes, the limit is %2")
        .arg(data.size())
        .arg(maximumMessageSize);
}

std::optional<QCborMap> withOp(const QCborMap& message, QString* error)
{
    if (!message.value(QLatin1String("op")).isString())
        return refuse(error, Text::tr("the message has no text field \"op\""));
    return message;
}

/// What a pass over the bytes alone tells of a JSON text.
struct JsonOutline
{
    int depth = 0;
    qsizetype fields = 0;
    qsizetype values = 1;
    qsizetype parts = 0;
};

JsonOutline outlineOf(const QByteArray& json)
{
    JsonOutline outline;
    int depth = 0;
    bool inString = false;
    for (auto c = json.cbegin(); c != json.cend(); ++c) {
        if (inString) {
            if (*c == '\\' && c + 1 != json.cend())
                ++c;
            else if (*c == '"')
                inString = false;
        } else if (*c == '"') {
            inString = true;
            ++outline.parts;
        } else if (*c == ',') {
            ++outline.values;
        } else if (*c == '{' || *c == '[') {
            ++outline.values;
            ++outline.parts;
            outline.depth = std::max(outline.depth, ++depth);
        } else if (*c == '}' || *c == ']') {
            --depth;
        } else if (*c == ':') {
            ++outline.fields;
        }
    }
    return outline;
}

/// The fields of a value, those of its parts included.
struct FieldCount
{
    qsizetype count = 0;
    bool areUnicode = true; ///< No name has half of a surrogate pair, which CBOR could not carry.

    void add(const QCborValue& value)
    {
        if (value.isArray()) {
            const QCborArray array = value.toArray();
            for (const QCborValue element : array)
                add(element);
        } else if (value.isMap()) {
            const QCborMap map = value.toMap();
            for (auto field = map.cbegin(); field != map.cend(); ++field) {
                ++count;
                areUnicode = areUnicode && field.key().toString().isValidUtf16();
                add(field.value());
            }
        }
    }
};

} // namespace

std::optional<QCborMap> decodeText(const QByteArray& utf8Json, QString* error)
{
    if (const std::optional<QString> fault = sizeFault(utf8Json))
        return refuse(error, *fault);

    const JsonOutline outline = outlineOf(utf8Json);
    if (outline.depth > maximumMessageDepth)
        return refuse(error,
                      Text::tr("the message nests deeper than %1 levels").arg(maximumMessageDepth));
    if (outline.values > maximumValues || outline.parts > maximumParts)
        return refuse(error, CborCheck::tooManyText());

    QJsonParseError fault;
    const QJsonDocument document = QJsonDocument::fromJson(utf8Json, &fault);
    if (fault.error != QJsonParseError::NoError)
        return refuse(error, Text::tr("the text is not valid JSON: %1, at byte %2")
                                 .arg(fault.errorString())
                                 .arg(fault.offset));
    if (!document.isObject())
        return refuse(error, Text::tr("the message is not a JSON object"));

    // The parser keeps one of two fields of the same name; then the text had more of them.
    const QCborMap message = QCborMap::fromJsonObject(document.object());
    FieldCount fields;
    fields.add(message);
    if (fields.count != outline.fields)
        return refuse(error, Text::tr("the message contains a field twice"));
    if (!fields.areUnicode)
        return refuse(error, Text::tr("the name of a field is not valid Unicode"));
    return withOp(message, error);
}

std::optional<QCborMap> decodeBinary(const QByteArray& cbor, QString* error)
{
    if (const std::optional<QString> fault = sizeFault(cbor))
        return refuse(error, *fault);
    if (const std::optional<QString> fault = CborCheck(cbor, maximumMessageDepth).fault())
        return refuse(error, *fault);

    QCborParserError fault;
    const QCborValue value = QCborValue::fromCbor(cbor, &fault);
    if (fault.error != QCborError::NoError)
        return refuse(error, Text::tr("the data is not valid CBOR: %1, at byte %2")
                                 .arg(fault.errorString())
                                 .arg(fault.offset));
    if (!value.isMap())
        return refuse(error, Text::tr("the message is %1, not an object").arg(kindOf(value)));
    return withOp(value.toMap(), error);
}

QByteArray encodeText(const QCborMap& message)
{
    JsonWriter writer;
    writer.write(message);
    return writer.text();
}

QByteArray encodeBinary(const QCborMap& message)
{
    return message.toCborValue().toCbor();
}

QCborValue typedArray(const QVector<float>& values)
{
    constexpr quint64 float32LittleEndian = 85;
    QByteArray bytes(values.size() * static_cast<int>(sizeof(float)), Qt::Uninitialized);
    if (!values.isEmpty()) // an empty list has no memory to copy from
        qToLittleEndian<float>(values.constData(), values.size(), bytes.data());
    return QCborValue(QCborTag(float32LittleEndian), bytes);
}

float toFloat(double number)
{
    // Converting what is out of range is undefined; from the limit on, rounding makes it infinite.
    constexpr double largest = std::numeric_limits<float>::max();
    constexpr double limit = 0x1.ffffffp127;
    if (std::abs(number) <= largest || std::isnan(number))
        return static_cast<float>(number);
    const double rounded =
        std::abs(number) < limit ? largest : std::numeric_limits<double>::infinity();
    return static_cast<float>(std::copysign(rounded, number));
}

std::optional<QVector<float>> toFloats(const QCborValue& value, QString* error)
{
    QVector<float> floats;
    if (value.isTag()) {
        const std::optional<TypedArray> numbers = TypedArray::read(value, error);
        if (!numbers)
            return std::nullopt;
        floats.reserve(numbers->size());
        numbers->forEach(
            [&floats](auto number) { floats.append(toFloat(static_cast<double>(number))); });
        return floats;
    }
    if (!value.isArray())
        return refuse(error, Text::tr("found %1, not an array of numbers").arg(kindOf(value)));

    const QCborArray array = value.toArray();
    floats.reserve(static_cast<int>(array.size()));
    for (const QCborValue element : array) {
        if (element.isNull())
            floats.append(std::numeric_limits<float>::quiet_NaN());
        else if (element.isInteger() || element.isDouble())
            floats.append(toFloat(element.toDouble()));
        else
            return refuse(
                error,
                Text::tr("element %1 is %2, not a number").arg(floats.size()).arg(kindOf(element)));
    }
    return floats;
}

QString kindOf(const QCborValue& value)
{
    switch (value.type()) {
    case QCborValue::True:
    case QCborValue::False:
        return Text::tr("a truth value");
    case QCborValue::Integer:
    case QCborValue::Double:
        return Text::tr("a number");
    case QCborValue::String:
        return Text::tr("text");
    case QCborValue::ByteArray:
        return Text::tr("a byte string");
    case QCborValue::Array:
    case QCborValue::Tag:
        return Text::tr("an array");
    case QCborValue::Map:
        return Text::tr("an object");
    default:
        return Text::tr("nothing");
    }
}

} // namespace rosbridge::protocol
