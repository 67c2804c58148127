// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/Fields.h"

#include "rosbridge/protocol/Codec.h"

#include <QCborArray>

#include <cmath>
#include <limits>
#include <utility>

namespace rosbridge::protocol {

Fields::Fields(const QCborMap& message, QString* error) : Fields(message, QString(), error) {}

Fields::Fields(const QCborMap& message, const QString& path, QString* error)
    : m_message(message),
      m_path(path),
      m_error(error)
{
}

bool Fields::has(const char* name) const
{
    return m_message.contains(QLatin1String(name));
}

double Fields::number(const char* name)
{
    const QCborValue found = value(name);
    if (found.isNull())
        return std::numeric_limits<double>::quiet_NaN();
    if (found.isInteger() || found.isDouble())
        return found.toDouble();
    fail(name, tr("is %1, not a number").arg(kindOf(found)));
    return 0.0;
}

float Fields::floatNumber(const char* name)
{
    return toFloat(number(name));
}

qint64 Fields::integer(const char* name, qint64 minimum, qint64 maximum)
{
    const double number = this->number(name);
    // A whole number may come as a double; a count that is no number at all is a fault here.
    if (!(number >= static_cast<double>(minimum) && number <= static_cast<double>(maximum)) ||
        std::trunc(number) != number) {
        fail(name, tr("is %1, not a whole number from %2 to %3")
                       .arg(QString::number(number))
                       .arg(minimum)
                       .arg(maximum));
        return 0;
    }
    return static_cast<qint64>(number);
}

bool Fields::truth(const char* name)
{
    const QCborValue found = value(name);
    if (!found.isBool())
        fail(name, tr("is %1, not true or false").arg(kindOf(found)));
    return found.toBool();
}

QString Fields::text(const char* name)
{
    const QCborValue found = value(name);
    if (!found.isString())
        fail(name, tr("is %1, not text").arg(kindOf(found)));
    return found.toString();
}

QStringList Fields::texts(const char* name, int most)
{
    const QCborValue found = value(name);
    if (!found.isArray())
        fail(name, tr("is %1, not an array of texts").arg(kindOf(found)));
    QStringList texts;
    const QCborArray array = found.toArray();
    if (array.size() > most) {
        fail(name, tr("has %1 elements; at most %2 are accepted").arg(array.size()).arg(most));
        return texts;
    }
    for (const QCborValue element : array) {
        if (!element.isString())
            fail(name, tr("has %1 as element %2, not text").arg(kindOf(element)).arg(texts.size()));
        texts.append(element.toString());
    }
    return texts;
}

QVector<float> Fields::floats(const char* name)
{
    QString why;
    const auto floats = toFloats(value(name), &why);
    if (!floats)
        fail(name, tr("cannot be read: %1").arg(why));
    return floats.value_or(QVector<float>());
}

QByteArray Fields::bytes(const char* name)
{
    const QCborValue found = value(name);
    if (found.isByteArray())
        return found.toByteArray();
    if (!found.isString()) {
        fail(name, tr("is %1, not bytes").arg(kindOf(found)));
        return {};
    }
    auto decoded = QByteArray::fromBase64Encoding(found.toString().toLatin1(),
                                                  QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        fail(name, tr("is text, but not base64"));
    return std::move(decoded.decoded);
}

Fields Fields::object(const char* name)
{
    const QCborValue found = value(name);
    if (!found.isMap())
        fail(name, tr("is %1, not an object").arg(kindOf(found)));
    const QLatin1String latin1Name(name);
    QString path; // of every object of every frame, however many a message has
    path.reserve(m_path.size() + latin1Name.size() + 1);
    path.append(m_path).append(latin1Name).append(QLatin1Char('.'));
    return {found.toMap(), path, m_error};
}

void Fields::fail(const char* name, const QString& why)
{
    if (isGood())
        *m_error = tr("the field \"%1\" %2").arg(m_path + QLatin1String(name), why);
}

QCborValue Fields::value(const char* name)
{
    QCborValue found = m_message.value(QLatin1String(name));
    if (found.isUndefined())
        fail(name, tr("is missing"));
    return found;
}

} // namespace rosbridge::protocol
