// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/Options.h"

#include "host/workbench/bugreport/ReportArchive.h"
#include "host/workbench/preferences/Appearance.h"
#include "host/workbench/preferences/Language.h"
#include "robot/InfoOptions.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace host::workbench {

namespace {

constexpr double leastScale = 1;
constexpr double greatestScale = 4;
constexpr qint64 mostCertificateBytes = 1000000;

const QString scriptOption = QStringLiteral("script");
const QString outputOption = QStringLiteral("output");
const QString junitOption = QStringLiteral("junit");
const QString tourOption = QStringLiteral("tour");

QList<QCommandLineOption> scriptOptions()
{
    return {
        {scriptOption,
         Options::tr("Run the script FILE in the window, with settings of its own, and exit. Needs "
                     "no display."),
         "FILE"},
        {outputOption,
         Options::tr("Folder for what the script writes, made where it is missing (default: the "
                     "current one)."),
         "DIR"},
        {junitOption, Options::tr("Write what became of the script to FILE, in the XML of JUnit."),
         "FILE"},
        {tourOption,
         Options::tr("Run the script of the automated tour, which writes pictures of the workbench "
                     "to DIR."),
         "DIR"},
    };
}

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
    parser.parse(arguments); // the other options are unknown to it, and read() says what is wrong
    return factor(parser.value(scale)).value_or(leastScale);
}

QString Options::tourFile()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/" DATA_FOLDER "/tour.script");
}

Options::Options(const QStringList& arguments)
{
    read(arguments);
}

void Options::read(const QStringList& arguments)
{
    const QCommandLineOption plugin(
        "plugin", tr("Load the device plugin FILE instead of the program's own."), "FILE");
    const QCommandLineOption device(
        "device",
        tr("Name of the device. Its settings are stored under this name (default: %1). Can be "
           "repeated, to show several devices side by side.")
            .arg(m_devices.first()),
        "NAME");
    const QCommandLineOption address(
        "address",
        tr("Address of the robot: host, host:port, [IPv6]:port, ws://host:port/path or "
           "wss://host:port/path (default: the simulated robot's). The second one is for the "
           "second device, and so on."),
        "ADDRESS");
    const QCommandLineOption trust(
        "trust",
        tr("Trust the certificates in FILE (PEM) when connecting by wss://, and servers that they "
           "vouch for. Can be repeated."),
        "FILE");
    const QCommandLineOption remap(
        "remap",
        tr("Use the robot's topic or service THEIRS in place of OURS, as in /scan:=/base_scan. "
           "Stored for each device that is shown. Can be repeated."),
        "OURS:=THEIRS");
    const QCommandLineOption noRobot("no-robot", tr("Do not start a simulated robot."));
    const QCommandLineOption record(
        "record", tr("Record the first device to the ROS bag FILE from the beginning."), "FILE");
    const QCommandLineOption replay(
        "replay",
        tr("Play the recording FILE into the plugin, without a robot: in the window, or with "
           "--assert."),
        "FILE");
    const QCommandLineOption assertion(
        "assert", tr("With --replay: compare what the plugin does with what it did when it was "
                     "recorded, without a window. The exit status is 0 if it is the same."));
    const QCommandLineOption language(
        "language",
        tr("Language: %1 (default: the one chosen last, or the system's).")
            .arg(preferences::Language::codes().join(", ")),
        "CODE");
    const QCommandLineOption appearance(
        "appearance",
        tr("Appearance: %1 (default: the one chosen last, or the system's).")
            .arg(preferences::Appearance::codes().join(", ")),
        "NAME");
    const QCommandLineOption scale = scaleOption();
    const QCommandLineOption bugReport(
        "bug-report",
        tr("Write versions, plugin and settings to FILE, a compressed archive (.tar.gz), for a bug "
           "report, and exit. Addresses, certificates and histories are left out."),
        "FILE");
    const robot::InfoOptions info;

    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Shows a device plugin at work, with a simulated robot to connect to."));
    parser.addOptions({plugin, device, address, trust, remap, noRobot});
    m_laserLog.addTo(parser);
    parser.addOptions({record, replay, assertion, language, appearance, scale});
    parser.addOptions(scriptOptions());
    parser.addOption(bugReport);
    info.addTo(parser);

    if (!parser.parse(arguments))
        return finish(Action::Fail, parser.errorText());
    const QString text = info.text(parser);
    if (!text.isEmpty())
        return finish(Action::ShowText, text);
    for (const QCommandLineOption& option :
         QList<QCommandLineOption>{plugin, device, address, trust, remap, record, replay, language,
                                   appearance, scale, bugReport} +
             scriptOptions()) {
        if (parser.values(option).contains(QString()))
            finish(Action::Fail, tr("--%1: the value is empty").arg(option.names().first()));
    }

    if (!parser.positionalArguments().isEmpty())
        finish(Action::Fail,
               tr("unexpected argument \"%1\"").arg(parser.positionalArguments().first()));
    m_pluginFile = parser.value(plugin);
    m_hasRobot = !parser.isSet(noRobot);
    if (parser.isSet(device))
        readDevices(parser.values(device));
    readAddresses(parser.values(address));
    readCertificates(parser.values(trust));
    readNames(parser.values(remap));
    readLaserLog(parser);
    m_recordFile = parser.value(record);
    m_replayFile = parser.value(replay);
    m_isAssertion = parser.isSet(assertion);
    if (m_isAssertion && m_replayFile.isEmpty())
        finish(Action::Fail, tr("--assert is about a recording; give --replay FILE, too"));
    readScript(parser);
    if (!m_replayFile.isEmpty() && !(m_recordFile + m_scriptFile).isEmpty())
        finish(Action::Fail, tr("--replay has no device that could be recorded or work a script; "
                                "leave out --record, --script and --tour"));
    if (parser.isSet(bugReport))
        readBugReport(parser.value(bugReport));
    if (parser.isSet(language))
        readLanguage(parser.value(language));
    if (parser.isSet(appearance))
        readAppearance(parser.value(appearance));
    if (parser.isSet(scale) && !factor(parser.value(scale))) {
        finish(Action::Fail, tr("--scale: \"%1\" is not a number from %2 to %3")
                                 .arg(parser.value(scale))
                                 .arg(leastScale)
                                 .arg(greatestScale));
    }
}

void Options::finish(Action action, const QString& text)
{
    if (m_action != Action::Run)
        return; // the first error is the one to tell
    m_action = action;
    m_text = text;
}

void Options::readDevices(const QStringList& names)
{
    m_devices = names;
    for (const QString& name : names) {
        if (names.count(name) > 1) {
            finish(Action::Fail,
                   tr("--device: there are two devices named \"%1\"; give each its own name")
                       .arg(name));
        }
    }
}

void Options::readAddresses(const QStringList& texts)
{
    QString reason;
    for (const QString& text : texts) {
        const auto address = rosbridge::protocol::Address::parse(text, &reason);
        if (!address)
            return finish(Action::Fail, "--address: " + reason);
        m_addresses.append(*address);
    }
    if (texts.size() > m_devices.size()) {
        finish(Action::Fail, tr("--address: there are more addresses than devices; name a further "
                                "device with --device for each"));
    }
}

void Options::readCertificates(const QStringList& files)
{
    for (const QString& name : files) {
        QFile file(name);
        // Opening a pipe would wait for a writer.
        if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly))
            return finish(Action::Fail, tr("--trust: %1 cannot be read").arg(name));
        const auto certificates = QSslCertificate::fromData(file.read(mostCertificateBytes));
        if (certificates.isEmpty())
            return finish(Action::Fail,
                          tr("--trust: there is no certificate in PEM format in %1").arg(name));
        m_certificates += certificates;
    }
}

void Options::readNames(const QStringList& texts)
{
    QString reason;
    for (const QString& text : texts) {
        const auto mapping = device::connection::Remappings::parseOption(text, &reason);
        if (!mapping)
            return finish(Action::Fail, "--remap: " + reason);
        m_names.append(*mapping);
    }
}

void Options::readLaserLog(const QCommandLineParser& parser)
{
    QString reason;
    if (!m_laserLog.read(parser, &reason))
        return finish(Action::Fail, reason);
    if (!m_hasRobot && !m_laserLog.file().isEmpty()) {
        finish(Action::Fail, tr("--laser-log needs the simulated robot, which --no-robot leaves "
                                "out; give only one of them"));
    }
}

void Options::readScript(const QCommandLineParser& parser)
{
    m_scriptFile = parser.value(scriptOption);
    m_outputFolder = parser.value(outputOption);
    m_reportFile = parser.value(junitOption);
    if (parser.isSet(tourOption)) {
        if (parser.isSet(scriptOption) || parser.isSet(outputOption)) {
            finish(Action::Fail, tr("--tour runs a script of its own, in a folder of its own; "
                                    "leave out --script and --output"));
        }
        m_scriptFile = tourFile();
        m_outputFolder = parser.value(tourOption);
    }
    if (m_scriptFile.isEmpty() && (parser.isSet(outputOption) || parser.isSet(junitOption)))
        finish(Action::Fail, tr("--output and --junit are about a script; give --script, too"));
}

void Options::readBugReport(const QString& file)
{
    m_bugReportFile = file;
    const QString ending = bugreport::ReportArchive::ending;
    if (!file.endsWith(ending))
        finish(Action::Fail, tr("--bug-report: \"%1\" does not end in %2").arg(file, ending));
}

void Options::readLanguage(const QString& code)
{
    m_language = code;
    const QStringList codes = preferences::Language::codes();
    if (!codes.contains(code)) {
        finish(Action::Fail, tr("--language: \"%1\" is not one of %2").arg(code, codes.join(", ")));
    }
}

void Options::readAppearance(const QString& code)
{
    m_appearance = code;
    const QStringList codes = preferences::Appearance::codes();
    if (!codes.contains(code)) {
        finish(Action::Fail,
               tr("--appearance: \"%1\" is not one of %2").arg(code, codes.join(", ")));
    }
}

} // namespace host::workbench
