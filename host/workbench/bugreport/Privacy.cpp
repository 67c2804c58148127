// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/bugreport/Privacy.h"

#include "rosbridge/protocol/Address.h"

#include <QDir>
#include <QJsonDocument>
#include <QRegularExpression>

#include <algorithm>

namespace host::workbench::bugreport {

namespace {

const QString leftOut = QStringLiteral("(address)");
constexpr int shortestHost = 3; // what is shorter would be found within words

/// Not what stands in versions, times and numbers with a point.
const QRegularExpression& addressPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("wss?://[^\\s\"'<>]+"
                       "|\\[[0-9A-Fa-f]*(:[0-9A-Fa-f.]*){2,}(%\\w+)?\\](:\\d+)?"
                       "|(?<![\\w.])\\d{1,3}(\\.\\d{1,3}){3}(:\\d+)?(?![\\w.]*\\d)"));
    return pattern;
}

} // namespace

Privacy::Privacy(const QStringList& addresses)
{
    for (const QString& text : addresses) {
        QString reason;
        const auto address = rosbridge::protocol::Address::parse(text, &reason);
        m_hosts << text;
        if (address)
            m_hosts << address->host;
    }
    m_hosts.erase(std::remove_if(m_hosts.begin(), m_hosts.end(),
                                 [](const QString& host) { return host.size() < shortestHost; }),
                  m_hosts.end());
    m_hosts.removeDuplicates();
    // A long one first: it may contain another.
    std::sort(m_hosts.begin(), m_hosts.end(),
              [](const QString& a, const QString& b) { return a.size() > b.size(); });
}

QString Privacy::clean(const QString& text) const
{
    QString clean = text;
    clean.replace(addressPattern(), leftOut);
    for (const QString& host : m_hosts) {
        const QRegularExpression whole("(?<![\\w.-])" + QRegularExpression::escape(host) +
                                       "(:\\d+)?(?![\\w-])");
        clean.replace(whole, leftOut);
    }
    return clean.replace(QDir::homePath(), "~");
}

QJsonObject Privacy::clean(const QJsonObject& settings) const
{
    static const QRegularExpression isPrivate(
        QStringLiteral("address|history|certificate|password|passwd|secret|token|user"),
        QRegularExpression::CaseInsensitiveOption);
    // As text: an address may stand in any value.
    QJsonObject kept = settings;
    for (const QString& key : settings.keys()) {
        if (key.contains(isPrivate))
            kept.insert(key, QStringLiteral("(left out)"));
    }
    const QByteArray text = clean(QString::fromUtf8(QJsonDocument(kept).toJson())).toUtf8();
    return QJsonDocument::fromJson(text).object();
}

} // namespace host::workbench::bugreport
