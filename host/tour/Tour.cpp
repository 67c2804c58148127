// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/tour/Tour.h"

#include "host/tour/PluginTour.h"
#include "host/tour/WorkbenchTour.h"
#include "host/workbench/Session.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

namespace host::tour {

Tour::Tour(const QString& folder, workbench::Session& session,
           workbench::plugin::PluginEnvironment& environment)
    : m_session(session),
      m_environment(environment),
      m_operator(folder, session.window(), session.window().views().first()->device())
{
}

bool Tour::run()
{
    return m_operator.start() && PluginTour(m_operator).run() &&
           WorkbenchTour(m_operator, m_session.plugin(), m_environment).run() && showFailure();
}

bool Tour::showFailure()
{
    m_operator.begin(tr("showing a missing plugin"));
    const workbench::plugin::PluginLoader missing(QCoreApplication::applicationDirPath() +
                                                  "/libno_such_plugin.so");
    workbench::window::Window window(missing, m_environment);
    window.add(m_operator.device(), QString());
    if (window.failures().isEmpty())
        return m_operator.fail(tr("the plugin was found"));
    m_session.window().hide();
    return m_operator.show(window) && m_operator.takePicture(window, "plugin-missing");
}

} // namespace host::tour
