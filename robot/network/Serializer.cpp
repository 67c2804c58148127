// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Serializer.h"

#include "robot/network/TypeDetails.h"
#include "rosbridge/serialization/MessageWriter.h"

#include <QDebug>

namespace robot::network {

QByteArray Serializer::serialize(const QString& type, const QCborMap& message)
{
    QString error;
    auto known = m_types.constFind(type);
    if (known == m_types.cend()) {
        const QString text = TypeDetails(m_definitions, type).fullText();
        known = m_types.insert(type, MessageDefinition::parse(type, text, &error));
    }
    std::optional<QByteArray> bytes;
    if (known->has_value())
        bytes = rosbridge::serialization::MessageWriter::write(**known, message, &error);
    if (!bytes)
        qWarning() << "cannot serialize a message of" << type << error;
    return bytes.value_or(QByteArray());
}

} // namespace robot::network
