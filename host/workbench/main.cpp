#include "host/device/Device.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/Options.h"
#include "host/workbench/PluginLoader.h"
#include "host/workbench/Services.h"
#include "host/workbench/Tour.h"
#include "host/workbench/Window.h"
#include "robot/TerminationSignals.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <optional>

using namespace host::workbench;

namespace {

int refuse(const QString& text)
{
    QTextStream(stderr) << text << '\n';
    return 1;
}

int show(Window& window)
{
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received,
                     [] { QCoreApplication::exit(0); });
    window.show();
    return QApplication::exec();
}

int tour(const QString& folder, Window& window, host::device::Device& device, Services& services,
         const QString& robotAddress)
{
    const PluginLoader missing(QCoreApplication::applicationDirPath() + "/libno_such_plugin.so");
    Window failureWindow(missing, device, services, robotAddress);
    Tour tour(folder, window, failureWindow, device);
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received, [&tour] { tour.stop(); });
    QTimer::singleShot(0, [&tour] { QCoreApplication::exit(tour.run() ? 0 : 1); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    // Qt ends a program that finds no display by a crash: the tour needs none, nor does --help.
    const bool hasDisplay = !qEnvironmentVariableIsEmpty("DISPLAY") ||
                            !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                            !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (!hasDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");

    // Qt keeps its own options out of sight, and --plugin is one of them: it gets none of ours.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    argc = 1;
    QApplication application(argc, argv);
    QApplication::setApplicationName("device-workbench");
    QApplication::setApplicationVersion(WORKBENCH_VERSION);

    Services services;
    services.language().use(Language::system());
    QString error;
    const std::optional<Options> options = Options::parse(arguments, &error);
    if (!options)
        return refuse(error);
    if (!options->message.isEmpty()) {
        QTextStream(stdout) << options->message;
        return 0;
    }
    const bool isTour = !options->tourFolder.isEmpty();
    if (!hasDisplay && !isTour)
        return refuse(QCoreApplication::translate(
            "main", "There is no display: set DISPLAY or WAYLAND_DISPLAY, or let --tour DIR "
                    "write pictures of the window."));

    std::optional<EmbeddedRobot> robot;
    QStringList badLines; // of the recording
    if (options->robot) {
        robot.emplace();
        const robot::LaserLogOptions& laserLog = options->laserLog;
        if (!laserLog.file().isEmpty() &&
            !robot->setLaserLog(laserLog.file(), laserLog.rate(), &badLines, &error))
            return refuse(error);
    }
    for (const QString& line : std::as_const(badLines))
        QTextStream(stderr) << line << '\n';
    const QString robotAddress = robot ? robot->address() : QString();

    // A tour starts from fresh settings and leaves a person's alone.
    const QTemporaryDir tourSettings;
    const QString settings =
        isTour ? tourSettings.path()
               : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    services.language().restore(settings);
    if (!options->language.isEmpty())
        services.language().use(options->language);

    const PluginLoader plugin(options->pluginFile.isEmpty() ? PluginLoader::defaultFile()
                                                            : options->pluginFile);
    host::device::Device device(options->deviceName, settings, services);
    if (!robotAddress.isEmpty())
        device.setDefaultAddress(robotAddress);
    if (options->address)
        device.overrideAddress(options->address->toString());

    Window window(plugin, device, services, robotAddress);
    if (robot && !robot->error().isEmpty())
        window.notify(robot->error());
    if (!badLines.isEmpty())
        window.notify(badLines.first());
    if (badLines.size() > 1) {
        window.notify(QCoreApplication::translate(
            "main", "The standard error names further lines that cannot be read."));
    }
    return isTour ? tour(options->tourFolder, window, device, services, robotAddress)
                  : show(window);
}
