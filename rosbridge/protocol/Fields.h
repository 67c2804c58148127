// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_PROTOCOL_FIELDS_H
#define ROSBRIDGE_PROTOCOL_FIELDS_H

#include <QByteArray>
#include <QCborMap>
#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rosbridge::protocol {

/// Reads the fields of a ROS message of any origin, and remembers the first one that is wrong, so
/// that a reader takes all it needs and then looks at the error once. What cannot be read is 0 or
/// empty. Fields that nobody reads do not matter.
class Fields
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::protocol::Fields)

public:
    /// Sets @p error, which must outlive the reader and be empty, to what is wrong.
    Fields(const QCborMap& message, QString* error);

    bool isGood() const { return m_error->isEmpty(); }
    bool has(const char* name) const;

    /// A number; null, which JSON has in its place, is NaN.
    double number(const char* name);
    /// The same as a float; what is beyond a float's range is infinite.
    float floatNumber(const char* name);
    /// A whole number from @p minimum to @p maximum.
    qint64 integer(const char* name, qint64 minimum, qint64 maximum);
    bool truth(const char* name);
    QString text(const char* name);
    /// At most @p most of them.
    QStringList texts(const char* name, int most);
    QVector<float> floats(const char* name);
    /// A uint8[]: bytes in CBOR, base64 text in JSON.
    QByteArray bytes(const char* name);
    /// The fields of an object within, named "outer.inner" in the error.
    Fields object(const char* name);

    /// Says why the message is refused; the first reason stands.
    void fail(const char* name, const QString& why);

private:
    Fields(const QCborMap& message, const QString& path, QString* error);

    QCborValue value(const char* name);

    QCborMap m_message;
    QString m_path; // with the dot at its end
    QString* m_error;
};

} // namespace rosbridge::protocol

#endif
