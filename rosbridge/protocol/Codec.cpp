// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/Codec.h"

#include "rosbridge/protocol/CborCheck.h"

#include <QCborArray>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>
#include <qfloat16.h>

#include <algorithm>
#include <cmath>
#include <cstring>
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

qsizetype fieldCount(const QCborValue& value)
{
    qsizetype count = 0;
    if (value.isArray()) {
        const QCborArray array = value.toArray();
        for (const QCborValue element : array)
            count += fieldCount(element);
    } else if (value.isMap()) {
        const QCborMap map = value.toMap();
        count = map.size();
        for (auto field = map.cbegin(); field != map.cend(); ++field)
            count += fieldCount(field.value());
    }
    return count;
}

template <typename Number, typename Bits>
QVector<double> unpack(const QByteArray& bytes, bool littleEndian)
{
    static_assert(sizeof(Number) == sizeof(Bits));
    QVector<double> numbers;
    numbers.reserve(bytes.size() / static_cast<int>(sizeof(Bits)));
    for (const char* at = bytes.cbegin(); at != bytes.cend(); at += sizeof(Bits)) {
        const Bits bits = littleEndian ? qFromLittleEndian<Bits>(at) : qFromBigEndian<Bits>(at);
        Number number;
        std::memcpy(static_cast<void*>(&number), &bits, sizeof(bits)); // qfloat16 is a class
        numbers.append(static_cast<double>(number));
    }
    return numbers;
}

/// The elements of an RFC 8746 typed array. The tag's bits are 010fsell: float, signed,
/// little-endian, and the element's size.
std::optional<QVector<double>> typedNumbers(const QCborValue& array, QString* error)
{
    const auto tag = static_cast<quint64>(array.tag());
    const QByteArray bytes = array.taggedValue().toByteArray();
    const bool isFloat = tag & 0x10U;
    const bool isSigned = tag & 0x08U;
    const bool isLittleEndian = tag & 0x04U;
    const unsigned sizeExponent = (tag & 0x03U) + (isFloat ? 1 : 0);
    const int size = 1 << sizeExponent;
    if (tag < 64 || tag > 86 || tag == 76 || tag == 83 || !array.taggedValue().isByteArray())
        return refuse(
            error,
            Text::tr("a value with the tag %1 is not a supported array of numbers").arg(tag));
    if (bytes.size() % size != 0)
        return refuse(error, Text::tr("the typed array has %1 bytes, not a multiple of its "
                                      "element's %2")
                                 .arg(bytes.size())
                                 .arg(size));
    switch (size) {
    case 1:
        return isSigned ? unpack<qint8, quint8>(bytes, true) : unpack<quint8, quint8>(bytes, true);
    case 2:
        return isFloat    ? unpack<qfloat16, quint16>(bytes, isLittleEndian)
               : isSigned ? unpack<qint16, quint16>(bytes, isLittleEndian)
                          : unpack<quint16, quint16>(bytes, isLittleEndian);
    case 4:
        return isFloat    ? unpack<float, quint32>(bytes, isLittleEndian)
               : isSigned ? unpack<qint32, quint32>(bytes, isLittleEndian)
                          : unpack<quint32, quint32>(bytes, isLittleEndian);
    default:
        return isFloat    ? unpack<double, quint64>(bytes, isLittleEndian)
               : isSigned ? unpack<qint64, quint64>(bytes, isLittleEndian)
                          : unpack<quint64, quint64>(bytes, isLittleEndian);
    }
}

QJsonValue toJson(double number)
{
    return std::isfinite(number) ? QJsonValue(number) : QJsonValue();
}

QJsonValue toJson(const QCborValue& value)
{
    switch (value.type()) {
    case QCborValue::True:
    case QCborValue::False:
        return value.toBool();
    case QCborValue::Integer:
        return value.toInteger();
    case QCborValue::Double:
        return toJson(value.toDouble());
    case QCborValue::String:
        return value.toString();
    case QCborValue::ByteArray:
        return QString::fromLatin1(value.toByteArray().toBase64());
    case QCborValue::Array: {
        QJsonArray array;
        const QCborArray elements = value.toArray();
        for (const QCborValue element : elements)
            array.append(toJson(element));
        return array;
    }
    case QCborValue::Map: {
        QJsonObject object;
        const QCborMap map = value.toMap();
        for (auto field = map.cbegin(); field != map.cend(); ++field)
            object.insert(field.key().toString(), toJson(field.value()));
        return object;
    }
    case QCborValue::Tag: {
        const std::optional<QVector<double>> numbers = typedNumbers(value, nullptr);
        if (!numbers)
            return QJsonValue();
        QJsonArray array;
        for (const double number : *numbers)
            array.append(toJson(number));
        return array;
    }
    default:
        return QJsonValue();
    }
}

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
    if (fieldCount(message) != outline.fields)
        return refuse(error, Text::tr("the message contains a field twice"));
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
    return QJsonDocument(toJson(QCborValue(message)).toObject()).toJson(QJsonDocument::Compact);
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
        const std::optional<QVector<double>> numbers = typedNumbers(value, error);
        if (!numbers)
            return std::nullopt;
        floats.reserve(numbers->size());
        for (const double number : *numbers)
            floats.append(toFloat(number));
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
