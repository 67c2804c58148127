// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_RESULTFILE_H
#define HOST_CHECK_RESULTFILE_H

#include "host/check/Result.h"

#include <QString>

#include <optional>

namespace host::check {

/// How a test says to the program that started its process how it ended.
class ResultFile
{
public:
    explicit ResultFile(const QString& name) : m_name(name) {}

    /// Where it says what it is doing.
    QString progressFile() const { return m_name + ".progress"; }

    /// Where it says what it has done with a widget.
    QString journal() const { return m_name + ".actions"; }

    /// Its status and message.
    void write(const Result& result) const;
    /// Nothing where the test did not come to its end.
    std::optional<Result> read() const;

private:
    QString m_name;
};

} // namespace host::check

#endif
