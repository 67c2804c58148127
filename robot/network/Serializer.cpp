// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Serializer.h"

#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QDataStream>
#include <QIODevice>

#include <limits>

namespace robot::network {

namespace {

/// Null is NaN, as in JSON; what is missing is 0.
double number(const QCborValue& value)
{
    return value.isNull() ? std::numeric_limits<double>::quiet_NaN() : value.toDouble();
}

void writeBytes(QDataStream& to, const QByteArray& bytes)
{
    to << static_cast<quint32>(bytes.size());
    to.writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
}

} // namespace

QByteArray Serializer::serialize(const QString& type, const QCborMap& message)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    writeMessage(stream, type, message);
    return bytes;
}

void Serializer::writeMessage(QDataStream& to, const QString& type, const QCborMap& message)
{
    auto known = m_types.constFind(type);
    if (known == m_types.cend())
        known = m_types.insert(type, TypeDetails(type));
    const QVector<TypeDetails::Field> fields = known->fields();
    for (const TypeDetails::Field& field : fields) {
        const QCborValue value = message.value(field.name);
        if (field.arrayLength < 0)
            writeValue(to, field.type, value);
        else
            writeArray(to, field, value);
    }
}

/// One of any length begins with that.
void Serializer::writeArray(QDataStream& to, const TypeDetails::Field& field,
                            const QCborValue& value)
{
    if (value.isTag()) {
        const QVector<float> floats =
            rosbridge::protocol::toFloats(value, nullptr).value_or(QVector<float>());
        to << static_cast<quint32>(floats.size());
        for (const float each : floats)
            writeValue(to, field.type, static_cast<double>(each));
        return;
    }
    if (value.isByteArray()) {
        writeBytes(to, value.toByteArray());
        return;
    }
    const QCborArray elements = value.toArray();
    if (field.arrayLength == 0)
        to << static_cast<quint32>(elements.size());
    const qsizetype count = field.arrayLength == 0 ? elements.size() : field.arrayLength;
    for (qsizetype i = 0; i < count; ++i)
        writeValue(to, field.type, elements.at(i));
}

void Serializer::writeValue(QDataStream& to, const QString& type, const QCborValue& value)
{
    if (type == QLatin1String("string")) {
        writeBytes(to, value.toString().toUtf8());
    } else if (type == QLatin1String("bool")) {
        to << value.toBool();
    } else if (type == QLatin1String("byte") || type == QLatin1String("int8")) {
        to << static_cast<qint8>(value.toInteger());
    } else if (type == QLatin1String("int32") || type == QLatin1String("uint32")) {
        to << static_cast<quint32>(value.toInteger());
    } else if (type == QLatin1String("float32")) {
        to.setFloatingPointPrecision(QDataStream::SinglePrecision);
        to << rosbridge::protocol::toFloat(number(value));
    } else if (type == QLatin1String("float64")) {
        to.setFloatingPointPrecision(QDataStream::DoublePrecision);
        to << number(value);
    } else {
        writeMessage(to, type, value.toMap());
    }
}

} // namespace robot::network
