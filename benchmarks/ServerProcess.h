// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_SERVERPROCESS_H
#define QUANDREL_SERVERPROCESS_H

#include <QProcess>

/// A simulated robot, or another program that announces where it listens as the robot does, in a
/// process of its own, so that its processor time is not ours.
class ServerProcess
{
public:
    /// Starts at once.
    ServerProcess(const QString& program, const QStringList& arguments);
    /// Ends it.
    ~ServerProcess();

    /// Where it listens; empty, with a warning, where it does not start.
    QString address();

    qint64 id() const { return m_process.processId(); }

private:
    QProcess m_process;
};

#endif
