// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "RobotProcess.h"

#include <QUrl>

namespace {

constexpr int startPatience = 30000;

} // namespace

RobotProcess::RobotProcess(int seed)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(ROBOT_FILE, {"--port", "0", "--seed", QString::number(seed)});
}

RobotProcess::~RobotProcess()
{
    m_process.terminate();
    if (!m_process.waitForFinished(startPatience))
        m_process.kill();
}

QString RobotProcess::address()
{
    const QString announcement = QStringLiteral("listening on ");
    while (m_process.canReadLine() || m_process.waitForReadyRead(startPatience)) {
        while (m_process.canReadLine()) {
            const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
            if (line.startsWith(announcement))
                return QUrl(line.mid(announcement.size())).authority();
        }
    }
    qWarning("%s does not start: %s", ROBOT_FILE, qPrintable(m_process.errorString()));
    return {};
}
