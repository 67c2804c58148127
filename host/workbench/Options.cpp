#include "host/workbench/Options.h"

#include "host/workbench/preferences/Appearance.h"
#include "host/workbench/preferences/Language.h"

#include <QCommandLineParser>

namespace host::workbench {

namespace {

constexpr double leastScale = 1;
constexpr double greatestScale = 4;

QCommandLineOption scaleOption()
{
    return {"scale",
            Options::tr("Show everything larger by FACTOR, %1 to %2 (default: %1).")
                .arg(leastScale)
                .arg(greatestScale),
            "FACTOR"};
}

/// Nothing if it is no factor, or out of range.
std::optional<double> factor(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !(number >= leastScale && number <= greatestScale))
        return std::nullopt;
    return number;
}

} // namespace

double Options::scale(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption scale = scaleOption();
    parser.addOption(scale);
    parser.parse(arguments); // the other options are unknown to it, and parse() says what is wrong
    return factor(parser.value(scale)).value_or(leastScale);
}

std::optional<Options> Options::parse(const QStringList& arguments, QString* error)
{
    const QCommandLineOption help({"h", "help"}, tr("Show this help and end."));
    const QCommandLineOption version({"v", "version"}, tr("Show the version and end."));
    const QCommandLineOption plugin(
        "plugin", tr("Load the device plugin FILE instead of the one beside this program."),
        "FILE");
    const QCommandLineOption device(
        "device",
        tr("Name of the device, under which its settings are kept (default: %1). Given several "
           "times, it shows as many devices side by side.")
            .arg(Options().devices.first()),
        "NAME");
    const QCommandLineOption address(
        "address",
        tr("Address of the robot: host, host:port or [IPv6]:port (default: the "
           "simulated robot's). The second is that of the second device, and so on."),
        "ADDRESS");
    const QCommandLineOption remap(
        "remap",
        tr("Use the robot's topic or service THEIRS where this program says OURS, as in "
           "/scan:=/base_scan. It is remembered for each device shown. May be given several "
           "times."),
        "OURS:=THEIRS");
    const QCommandLineOption noRobot("no-robot", tr("Do not start the simulated robot."));
    const QCommandLineOption language(
        "language",
        tr("Language of the texts: %1 (default: the one chosen last, or the system's).")
            .arg(preferences::Language::codes().join(", ")),
        "CODE");
    const QCommandLineOption appearance(
        "appearance",
        tr("Appearance of the windows: %1 (default: the one chosen last, or the system's).")
            .arg(preferences::Appearance::codes().join(", ")),
        "NAME");
    const QCommandLineOption scale = scaleOption();
    const QCommandLineOption tour(
        "tour",
        tr("Operate the window without a person, write pictures of it to the folder DIR, and "
           "end. Stored settings are left alone."),
        "DIR");

    Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Shows a device plugin at work, with a simulated robot to connect to."));
    parser.addOptions({help, version, plugin, device, address, remap, noRobot});
    options.laserLog.addTo(parser);
    parser.addOptions({language, appearance, scale, tour});

    const auto refuse = [error](const QString& text) {
        *error = text + '\n' + tr("Use --help for the options.");
        return std::nullopt;
    };
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return refuse(tr("Unexpected argument \"%1\".").arg(parser.positionalArguments().first()));
    for (const QCommandLineOption& option :
         {plugin, device, address, remap, language, appearance, scale, tour}) {
        if (parser.values(option).contains(QString()))
            return refuse(tr("--%1 needs a value that is not empty.").arg(option.names().first()));
    }

    if (parser.isSet(help)) {
        options.message = parser.helpText();
    } else if (parser.isSet(version)) {
        options.message = QCoreApplication::applicationName() + ' ' +
                          QCoreApplication::applicationVersion() + '\n';
    } else {
        options.pluginFile = parser.value(plugin);
        options.robot = !parser.isSet(noRobot);
        options.tourFolder = parser.value(tour);
        options.language = parser.value(language);
        if (parser.isSet(language) && !preferences::Language::codes().contains(options.language)) {
            return refuse(tr("--language: \"%1\" is not a language of this program. Choose one of "
                             "%2.")
                              .arg(options.language, preferences::Language::codes().join(", ")));
        }
        options.appearance = parser.value(appearance);
        if (parser.isSet(appearance) &&
            !preferences::Appearance::codes().contains(options.appearance)) {
            return refuse(
                tr("--appearance: \"%1\" is not an appearance of this program. Choose "
                   "one of %2.")
                    .arg(options.appearance, preferences::Appearance::codes().join(", ")));
        }
        if (parser.isSet(scale) && !factor(parser.value(scale))) {
            return refuse(tr("--scale: \"%1\" is not a factor. Give a number from %2 to %3, such "
                             "as 1.5.")
                              .arg(parser.value(scale))
                              .arg(leastScale)
                              .arg(greatestScale));
        }
        QString reason;
        if (!options.laserLog.read(parser, &reason))
            return refuse(reason);
        if (!options.robot && !options.laserLog.file().isEmpty()) {
            return refuse(tr("--laser-log needs the simulated robot, which --no-robot leaves out: "
                             "give one of them."));
        }
        if (parser.isSet(device))
            options.devices = parser.values(device);
        for (const QString& name : std::as_const(options.devices)) {
            if (options.devices.count(name) > 1) {
                return refuse(tr("--device: there are two of the name \"%1\". Give each device a "
                                 "name of its own.")
                                  .arg(name));
            }
        }
        for (const QString& text : parser.values(address)) {
            const auto parsed = rosbridge::protocol::Address::parse(text, &reason);
            if (!parsed)
                return refuse("--address: " + reason);
            options.addresses.append(*parsed);
        }
        for (const QString& text : parser.values(remap)) {
            const auto mapping = device::connection::Remappings::parseOption(text, &reason);
            if (!mapping)
                return refuse("--remap: " + reason);
            options.names.append(*mapping);
        }
        if (options.addresses.size() > options.devices.size()) {
            return refuse(tr("--address: there are more addresses than devices. Name a further "
                             "device with --device for each."));
        }
    }
    return options;
}

} // namespace host::workbench
