// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_RECORDING_H
#define ROBOT_RECORDING_RECORDING_H

#include "robot/simulation/LaserScan.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace robot::recording {

/// The laser scans of a recording: a CARMEN text log or a plain table, told apart by what is in
/// the file. A line that cannot be read is reported and skipped.
struct Recording
{
    Q_DECLARE_TR_FUNCTIONS(robot::recording::Recording)

public:
    /// What a recording may cost. One that costs more is refused.
    struct Limits
    {
        qint64 fileSize = qint64{512} * 1024 * 1024; ///< bytes
        qint64 memory = qint64{512} * 1024 * 1024;   ///< bytes of scans
        qint64 lineLength = qint64{1024} * 1024;     ///< bytes; a longer line is a bad one
    };

    /// So many bad lines are described; the rest is only counted.
    static constexpr int maximumProblems = 100;

    /// In the file's order. The stamps are the recording's own and may jump either way.
    std::vector<simulation::LaserScan> scans;
    QStringList problems; ///< "FILE:LINE: reason", for the user
    int badLines = 0;

    /// Reads a file. Nothing, and in @p error (may be null) the file's name and the reason, if it
    /// cannot be read, exceeds a limit or holds no scan.
    static std::optional<Recording> read(const QString& file, QString* error);
    static std::optional<Recording> read(const QString& file, const Limits& limits, QString* error);

    /// The same of any device that is open; @p name stands for the file in what is reported.
    static std::optional<Recording> read(QIODevice& device, const QString& name,
                                         const Limits& limits, QString* error);
};

} // namespace robot::recording

#endif
