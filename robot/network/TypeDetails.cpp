// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/TypeDetails.h"

#include "robot/network/TypeDefinitions.h"

#include <QMap>

#include <algorithm>

namespace robot::network {

namespace {

/// Examples by type, as Python writes them.
const QMap<QString, QString>& primitives()
{
    static const QMap<QString, QString> examples{
        {QStringLiteral("bool"), QStringLiteral("False")},
        {QStringLiteral("byte"), QStringLiteral("0")},
        {QStringLiteral("char"), QStringLiteral("0")},
        {QStringLiteral("float32"), QStringLiteral("0.0")},
        {QStringLiteral("float64"), QStringLiteral("0.0")},
        {QStringLiteral("int8"), QStringLiteral("0")},
        {QStringLiteral("int16"), QStringLiteral("0")},
        {QStringLiteral("int32"), QStringLiteral("0")},
        {QStringLiteral("int64"), QStringLiteral("0")},
        {QStringLiteral("string"), QLatin1String("")},
        {QStringLiteral("uint8"), QStringLiteral("0")},
        {QStringLiteral("uint16"), QStringLiteral("0")},
        {QStringLiteral("uint32"), QStringLiteral("0")},
        {QStringLiteral("uint64"), QStringLiteral("0")},
    };
    return examples;
}

/// Of time and duration, which are no messages but are described like them.
QString definitionOf(const TypeDefinitions& definitions, const QString& type)
{
    if (type == QLatin1String("time") || type == QLatin1String("duration"))
        return QStringLiteral("int32 secs\nint32 nsecs\n");
    return definitions.text(type);
}

} // namespace

TypeDetails::TypeDetails(const TypeDefinitions& definitions, const QString& type)
    : m_definitions(&definitions),
      m_type(type),
      m_definition(definitionOf(definitions, type))
{
    const QStringList lines = m_definition.split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines)
        readLine(line);
}

void TypeDetails::readLine(const QString& line)
{
    const QString type = line.section(u' ', 0, 0);
    const QString name = line.section(u' ', 1);
    if (name.contains(u'=')) {
        m_constantNames.append(name.section(u'=', 0, 0));
        m_constantValues.append(name.section(u'=', 1));
    } else if (type.endsWith(u']')) {
        const QString length = type.section(u'[', 1).chopped(1);
        m_fields.append({type.section(u'[', 0, 0), name, length.toInt()}); // 0 where there is none
    } else {
        m_fields.append({type, name, -1});
    }
}

QStringList TypeDetails::fieldNames() const
{
    QStringList names;
    for (const Field& field : m_fields)
        names.append(field.name);
    return names;
}

QCborMap TypeDetails::typeDef() const
{
    QCborArray types;
    QCborArray lengths;
    QCborArray examples;
    for (const Field& field : m_fields) {
        types.append(field.type);
        lengths.append(field.arrayLength);
        examples.append(field.arrayLength >= 0
                            ? QStringLiteral("[]")
                            : primitives().value(field.type, QStringLiteral("{}")));
    }
    return {{QStringLiteral("type"), m_type},
            {QStringLiteral("fieldnames"), QCborArray::fromStringList(fieldNames())},
            {QStringLiteral("fieldtypes"), types},
            {QStringLiteral("fieldarraylen"), lengths},
            {QStringLiteral("examples"), examples},
            {QStringLiteral("constnames"), QCborArray::fromStringList(m_constantNames)},
            {QStringLiteral("constvalues"), QCborArray::fromStringList(m_constantValues)}};
}

QCborArray TypeDetails::withNested() const
{
    QCborArray typeDefs{typeDef()};
    const QVector<TypeDetails> others = nested();
    for (const TypeDetails& type : others)
        typeDefs.append(type.typeDef());
    return typeDefs;
}

QString TypeDetails::fullText() const
{
    QString text = m_definition;
    const QVector<TypeDetails> others = nested();
    for (const TypeDetails& type : others) {
        if (type.m_type.contains(u'/'))
            text += QStringLiteral("\n%1\nMSG: %2\n%3")
                        .arg(QString(80, u'='), type.m_type, type.m_definition);
    }
    return text;
}

QVector<TypeDetails> TypeDetails::nested() const
{
    QVector<TypeDetails> types;
    addNested(types);
    return types;
}

void TypeDetails::addNested(QVector<TypeDetails>& types) const
{
    for (const Field& field : m_fields) {
        const bool isSeen = std::any_of(types.cbegin(), types.cend(), [&field](const auto& type) {
            return type.m_type == field.type;
        });
        if (isSeen || primitives().contains(field.type))
            continue;
        const TypeDetails details(*m_definitions, field.type);
        types.append(details);
        details.addNested(types);
    }
}

} // namespace robot::network
