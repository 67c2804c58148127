// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_LOGWRITER_H
#define ROBOT_NETWORK_LOGWRITER_H

#include "robot/network/Log.h"
#include "rosbridge/server/RateLimit.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>
#include <QTimer>

namespace robot::network {

/// Where one part of the robot writes about what clients do. However often they do it, there are a
/// few lines a second; how many were left out is said a second later.
class LogWriter
{
    Q_DECLARE_TR_FUNCTIONS(robot::network::LogWriter)

public:
    static constexpr int linesPerSecond = 5; ///< sustained
    static constexpr int lineBurst = 30;     ///< at once, after a pause

    /// @p name is the part of the robot that speaks: base, manipulator or laser. @p log must
    /// outlive the writer.
    LogWriter(Log& log, const QString& name);

    void write(Log::Level level, const QString& text);

private:
    void tellLeftOut();

    Log& m_log;
    QString m_name;
    rosbridge::server::RateLimit m_limit{linesPerSecond, lineBurst};
    QElapsedTimer m_time;
    int m_leftOut = 0;
    QTimer m_tellTimer; // runs while something was left out and is not told
};

} // namespace robot::network

#endif
