// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/serialization/StandardMessages.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/serialization/MessageDefinition.h"

#include <QFile>
#include <QStringList>

/// A linker leaves resources out that nothing calls into; Qt wants that outside of namespaces.
static void initializeStandardMessages()
{
    Q_INIT_RESOURCE(messages);
}

namespace rosbridge::serialization {

namespace {

/// Of one type, without those it needs.
QString definitionOf(const QString& type)
{
    QFile file(QStringLiteral(":/rosbridge/messages/") + type);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// In the order in which ROS prints them.
void addNeeded(const QString& type, const QString& text, QStringList& types)
{
    const QStringList needed = MessageDefinition::typesIn(type, text);
    for (const QString& each : needed) {
        if (types.contains(each))
            continue;
        types.append(each);
        addNeeded(each, definitionOf(each), types);
    }
}

} // namespace

QString standardDefinition(const QString& type)
{
    initializeStandardMessages();
    const QString name = protocol::canonicalType(type);
    QString text = definitionOf(name);
    QStringList needed;
    addNeeded(name, text, needed);
    for (const QString& each : std::as_const(needed))
        text +=
            QStringLiteral("\n%1\nMSG: %2\n%3").arg(QString(80, u'='), each, definitionOf(each));
    if (!text.isEmpty() && !text.endsWith(u'\n'))
        text += u'\n'; // which not every file has
    return text;
}

} // namespace rosbridge::serialization
