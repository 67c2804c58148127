// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_RECORDING_LINEREADER_H
#define ROBOT_RECORDING_LINEREADER_H

#include "robot/recording/Tokens.h"
#include "robot/simulation/Header.h"

#include <QCoreApplication>

namespace robot::recording {

/// Reads a recording's line word by word. The first thing that is wrong is kept as the reason, and
/// from then on every word reads as 0: a caller reads all it wants and asks once, at the end.
class LineReader
{
    Q_DECLARE_TR_FUNCTIONS(robot::recording::LineReader)

public:
    /// Both must outlive the reader.
    LineReader(const Tokens& tokens, QString* reason);

    bool isBad() const { return m_isBad; }
    /// Words that were not read yet.
    size_t left() const { return m_tokens.size() - m_position; }

    void skip(size_t count);

    /// The next word as a number from @p minimum to @p maximum; @p name is for the reason.
    double number(const QString& name, double minimum, double maximum);

    /// The next word as the number of words to come.
    size_t count(const QString& name);

    /// The next word as a time in units of @p unit, within some 120 years of 0.
    simulation::Time time(const QString& name, simulation::Time unit);

    /// The next @p count words as ranges, each so many @p metres times what is written.
    std::vector<float> ranges(size_t count, double metres);

    void fail(const QString& reason);

private:
    const Tokens& m_tokens;
    QString* m_reason;
    size_t m_position = 0;
    bool m_isBad = false;
};

} // namespace robot::recording

#endif
