// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "ServerProcess.h"

#include <QUrl>

namespace {

constexpr int startPatience = 30000;

} // namespace

ServerProcess::ServerProcess(const QString& program, const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program, arguments);
}

ServerProcess::~ServerProcess()
{
    m_process.terminate();
    if (!m_process.waitForFinished(startPatience))
        m_process.kill();
}

QString ServerProcess::address()
{
    const QString announcement = QStringLiteral("listening on ");
    while (m_process.canReadLine() || m_process.waitForReadyRead(startPatience)) {
        while (m_process.canReadLine()) {
            const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
            if (line.startsWith(announcement))
                return QUrl(line.mid(announcement.size())).authority();
        }
    }
    qWarning("%s does not start: %s", qPrintable(m_process.program()),
             qPrintable(m_process.errorString()));
    return {};
}
