// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_ROBOTPROCESS_H
#define QUANDREL_ROBOTPROCESS_H

#include <QProcess>

/// A simulated robot in a process of its own, so that its processor time is not ours.
class RobotProcess
{
public:
    /// Starts at once, on any free port. The same @p seed makes the same world.
    explicit RobotProcess(int seed);
    /// Ends it.
    ~RobotProcess();

    /// Where it listens; empty, with a warning, where it does not start.
    QString address();

private:
    QProcess m_process;
};

#endif
