// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/Request.h"

#include <cmath>

namespace rosbridge::server {

Request::Request(const QCborMap& message, int textLength)
    : m_message(message),
      m_textLength(textLength),
      m_op(text("op"))
{
    readId();
}

QString Request::text(const char* field)
{
    QString text = optionalText(field);
    if (text.isEmpty())
        fail(tr("%1 is required and must not be empty").arg(QLatin1String(field)));
    return text;
}

QString Request::optionalText(const char* field)
{
    const QCborValue found = value(field);
    if (found.isUndefined() || found.isNull())
        return QString();
    return readText(field);
}

qint64 Request::optionalCount(const char* field, qint64 maximum)
{
    const QCborValue found = value(field);
    if (found.isUndefined() || found.isNull())
        return 0;
    const double number = found.toDouble(-1.0);
    if ((!found.isInteger() && !found.isDouble()) || !(number >= 0.0) ||
        number > static_cast<double>(maximum) || number != std::floor(number)) {
        fail(tr("%1 must be a whole number from 0 to %2").arg(QLatin1String(field)).arg(maximum));
        return 0;
    }
    return static_cast<qint64>(number);
}

QCborMap Request::object(const char* field)
{
    const QCborValue found = value(field);
    if (!found.isMap())
        fail(tr("%1 must be an object").arg(QLatin1String(field)));
    return found.toMap();
}

QCborValue Request::value(const char* field) const
{
    return m_message.value(QLatin1String(field));
}

QString Request::readText(const char* field)
{
    const QCborValue found = value(field);
    if (!found.isString()) {
        fail(tr("%1 must be text").arg(QLatin1String(field)));
        return QString();
    }
    QString text = found.toString();
    if (text.size() > m_textLength) {
        fail(tr("%1 is longer than %2 characters").arg(QLatin1String(field)).arg(m_textLength));
        return QString();
    }
    return text;
}

void Request::readId()
{
    const QCborValue id = value("id");
    if (id.isUndefined() || id.isNull())
        return;
    // JSON could not repeat a number that is not finite.
    if (id.isInteger() || (id.isDouble() && std::isfinite(id.toDouble())) ||
        (id.isString() && id.toString().size() <= m_textLength))
        m_id = id;
    else
        fail(tr("id must be a finite number, or text of at most %1 characters").arg(m_textLength));
}

void Request::fail(const QString& error)
{
    if (m_error.isEmpty())
        m_error = error;
}

} // namespace rosbridge::server
