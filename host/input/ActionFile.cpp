// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/input/ActionFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace host::input {

ActionFile::ActionFile(const QString& name, const QString& widget) : m_file(name)
{
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        m_file.write(QJsonDocument(QJsonObject{{"widget", widget}}).toJson(QJsonDocument::Compact) +
                     '\n');
}

void ActionFile::add(const Action& action)
{
    m_file.write(QJsonDocument(QJsonArray{action.verb, action.target, action.value})
                     .toJson(QJsonDocument::Compact) +
                 '\n');
}

std::optional<ActionFile::Content> ActionFile::read(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    Content content;
    content.widget = QJsonDocument::fromJson(file.readLine()).object().value("widget").toString();
    if (content.widget.isEmpty())
        return std::nullopt;
    while (!file.atEnd()) {
        const QJsonArray action = QJsonDocument::fromJson(file.readLine()).array();
        if (action.size() == 3)
            content.actions.push_back(
                {action.at(0).toString(), action.at(1).toString(), action.at(2).toString()});
    }
    return content;
}

} // namespace host::input
