// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_RESULT_H
#define HOST_CHECK_RESULT_H

#include <QList>
#include <QString>

namespace host::check {

enum class Status
{
    Passed,
    Failed,
    Crashed,
    TimedOut,
    Skipped
};

/// As people and programs read it: "timed out".
QString inWords(Status status);

/// How one test ended, with one of the plugin's widgets or with the plugin as a whole.
struct Result
{
    QString test;
    int level = 0;
    QString widget; ///< empty where the test is about the plugin as a whole
    Status status = Status::Passed;
    QString message; ///< what the plugin did wrong, or why the test was skipped
    double seconds = 0;

    /// The test, and the widget where there is one: "writes-once (dialog)".
    QString name() const;
};

/// All results of a run.
struct Results
{
    /// What the program ends with, and what stands above all in a report.
    enum class Verdict
    {
        Passed = 0,
        Failed = 1,
        Crashed = 3,
        TimedOut = 4,
        NothingRan = 5
    };

    QString plugin; ///< the file
    quint32 seed = 0;
    int level = 0;
    QList<Result> tests;

    int count(Status status) const;
    /// The worst that happened: a crash, a time-out, a failure.
    Verdict verdict() const;
};

QString inWords(Results::Verdict verdict);

} // namespace host::check

#endif
