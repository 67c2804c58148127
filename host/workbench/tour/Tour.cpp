#include "host/workbench/tour/Tour.h"

#include "host/workbench/DeviceView.h"
#include "host/workbench/PluginLoader.h"
#include "host/workbench/Window.h"
#include "host/workbench/tour/PluginTour.h"
#include "host/workbench/tour/WorkbenchTour.h"

namespace host::workbench {

Tour::Tour(const QString& folder, Window& window, const PluginLoader& plugin, Services& services)
    : m_window(window),
      m_plugin(plugin),
      m_services(services),
      m_operator(folder, window, window.views().first()->device())
{
}

bool Tour::run()
{
    return m_operator.start() && PluginTour(m_operator).run() &&
           WorkbenchTour(m_operator, m_plugin, m_services).run() && showFailure();
}

bool Tour::showFailure()
{
    m_operator.begin(tr("showing a missing plugin"));
    const PluginLoader missing(QCoreApplication::applicationDirPath() + "/libno_such_plugin.so");
    Window window(missing, m_services);
    window.add(m_window.views().first()->device(), QString());
    if (window.failures().isEmpty())
        return m_operator.fail(tr("the plugin was found"));
    m_window.hide();
    return m_operator.show(window) && m_operator.takePicture(window, "plugin-missing");
}

} // namespace host::workbench
