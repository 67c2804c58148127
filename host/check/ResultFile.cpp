// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/ResultFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace host::check {

void ResultFile::write(const Result& result) const
{
    QFile file(m_name);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(QJsonDocument(QJsonObject{{"status", static_cast<int>(result.status)},
                                         {"message", result.message}})
                   .toJson());
}

std::optional<Result> ResultFile::read() const
{
    QFile file(m_name);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    if (object.isEmpty())
        return std::nullopt;
    Result result;
    result.status = static_cast<Status>(object.value("status").toInt());
    result.message = object.value("message").toString();
    return result;
}

} // namespace host::check
