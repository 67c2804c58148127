#include "host/device/Device.h"
#include "host/workbench/EmbeddedRobot.h"
#include "host/workbench/Options.h"
#include "host/workbench/plugin/PluginEnvironment.h"
#include "host/workbench/plugin/PluginLoader.h"
#include "host/workbench/tour/Tour.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/WheelGuard.h"
#include "host/workbench/window/Window.h"
#include "robot/TerminationSignals.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <optional>
#include <vector>

using namespace host::workbench;

namespace {

int refuse(const QString& text)
{
    QTextStream(stderr) << text << '\n';
    return 1;
}

/// One device of the workbench, and its simulated robot unless it does without.
struct Station
{
    std::optional<EmbeddedRobot> robot;
    std::optional<host::device::Device> device;
};

int show(window::Window& window)
{
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received, &window, [&window] {
        window.close(); // which keeps the places of its docks
        QCoreApplication::exit(0);
    });
    window.show();
    return QApplication::exec();
}

int take(tour::Tour& tour)
{
    const robot::TerminationSignals termination;
    QObject::connect(&termination, &robot::TerminationSignals::received, [&tour] { tour.stop(); });
    QTimer::singleShot(0, [&tour] { QCoreApplication::exit(tour.run() ? 0 : 1); });
    return QApplication::exec();
}

/// Where the system keeps what a program would like to find again, but can do without.
QString stateFolder()
{
    const QString set = qEnvironmentVariable("XDG_STATE_HOME");
    const QString folder = QDir::isAbsolutePath(set) ? set : QDir::homePath() + "/.local/state";
    return folder + '/' + QCoreApplication::applicationName();
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
    const double scale = Options::scale(arguments);
    if (scale > 1)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // icons would be coarse otherwise
#endif
    argc = 1;
    QApplication application(argc, argv);
    QApplication::setApplicationName("device-workbench");
    QApplication::setApplicationVersion(WORKBENCH_VERSION);

    const window::WheelGuard wheelGuard;
    host::workbench::plugin::PluginEnvironment environment;
    environment.language().use(preferences::Language::system());
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

    std::vector<Station> stations(options->devices.size());
    QStringList badLines; // of the recording, the same for each robot
    const std::size_t robots = options->robot ? stations.size() : 0;
    for (std::size_t i = 0; i < robots; ++i) {
        const auto port = static_cast<quint16>(rosbridge::protocol::Address::defaultPort + i);
        EmbeddedRobot& robot = stations[i].robot.emplace(port, static_cast<quint32>(i + 1));
        const robot::LaserLogOptions& laserLog = options->laserLog;
        if (!laserLog.file().isEmpty() &&
            !robot.setLaserLog(laserLog.file(), laserLog.rate(), &badLines, &error))
            return refuse(error);
    }
    for (const QString& line : std::as_const(badLines))
        QTextStream(stderr) << line << '\n';

    // A tour starts from fresh settings and leaves a person's alone.
    const QTemporaryDir tourSettings;
    const QString settings =
        isTour ? tourSettings.path()
               : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    environment.language().restore(settings);
    if (!options->language.isEmpty())
        environment.language().use(options->language);
    environment.appearance().restore(settings);
    if (!options->appearance.isEmpty())
        environment.appearance().use(options->appearance);

    const host::workbench::plugin::PluginLoader plugin(
        options->pluginFile.isEmpty() ? host::workbench::plugin::PluginLoader::defaultFile()
                                      : options->pluginFile);
    window::Window window(plugin, environment);
    for (std::size_t i = 0; i < stations.size(); ++i) {
        auto& [robot, device] = stations[i];
        const auto index = static_cast<int>(i);
        device.emplace(options->devices.at(index), settings, environment);
        const QString robotAddress = robot ? robot->address() : QString();
        if (!robotAddress.isEmpty())
            device->setDefaultAddress(robotAddress);
        if (index < options->addresses.size())
            device->overrideAddress(options->addresses.at(index).toString());
        for (const auto& [ours, theirs] : options->names)
            device->remappings().set(ours, theirs);
        window::DeviceView& view = window.add(*device, robotAddress);
        if (robot && !robot->error().isEmpty())
            view.notify(robot->error());
    }
    if (!badLines.isEmpty())
        window.notify(badLines.first());
    if (badLines.size() > 1) {
        window.notify(QCoreApplication::translate(
            "main", "The standard error names further lines that cannot be read."));
    }
    if (isTour) {
        tour::Tour tour(options->tourFolder, window, plugin, environment);
        return take(tour);
    }
    window.restoreLayout(stateFolder());
    return show(window);
}
