// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_EXPECTCOMMANDS_H
#define HOST_WORKBENCH_SCRIPT_EXPECTCOMMANDS_H

#include "host/workbench/script/Command.h"

#include <QCoreApplication>

#include <memory>

namespace host::device::trace {
struct PluginCall;
}

namespace host::workbench::script {

/// What must come to be: on the screen, in the variables, or among the calls since the statement
/// that acted last.
class ExpectCommands
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::script::ExpectCommands)

public:
    static Commands all();

    /// What is expected of the placeholder @p name in place of @p value; empty if that is fine.
    static QString expected(const QString& name, const QString& value);

private:
    using IsMeant = std::function<bool(const device::trace::PluginCall& call)>;

    static Progress text(const Scene& scene, const Arguments& arguments);
    static Progress control(const Scene& scene, const Arguments& arguments);
    static Progress variable(const Scene& scene, const Arguments& arguments);
    static Progress write(const Scene& scene, const Arguments& arguments);
    static Progress call(const Scene& scene, const Arguments& arguments);
    static Progress find(const Scene& scene, const IsMeant& isNear, const IsMeant& isMeant);
    static QString inWords(const device::trace::PluginCall& call);
};

} // namespace host::workbench::script

#endif
