// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_STAGE_H
#define HOST_WORKBENCH_SCRIPT_STAGE_H

#include <QString>
#include <QStringList>

namespace host::workbench::window {
class Window;
} // namespace host::workbench::window

namespace host::workbench::script {

/// Where a script plays: the program's window, which the script can have opened anew.
class Stage
{
public:
    virtual ~Stage() = default;

    /// Of the latest open(); there is one before a script begins.
    virtual window::Window& window() = 0;

    /// Closes the window, if there is one, and opens another one, with @p options beside those of
    /// the command line. Returns the problem, after which there may be no window.
    virtual QString open(const QStringList& options) = 0;
};

} // namespace host::workbench::script

#endif
