#include "host/workbench/tour/Tour.h"

#include "host/workbench/plugin/PluginLoader.h"
#include "host/workbench/tour/PluginTour.h"
#include "host/workbench/tour/WorkbenchTour.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

namespace host::workbench::tour {

Tour::Tour(const QString& folder, window::Window& window, const plugin::PluginLoader& plugin,
           plugin::PluginEnvironment& environment)
    : m_window(window),
      m_plugin(plugin),
      m_environment(environment),
      m_operator(folder, window, window.views().first()->device())
{
}

bool Tour::run()
{
    return m_operator.start() && PluginTour(m_operator).run() &&
           WorkbenchTour(m_operator, m_plugin, m_environment).run() && showFailure();
}

bool Tour::showFailure()
{
    m_operator.begin(tr("showing a missing plugin"));
    const plugin::PluginLoader missing(QCoreApplication::applicationDirPath() +
                                       "/libno_such_plugin.so");
    window::Window window(missing, m_environment);
    window.add(m_window.views().first()->device(), QString());
    if (window.failures().isEmpty())
        return m_operator.fail(tr("the plugin was found"));
    m_window.hide();
    return m_operator.show(window) && m_operator.takePicture(window, "plugin-missing");
}

} // namespace host::workbench::tour
