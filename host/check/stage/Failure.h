// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_FAILURE_H
#define HOST_CHECK_STAGE_FAILURE_H

#include <QString>

namespace host::check::stage {

/// What ends a test: what the plugin did wrong, in words.
struct Failure
{
    QString message;
};

/// What ends a test that has nothing to look at: why.
struct NotApplicable
{
    QString reason;
};

[[noreturn]] inline void fail(const QString& message)
{
    throw Failure{message};
}

[[noreturn]] inline void skip(const QString& reason)
{
    throw NotApplicable{reason};
}

} // namespace host::check::stage

#endif
