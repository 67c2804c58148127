// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_PROGRESS_H
#define HOST_CHECK_STAGE_PROGRESS_H

#include <QString>

namespace host::check::stage {

/// What a test is doing, in memory that it shares with a file: whoever started its process reads
/// there what was going on when it crashed or was ended.
class Progress
{
public:
    /// From now on, for the whole process.
    static void keepIn(const QString& file);

    /// Quick enough for each of a million steps. Nothing is kept where no file is.
    static void note(const QString& words);

    /// Empty where nothing was noted.
    static QString noted(const QString& file);
};

} // namespace host::check::stage

#endif
