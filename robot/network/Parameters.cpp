// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Parameters.h"

#include "rosbridge/protocol/CanonicalName.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace robot::network {

namespace {

/// JSON of any value: QJsonDocument knows only arrays and objects.
QString toJson(const QCborValue& value)
{
    const QByteArray array =
        QJsonDocument(QJsonArray{value.toJsonValue()}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

/// rosapi takes a default that is not JSON for plain text, and none for null.
QString defaultAsJson(const QString& text)
{
    if (text.isEmpty())
        return QStringLiteral("null");
    const QJsonDocument document = QJsonDocument::fromJson('[' + text.toUtf8() + ']');
    if (document.isArray() && document.array().size() == 1)
        return toJson(QCborValue::fromJsonValue(document.array().first()));
    return toJson(text);
}

} // namespace

QStringList Parameters::names() const
{
    QStringList names;
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value)
        names.append(value.key().toString());
    return names;
}

QString Parameters::json(const QString& name, const QString& fallback) const
{
    const QCborValue value = m_values.value(rosbridge::protocol::canonicalName(name));
    return value.isUndefined() ? defaultAsJson(fallback) : toJson(value);
}

} // namespace robot::network
