// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/CommandLine.h"

#include "robot/InfoOptions.h"

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
        tr("Listen on ADDRESS: host, host:port or [IPv6]:port (default: %1, which only programs on "
           "this computer can reach).")
            .arg(m_address.toString()),
        QStringLiteral("ADDRESS"), m_address.toString());
    const QCommandLineOption port(
        QStringLiteral("port"),
        tr("Listen on port NUMBER, whatever the address says; 0 takes any free port."),
        QStringLiteral("NUMBER"));
    const QCommandLineOption seed(
        QStringLiteral("seed"),
        tr("Seed of the simulated world, 0 to 4294967295 (default: random)."),
        QStringLiteral("NUMBER"));
    const QCommandLineOption allowOrigin(
        QStringLiteral("allow-origin"),
        tr("Let browser pages of ORIGIN connect, for example http://localhost:8000. Can be "
           "repeated."),
        QStringLiteral("ORIGIN"));
    const InfoOptions info;

    QCommandLineParser parser;
    parser.setApplicationDescription(tr("A simulated robot that speaks rosbridge v2."));
    parser.addOptions({address, port, seed, allowOrigin});
    m_laserLog.addTo(parser);
    m_play.addTo(parser);
    info.addTo(parser);

    if (!parser.parse(arguments))
        return finish(Action::Fail, parser.errorText());
    const QString text = info.text(parser);
    if (!text.isEmpty())
        return finish(Action::ShowText, text);
    if (!parser.positionalArguments().isEmpty())
        return finish(Action::Fail,
                      tr("unexpected argument \"%1\"").arg(parser.positionalArguments().first()));

    readAddress(parser.value(address));
    if (parser.isSet(port))
        readPort(parser.value(port));
    if (parser.isSet(seed))
        readSeed(parser.value(seed));
    readOrigins(parser.values(allowOrigin));
    QString error;
    if (!m_play.read(parser, &error))
        return finish(Action::Fail, error);
    if (m_play.file().isEmpty()) {
        if (!m_laserLog.read(parser, &error))
            finish(Action::Fail, error);
        return;
    }
    for (const char* other : {"laser-log", "seed"}) {
        if (parser.isSet(QLatin1String(other)))
            finish(Action::Fail, tr("--%1: nothing is simulated when a bag is played; leave out "
                                    "this or --play")
                                     .arg(QLatin1String(other)));
    }
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
    if (!address)
        return finish(Action::Fail, tr("--address: %1").arg(error));
    if (address->isSecure || !address->path.isEmpty())
        return finish(Action::Fail, tr("--address: the robot serves neither wss:// nor a path; "
                                       "write host:port"));
    m_address = *address;
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
