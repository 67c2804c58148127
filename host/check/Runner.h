// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_RUNNER_H
#define HOST_CHECK_RUNNER_H

#include "host/check/Result.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

namespace host::check::tests {
struct Test;
}

namespace host::check {

class CommandLine;

/// Runs the tests, each in a process of its own. One that crashes, hangs or ends its process is a
/// result like others, and the run goes on.
class Runner
{
public:
    /// Hears of each test before it is run: its name, its place in the order, and how many there
    /// are.
    using OnStart = std::function<void(const QString& name, int place, int count)>;

    /// @p commandLine outlives it.
    Runner(const CommandLine& commandLine, OnStart onStart);

    Results run();

private:
    struct Job
    {
        const tests::Test* test;
        QString widget; ///< empty where the test is about the plugin as a whole
    };

    /// Asks for the widgets; those that the plugin has are left.
    QStringList offeredWidgets();
    /// In order. @p offered are the plugin's widgets.
    QList<Job> jobs(const QStringList& offered) const;
    Result runJob(const Job& job);
    Result runProcess(const Job& job, const QString& reproducedFile);
    /// What the failed @p result of the test with the monkey can be had with: a file, in words.
    QString reproduction(const Job& job, const Result& result);

    const CommandLine& m_commandLine;
    const OnStart m_onStart;
    const QTemporaryDir m_folder;
    QHash<QString, Result> m_offers; // by widget: whether the plugin has it
};

} // namespace host::check

#endif
