// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RosTypes.h"

#include "robot/network/TypeDefinitions.h"

#include <QCborArray>
#include <QMap>
#include <QStringList>
#include <QVector>
#include <QtEndian>

namespace ros_types {

namespace {

struct Field
{
    QString type; // with the brackets of an array
    QString name;

    bool isArray() const { return type.endsWith(QLatin1Char(']')); }
    bool isOfAnyLength() const { return type.endsWith(QLatin1String("[]")); }
    QString element() const { return type.section(QLatin1Char('['), 0, 0); }
    int length() const { return type.section(QLatin1Char('['), 1).chopped(1).toInt(); }
};

/// Empty for what is no message.
QVector<Field> fieldsOf(Ros ros, const QString& type)
{
    if (type == QLatin1String("rcl_interfaces/Log"))
        return {{"time", "stamp"},  {"uint8", "level"},     {"string", "name"}, {"string", "msg"},
                {"string", "file"}, {"string", "function"}, {"uint32", "line"}};
    QVector<Field> fields;
    static const robot::network::TypeDefinitions definitions;
    const QStringList lines = definitions.text(type).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QString name = line.section(QLatin1Char(' '), 1);
        if (name.contains(QLatin1Char('=')))
            continue; // a constant
        if (ros != Ros::One && type == QLatin1String("std_msgs/Header") &&
            name == QLatin1String("seq"))
            continue; // which ROS 2 has not
        fields.append(
            {line.section(QLatin1Char(' '), 0, 0), ros == Ros::One ? name : name.toLower()});
    }
    return fields;
}

bool isPrimitive(const QString& type)
{
    static const QStringList primitives{"bool",   "byte",   "char",    "int8",   "uint8",
                                        "int16",  "uint16", "int32",   "uint32", "int64",
                                        "uint64", "string", "float32", "float64"};
    return primitives.contains(type);
}

bool isTime(const QString& type)
{
    return type == QLatin1String("time") || type == QLatin1String("duration");
}

QCborValue sampleValue(Ros ros, const QString& type)
{
    if (isTime(type))
        return ros == Ros::One ? QCborMap{{"secs", 1}, {"nsecs", 2}}
                               : QCborMap{{"sec", 1}, {"nanosec", 2}};
    if (type == QLatin1String("string"))
        return QStringLiteral("text");
    if (type == QLatin1String("bool"))
        return true;
    if (type.startsWith(QLatin1String("float")))
        return 0.5;
    return isPrimitive(type) ? QCborValue(1) : QCborValue(sample(ros, type));
}

template <class Number>
QCborValue packed(int tag, const QCborArray& numbers)
{
    QByteArray bytes(int(numbers.size()) * int(sizeof(Number)), Qt::Uninitialized);
    char* at = bytes.data();
    for (const QCborValue number : numbers) {
        qToLittleEndian<Number>(static_cast<Number>(number.toDouble()), at);
        at += sizeof(Number);
    }
    return QCborValue(QCborTag(tag), bytes);
}

/// Nothing where it is no array of numbers that the conversion knows.
std::optional<QCborValue> toTypedArray(const QString& type, const QCborArray& numbers)
{
    if (type == QLatin1String("uint8[]")) { // bytes, and not numbers
        QByteArray bytes;
        for (const QCborValue number : numbers)
            bytes.append(static_cast<char>(number.toInteger()));
        return bytes;
    }
    if (type == QLatin1String("int8[]"))
        return packed<qint8>(72, numbers);
    if (type == QLatin1String("float32[]"))
        return packed<float>(85, numbers);
    if (type == QLatin1String("float64[]"))
        return packed<double>(86, numbers);
    return std::nullopt;
}

std::optional<QCborValue> convert(Ros ros, const Field& field, const QCborValue& value)
{
    if (isPrimitive(field.type) || isTime(field.type))
        return value;
    if (!field.isArray()) {
        const auto message = toCbor(ros, field.type, value.toMap());
        return message ? std::optional<QCborValue>(*message) : std::nullopt;
    }
    const QCborArray elements = value.toArray();
    if (const auto numbers = toTypedArray(field.type, elements))
        return numbers;
    if (ros != Ros::One && field.type == QLatin1String("string[]"))
        return value;
    if (ros != Ros::One && !field.isOfAnyLength())
        return std::nullopt; // no list, there
    QCborArray messages;
    for (const QCborValue element : elements) {
        const auto message = isPrimitive(field.element())
                                 ? std::nullopt
                                 : toCbor(ros, field.element(), element.toMap());
        if (!message)
            return std::nullopt;
        messages.append(*message);
    }
    return messages;
}

} // namespace

QString spelled(Ros ros, const QString& type)
{
    return ros == Ros::One ? type : QString(type).replace("/", "/msg/");
}

QCborMap sample(Ros ros, const QString& type)
{
    QCborMap message;
    const QVector<Field> fields = fieldsOf(ros, type);
    for (const Field& field : fields) {
        if (!field.isArray()) {
            message.insert(field.name, sampleValue(ros, field.type));
            continue;
        }
        QCborArray elements;
        for (int i = 0; i < qMax(field.length(), 1); ++i)
            elements.append(sampleValue(ros, field.element()));
        message.insert(field.name, elements);
    }
    return message;
}

std::optional<QCborMap> toCbor(Ros ros, const QString& type, const QCborMap& message)
{
    if (ros == Ros::FirstTwo)
        return std::nullopt;
    QCborMap converted;
    const QVector<Field> fields = fieldsOf(ros, type);
    for (const Field& field : fields) {
        const auto value = convert(ros, field, message.value(field.name));
        if (!value)
            return std::nullopt;
        converted.insert(field.name, *value);
    }
    return converted;
}

} // namespace ros_types
