// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_TYPEDETAILS_H
#define ROBOT_NETWORK_TYPEDETAILS_H

#include <QCborArray>
#include <QCborMap>
#include <QString>
#include <QStringList>
#include <QVector>

namespace robot::network {

class TypeDefinitions;

/// One type as rosapi describes it, out of its definition.
class TypeDetails
{
public:
    struct Field
    {
        QString type; ///< of an array, that of its elements
        QString name;
        int arrayLength; ///< -1: no array; 0: any
    };

    /// @p type as @p definitions have it, which outlive the details, or "time" or "duration".
    TypeDetails(const TypeDefinitions& definitions, const QString& type);

    /// False if the robot does not use such a type.
    bool isKnown() const { return !m_definition.isNull(); }

    const QVector<Field>& fields() const { return m_fields; }
    QStringList fieldNames() const;

    /// The rosapi/TypeDef of the type, and after it those of the types of its fields, each once.
    QCborArray withNested() const;

    /// The definition, and below it those of the types of its fields, as gendeps --cat prints them.
    QString fullText() const;

private:
    void readLine(const QString& line);
    QCborMap typeDef() const;
    QVector<TypeDetails> nested() const;
    void addNested(QVector<TypeDetails>& types) const;

    const TypeDefinitions* m_definitions;
    QString m_type;
    QString m_definition;
    QVector<Field> m_fields;
    QStringList m_constantNames;
    QStringList m_constantValues;
};

} // namespace robot::network

#endif
