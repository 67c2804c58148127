// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_TOUR_TOUR_H
#define HOST_TOUR_TOUR_H

#include "host/tour/Operator.h"

#include <QCoreApplication>
#include <QString>

namespace host::workbench {
class Session;
namespace plugin {
class PluginEnvironment;
} // namespace plugin
} // namespace host::workbench

namespace host::tour {

/// Operates the window as a person would, with mouse and keys, through every state of the
/// connection, every tab of the dialog and every dock, and writes a picture of each. Each step
/// waits for what it is to show, so that the pictures show it however busy the machine is.
class Tour
{
    Q_DECLARE_TR_FUNCTIONS(host::tour::Tour)

public:
    /// @p session has one device with a plugin that works; both outlive the tour. @p folder is
    /// where the pictures go, made where it is missing.
    Tour(const QString& folder, workbench::Session& session,
         workbench::plugin::PluginEnvironment& environment);

    /// Prints the pictures' names to the standard output as they are written. False when a step
    /// could not be reached or its picture not be written: the standard error says which and
    /// why. Runs the event loop.
    bool run();
    /// Makes run() end at the step under way.
    void stop() { m_operator.stop(); }

private:
    bool showFailure();

    workbench::Session& m_session;
    workbench::plugin::PluginEnvironment& m_environment;
    Operator m_operator;
};

} // namespace host::tour

#endif
