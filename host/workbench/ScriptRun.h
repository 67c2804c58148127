// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPTRUN_H
#define HOST_WORKBENCH_SCRIPTRUN_H

#include "host/workbench/script/Stage.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace host::workbench {

class Application;
class Options;
class Session;

/// A script in place of a person: the program shows its window, has the script work it, and ends.
/// Settings that are stored are neither read nor changed.
class ScriptRun : public script::Stage
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::ScriptRun)

public:
    /// @p options name a script. Both outlive this.
    ScriptRun(const Options& options, Application& application);
    ~ScriptRun() override;

    /// Gives the exit status: 0 where all that the script expects came, 1 where it did not, 2 where
    /// the script is wrong. The standard error says why.
    int run();

    window::Window& window() override;
    QString open(const QStringList& options) override;

private:
    std::optional<QString> read() const;
    static QString write(const QString& file, const QByteArray& content);

    const Options& m_options;
    Application& m_application;
    const QTemporaryDir m_settings;
    std::unique_ptr<Session> m_session;
};

} // namespace host::workbench

#endif
