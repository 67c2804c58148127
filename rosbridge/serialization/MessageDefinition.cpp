// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/serialization/MessageDefinition.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Codec.h"

#include <QCryptographicHash>
#include <QRegularExpression>

#include <algorithm>

namespace rosbridge::serialization {

using protocol::canonicalType;

namespace {

using Kind = MessageDefinition::Kind;

/// The link counts the arrays that messages are in as well, and what a message is sent in.
constexpr int deepest = protocol::maximumMessageDepth / 2 - 1;

/// No message is as long; keeps sums from running over.
constexpr qint64 largest = qint64{1} << 31;

const QHash<QString, Kind>& builtIn()
{
    static const QHash<QString, Kind> kinds{
        {QStringLiteral("bool"), Kind::Bool},       {QStringLiteral("byte"), Kind::Int8},
        {QStringLiteral("char"), Kind::UInt8},      {QStringLiteral("int8"), Kind::Int8},
        {QStringLiteral("uint8"), Kind::UInt8},     {QStringLiteral("int16"), Kind::Int16},
        {QStringLiteral("uint16"), Kind::UInt16},   {QStringLiteral("int32"), Kind::Int32},
        {QStringLiteral("uint32"), Kind::UInt32},   {QStringLiteral("int64"), Kind::Int64},
        {QStringLiteral("uint64"), Kind::UInt64},   {QStringLiteral("float32"), Kind::Float32},
        {QStringLiteral("float64"), Kind::Float64}, {QStringLiteral("string"), Kind::String},
        {QStringLiteral("time"), Kind::Time},       {QStringLiteral("duration"), Kind::Duration},
    };
    return kinds;
}

/// Between the definitions of two types.
bool isSeparator(const QString& line)
{
    return line.size() >= 3 && line.count(u'=') == line.size();
}

/// The full name of a type that a field of @p user names.
QString fullName(const QString& name, const QString& user)
{
    if (name == QLatin1String("Header"))
        return QStringLiteral("std_msgs/Header");
    return name.contains(u'/') ? canonicalType(name) : user.section(u'/', 0, 0) + u'/' + name;
}

} // namespace

std::optional<MessageDefinition> MessageDefinition::parse(const QString& type,
                                                          const QString& fullText, QString* error)
{
    MessageDefinition definition;
    QHash<QString, std::size_t> indices;
    const auto begin = [&](const QString& name) {
        indices.insert(name, definition.m_types.size());
        definition.m_types.push_back({});
        definition.m_types.back().name = name;
    };
    begin(canonicalType(type));
    QString why;
    bool isNameNext = false;
    bool isGood = true;
    const QStringList lines = fullText.split(u'\n');
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (isSeparator(line)) {
            isNameNext = true;
        } else if (isNameNext && !line.isEmpty()) {
            isNameNext = false;
            if (!line.startsWith(QLatin1String("MSG:"))) {
                why = tr("\"%1\" stands where the name of a type is due").arg(line.left(80));
                isGood = false;
                break;
            }
            begin(canonicalType(line.mid(4).trimmed()));
        } else if (!definition.readLine(definition.m_types.back(), line, &why)) {
            isGood = false;
            break;
        }
    }
    std::vector<int> heights(definition.m_types.size());
    if (isGood && definition.resolve(indices, &why) && definition.measure(0, 1, heights, &why))
        return definition;
    if (error)
        *error = tr("the definition of \"%1\" cannot be used: %2").arg(type, why);
    return std::nullopt;
}

QStringList MessageDefinition::typesIn(const QString& type, const QString& text)
{
    Type parsed;
    parsed.name = canonicalType(type);
    QString why;
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines) {
        if (!readLine(parsed, line.trimmed(), &why))
            return {};
    }
    QStringList types;
    for (const Field& field : parsed.fields) {
        if (field.kind == Kind::Message && !types.contains(field.type))
            types.append(field.type);
    }
    return types;
}

/// Of the constants, then of the fields, where the sum of a message stands for its type.
QByteArray MessageDefinition::checksum(const Type& type) const
{
    QStringList lines = type.constants;
    for (const Field& field : type.fields) {
        QString of = field.type;
        if (field.kind == Kind::Message)
            of = QString::fromLatin1(checksum(this->type(field)));
        else if (field.arrayLength == anyLength)
            of += QStringLiteral("[]");
        else if (field.arrayLength != noArray)
            of += QStringLiteral("[%1]").arg(field.arrayLength);
        lines.append(of + u' ' + field.name);
    }
    const QByteArray text = lines.join(u'\n').toUtf8();
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

bool MessageDefinition::readLine(Type& type, const QString& line, QString* why)
{
    static const QRegularExpression constant(QStringLiteral("^(\\w+)\\s+(\\w+)\\s*=\\s*(.*)$"));
    static const QRegularExpression field(
        QStringLiteral("^([\\w/]+)(?:\\[(\\d*)\\])?\\s+([A-Za-z]\\w*)$"));
    // In a text, "#" begins no comment.
    const bool isText = line.startsWith(QLatin1String("string ")) && line.contains(u'=');
    const QString code = isText ? line : line.section(u'#', 0, 0).trimmed();
    if (code.isEmpty())
        return true;
    if (const auto found = constant.match(code); found.hasMatch()) {
        type.constants.append(QStringLiteral("%1 %2=%3")
                                  .arg(found.captured(1), found.captured(2), found.captured(3)));
        return true;
    }
    const auto found = field.match(code.section(u'#', 0, 0).trimmed());
    if (!found.hasMatch()) {
        *why = tr("\"%1\" is neither a field nor a constant").arg(line.left(80));
        return false;
    }
    const QString name = found.captured(3);
    if (std::any_of(type.fields.cbegin(), type.fields.cend(),
                    [&name](const Field& other) { return other.name == name; })) {
        *why = tr("the field \"%1\" is there twice").arg(name);
        return false;
    }
    int length = noArray;
    if (found.capturedStart(2) >= 0) {
        const QString digits = found.captured(2);
        length = digits.isEmpty() ? anyLength : digits.toInt();
        if (length == 0 && !digits.isEmpty()) { // or more than an int
            *why = tr("the field \"%1\" cannot have %2 elements").arg(name, digits);
            return false;
        }
    }
    const Kind kind = builtIn().value(found.captured(1), Kind::Message);
    const QString fieldType =
        kind == Kind::Message ? fullName(found.captured(1), type.name) : found.captured(1);
    type.fields.push_back({name, fieldType, kind, length});
    return true;
}

/// Finds the types of the messages within.
bool MessageDefinition::resolve(const QHash<QString, std::size_t>& indices, QString* why)
{
    for (Type& type : m_types) {
        for (Field& field : type.fields) {
            if (field.kind != Kind::Message)
                continue;
            const auto found = indices.constFind(field.type);
            if (found == indices.cend()) {
                *why = tr("it lacks that of \"%1\"").arg(field.type);
                return false;
            }
            field.message = *found;
        }
    }
    return true;
}

/// Computes the least size of a type and of those it needs, and how many levels of messages it has.
bool MessageDefinition::measure(std::size_t index, int depth, std::vector<int>& heights,
                                QString* why)
{
    if (heights[index] > 0)
        return true;
    int height = 1;
    qint64 sum = 0;
    for (const Field& field : m_types[index].fields) {
        qint64 one = size(field.kind);
        if (field.kind == Kind::Message) {
            // A type that contains itself ends here, too.
            const bool isDeep = depth >= deepest;
            if (!isDeep && !measure(field.message, depth + 1, heights, why))
                return false;
            height = std::max(height, heights[field.message] + 1);
            if (isDeep || height > deepest) {
                *why = tr("its messages are nested too deeply");
                return false;
            }
            one = m_types[field.message].leastSize;
        }
        sum += field.arrayLength == anyLength ? qint64{sizeof(quint32)}
                                              : one * std::max(field.arrayLength, 1);
        sum = std::min(sum, largest);
    }
    m_types[index].leastSize = sum;
    heights[index] = height;
    return true;
}

int MessageDefinition::size(Kind kind)
{
    switch (kind) {
    case Kind::Bool:
    case Kind::Int8:
    case Kind::UInt8:
        return 1;
    case Kind::Int16:
    case Kind::UInt16:
        return 2;
    case Kind::Int32:
    case Kind::UInt32:
    case Kind::Float32:
    case Kind::String: // its length
        return 4;
    default:
        return 8;
    }
}

} // namespace rosbridge::serialization
