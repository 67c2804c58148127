// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_REPORT_H
#define HOST_CHECK_REPORT_H

#include "host/check/Result.h"

#include <QByteArray>
#include <QString>

namespace host::check {

/// What a person reads at the end: what failed, and the verdict as the last line.
QString summary(const Results& results);

/// For programs.
QByteArray toJson(const Results& results);

/// For the servers that build and test, in the format of JUnit.
QByteArray toJunit(const Results& results);

} // namespace host::check

#endif
