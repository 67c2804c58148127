// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_REQUEST_H
#define ROSBRIDGE_SERVER_REQUEST_H

#include <QCborMap>
#include <QCborValue>
#include <QCoreApplication>
#include <QString>

namespace rosbridge::server {

/// Reads the fields of a client's message, and remembers the first one that is wrong, so that an
/// operation reads all it needs and then looks at error() once.
class Request
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::server::Request)

public:
    /// No text read may be longer than @p textLength characters.
    Request(const QCborMap& message, int textLength);

    QString op() const { return m_op; }

    /// Text or number as the client sent it; undefined if it sent none or an unfit one.
    QCborValue id() const { return m_id; }

    /// A field that must be there and not empty.
    QString text(const char* field);
    /// A field that may be missing or null, which is the empty text.
    QString optionalText(const char* field);
    /// A whole number from 0 to @p maximum; 0 if it is missing or null.
    qint64 optionalCount(const char* field, qint64 maximum);
    /// An object that must be there.
    QCborMap object(const char* field);
    /// Whatever is there; undefined if nothing is.
    QCborValue value(const char* field) const;

    /// Says why the message cannot be obeyed; the first reason stands.
    void fail(const QString& error);

    /// Why the message cannot be obeyed; empty if nothing was found wrong.
    QString error() const { return m_error; }

private:
    QString readText(const char* field);
    void readId();

    QCborMap m_message;
    int m_textLength;
    QString m_error;
    QString m_op;
    QCborValue m_id{QCborValue::Undefined};
};

} // namespace rosbridge::server

#endif
