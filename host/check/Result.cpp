// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/Result.h"

#include <algorithm>

namespace host::check {

QString inWords(Status status)
{
    switch (status) {
    case Status::Passed:
        return QStringLiteral("passed");
    case Status::Failed:
        return QStringLiteral("failed");
    case Status::Crashed:
        return QStringLiteral("crashed");
    case Status::TimedOut:
        return QStringLiteral("timed out");
    case Status::Skipped:
        break;
    }
    return QStringLiteral("skipped");
}

QString inWords(Results::Verdict verdict)
{
    switch (verdict) {
    case Results::Verdict::Passed:
        return inWords(Status::Passed);
    case Results::Verdict::Failed:
        return inWords(Status::Failed);
    case Results::Verdict::Crashed:
        return inWords(Status::Crashed);
    case Results::Verdict::TimedOut:
        return inWords(Status::TimedOut);
    case Results::Verdict::NothingRan:
        break;
    }
    return QStringLiteral("nothing ran");
}

QString Result::name() const
{
    return widget.isEmpty() ? test : QStringLiteral("%1 (%2)").arg(test, widget);
}

int Results::count(Status status) const
{
    return static_cast<int>(std::count_if(
        tests.begin(), tests.end(), [&](const Result& result) { return result.status == status; }));
}

Results::Verdict Results::verdict() const
{
    if (count(Status::Crashed) > 0)
        return Verdict::Crashed;
    if (count(Status::TimedOut) > 0)
        return Verdict::TimedOut;
    if (count(Status::Failed) > 0)
        return Verdict::Failed;
    return count(Status::Passed) > 0 ? Verdict::Passed : Verdict::NothingRan;
}

} // namespace host::check
