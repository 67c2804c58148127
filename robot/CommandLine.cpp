#include "robot/CommandLine.h"

#include <QCommandLineParser>
#include <QRandomGenerator>
#include <QUrl>

#include <optional>

namespace robot {

CommandLine::CommandLine(const QStringList& arguments)
    : m_seed(QRandomGenerator::global()->generate())
{
    read(arguments);
}

void CommandLine::read(const QStringList& arguments)
{
    const QCommandLineOption address(
        QStringLiteral("address"),
        tr("Listen on <address>: host, host:port or [IPv6]:port. Without it, only programs on "
           "this computer can connect."),
        tr("address"), m_address.toString());
    const QCommandLineOption port(
        QStringLiteral("port"),
        tr("Listen on port <number>, whatever the address says; 0 takes any free one."),
        tr("number"));
    const QCommandLineOption seed(
        QStringLiteral("seed"),
        tr("Build the world that belongs to <number>, from 0 to 4294967295. Without it, a "
           "number is drawn."),
        tr("number"));
    const QCommandLineOption allowOrigin(
        QStringLiteral("allow-origin"),
        tr("Let browser pages of <origin> connect, for example http://localhost:8000. May be "
           "given several times."),
        tr("origin"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  tr("Show this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     tr("Show the version."));

    QCommandLineParser parser;
    parser.setApplicationDescription(tr("A simulated robot that speaks rosbridge v2."));
    parser.addOptions({address, port, seed, allowOrigin});
    m_laserLog.addTo(parser);
    parser.addOptions({help, version});

    if (!parser.parse(arguments))
        return finish(Action::Fail, parser.errorText());
    if (parser.isSet(help))
        return finish(Action::ShowText, parser.helpText());
    if (parser.isSet(version))
        return finish(
            Action::ShowText,
            QStringLiteral("quandrel-robot %1").arg(QCoreApplication::applicationVersion()));
    if (!parser.positionalArguments().isEmpty())
        return finish(Action::Fail,
                      tr("\"%1\" is not an option").arg(parser.positionalArguments().first()));

    readAddress(parser.value(address));
    if (parser.isSet(port))
        readPort(parser.value(port));
    if (parser.isSet(seed))
        readSeed(parser.value(seed));
    readOrigins(parser.values(allowOrigin));
    QString error;
    if (!m_laserLog.read(parser, &error))
        finish(Action::Fail, error);
}

void CommandLine::finish(Action action, const QString& text)
{
    if (m_action != Action::Run)
        return; // the first error is the one to tell
    m_action = action;
    m_text = text;
}

void CommandLine::readAddress(const QString& text)
{
    QString error;
    const std::optional<rosbridge::protocol::Address> address =
        rosbridge::protocol::Address::parse(text, &error);
    if (address)
        m_address = *address;
    else
        finish(Action::Fail, tr("--address: %1").arg(error));
}

void CommandLine::readPort(const QString& text)
{
    bool isNumber = false;
    m_address.port = text.toUShort(&isNumber);
    if (!isNumber)
        finish(Action::Fail, tr("--port: \"%1\" is not a number from 0 to 65535").arg(text));
}

void CommandLine::readSeed(const QString& text)
{
    bool isNumber = false;
    m_seed = text.toUInt(&isNumber);
    if (!isNumber)
        finish(Action::Fail, tr("--seed: \"%1\" is not a number from 0 to 4294967295").arg(text));
}

void CommandLine::readOrigins(const QStringList& origins)
{
    for (const QString& origin : origins) {
        // What browsers send: scheme, host and, where it is not the scheme's own, the port.
        const QUrl url(origin, QUrl::StrictMode);
        const QString asSent =
            url.scheme() + QStringLiteral("://") + url.authority(QUrl::FullyEncoded);
        if (url.host().isEmpty() || !url.userInfo().isEmpty() || origin != asSent)
            finish(Action::Fail, tr("--allow-origin: \"%1\" is not an origin; write it as "
                                    "http://localhost:8000, without a path")
                                     .arg(origin));
    }
    m_allowedOrigins = origins;
}

} // namespace robot
