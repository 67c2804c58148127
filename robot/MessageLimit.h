// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_MESSAGELIMIT_H
#define ROBOT_MESSAGELIMIT_H

#include <QtGlobal>

#include <chrono>

namespace robot {

/// For as long as it lives, a flood of Qt's messages, such as those about what a peer sends, takes
/// no more than 1 MB of the standard error: long ones are cut, what is beyond the limit is left out
/// and counted, and the count is told at the end of the flood. One per process.
class MessageLimit
{
public:
    static constexpr qint64 mostBytes = 1000000; ///< all that is written in a flood

    /// A flood is over when no message has come for as long as @p quiet.
    explicit MessageLimit(std::chrono::milliseconds quiet = std::chrono::minutes(1));
    /// Tells the count of what was left out since.
    ~MessageLimit();
    MessageLimit(const MessageLimit&) = delete;
    MessageLimit& operator=(const MessageLimit&) = delete;
};

} // namespace robot

#endif
