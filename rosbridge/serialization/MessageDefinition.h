// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERIALIZATION_MESSAGEDEFINITION_H
#define ROSBRIDGE_SERIALIZATION_MESSAGEDEFINITION_H

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace rosbridge::serialization {

/// What a ROS 1 message consists of: its fields, and those of the messages within it.
class MessageDefinition
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::serialization::MessageDefinition)

public:
    enum class Kind
    {
        Bool,
        Int8,
        UInt8,
        Int16,
        UInt16,
        Int32,
        UInt32,
        Int64,
        UInt64,
        Float32,
        Float64,
        String,
        Time,
        Duration,
        Message,
    };

    static constexpr int noArray = -1;
    static constexpr int anyLength = 0;

    struct Field
    {
        QString name;
        QString type; ///< of an array, that of its elements: "float32", "geometry_msgs/Point"
        Kind kind;
        int arrayLength;        ///< of a fixed one, or noArray or anyLength
        std::size_t message{0}; ///< where Kind::Message: the index of its type
    };

    struct Type
    {
        QString name; ///< as "geometry_msgs/Point"
        std::vector<Field> fields;
        QStringList constants; ///< as "byte DEBUG=1"
        qint64 leastSize{0};   ///< bytes; no message of this type is shorter
    };

    /// Reads the full text of a definition, as rosbag keeps it and gendeps --cat prints it: below
    /// the fields of @p type those of all other types that it needs, each after a line of "=" and
    /// one with "MSG: " and its name. Nothing if something is wrong with it, and @p error (may be
    /// null) says what.
    static std::optional<MessageDefinition> parse(const QString& type, const QString& fullText,
                                                  QString* error);

    /// The other types that one definition alone, without those that it needs, names, each once.
    /// Empty as well if something is wrong with it.
    static QStringList typesIn(const QString& type, const QString& text);

    /// By which ROS compares definitions: their MD5 sum, in hexadecimal digits.
    QByteArray checksum() const { return checksum(root()); }

    /// The message's own type.
    const Type& root() const { return m_types.front(); }
    /// That of a field of Kind::Message.
    const Type& type(const Field& field) const { return m_types[field.message]; }
    /// The message's own type, and then all that it needs.
    const std::vector<Type>& types() const { return m_types; }

    /// Bytes of a value of @p kind, at least where its length is not fixed; not of Kind::Message.
    static int size(Kind kind);

private:
    static bool readLine(Type& type, const QString& line, QString* why);
    bool resolve(const QHash<QString, std::size_t>& indices, QString* why);
    bool measure(std::size_t index, int depth, std::vector<int>& heights, QString* why);
    QByteArray checksum(const Type& type) const;

    std::vector<Type> m_types;
};

} // namespace rosbridge::serialization

#endif
