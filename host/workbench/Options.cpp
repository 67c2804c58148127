// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/Options.h"

#include "host/workbench/preferences/Appearance.h"
#include "host/workbench/preferences/Language.h"
#include "robot/InfoOptions.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace host::workbench {

namespace {

constexpr double leastScale = 1;
constexpr double greatestScale = 4;
constexpr qint64 mostCertificateBytes = 1000000;

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

Options::Options(const QStringList& arguments, const Program& program)
{
    read(arguments, program);
}

void Options::read(const QStringList& arguments, const Program& program)
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
    const robot::InfoOptions info;

    QCommandLineParser parser;
    parser.setApplicationDescription(program.description);
    parser.addOptions({plugin, device, address, trust, remap, noRobot});
    m_laserLog.addTo(parser);
    parser.addOptions({language, appearance, scale});
    info.addTo(parser);
    if (!program.folder.isEmpty())
        parser.addPositionalArgument("DIR", program.folder);

    if (!parser.parse(arguments))
        return finish(Action::Fail, parser.errorText());
    const QString text = info.text(parser);
    if (!text.isEmpty())
        return finish(Action::ShowText, text);
    for (const QCommandLineOption& option :
         {plugin, device, address, trust, remap, language, appearance, scale}) {
        if (parser.values(option).contains(QString()))
            finish(Action::Fail, tr("--%1: the value is empty").arg(option.names().first()));
    }

    readArguments(parser.positionalArguments(), !program.folder.isEmpty());
    m_pluginFile = parser.value(plugin);
    m_hasRobot = !parser.isSet(noRobot);
    if (parser.isSet(device))
        readDevices(parser.values(device));
    readAddresses(parser.values(address));
    readCertificates(parser.values(trust));
    readNames(parser.values(remap));
    readLaserLog(parser);
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

void Options::readArguments(QStringList arguments, bool isFolderExpected)
{
    if (isFolderExpected && arguments.value(0).isEmpty())
        return finish(Action::Fail, tr("DIR is missing"));
    if (isFolderExpected)
        m_folder = arguments.takeFirst();
    if (!arguments.isEmpty())
        finish(Action::Fail, tr("unexpected argument \"%1\"").arg(arguments.first()));
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
