// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/Address.h"

#include <QHostAddress>
#include <QRegularExpression>

namespace rosbridge::protocol {

namespace {

bool isIpv6(const QString& text)
{
    return text.contains(u':') && QHostAddress(text).protocol() == QAbstractSocket::IPv6Protocol;
}

bool isHostName(const QString& text)
{
    // QUrl would read "12" or "127.1" as the IPv4 address that C's inet_aton makes of it.
    static const QRegularExpression numbers(QStringLiteral("^[0-9.]+$"));
    static const QRegularExpression dottedQuad(QStringLiteral("^([0-9]{1,3}\\.){3}[0-9]{1,3}$"));
    if (numbers.match(text).hasMatch())
        return dottedQuad.match(text).hasMatch() && !QHostAddress(text).isNull();

    QUrl url;
    url.setHost(text);
    return url.isValid() && !url.host().isEmpty() && !text.contains(u':') && !text.contains(u'%');
}

std::optional<quint16> portFrom(const QString& text)
{
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,5}$"));
    bool ok = digits.match(text).hasMatch();
    const uint port = ok ? text.toUInt(&ok) : 0;
    if (!ok || port == 0 || port > 65535)
        return std::nullopt;
    return static_cast<quint16>(port);
}

} // namespace

std::optional<Address> Address::parse(const QString& text, QString* error)
{
    const auto refuse = [error](const QString& why) {
        if (error)
            *error = why;
        return std::nullopt;
    };

    if (text.isEmpty())
        return refuse(tr("The robot's address is empty: write a host name or an IP address, "
                         "for example %1:%2.")
                          .arg(QLatin1String(defaultHost))
                          .arg(defaultPort));
    static const QRegularExpression blank(QStringLiteral("\\s"));
    if (text.contains(blank))
        return refuse(tr("The address \"%1\" contains a space: remove it.").arg(text));

    QString host = text;
    std::optional<QString> port;
    if (text.startsWith(u'[')) {
        const auto bracket = text.indexOf(u']');
        if (bracket < 0)
            return refuse(tr("The address \"%1\" lacks the closing bracket: write [IPv6 address] "
                             "or [IPv6 address]:port.")
                              .arg(text));
        host = text.mid(1, bracket - 1);
        const QString rest = text.mid(bracket + 1);
        if (!isIpv6(host) || (!rest.isEmpty() && !rest.startsWith(u':')))
            return refuse(tr("The address \"%1\" is not understood: put only an IPv6 address in "
                             "brackets, and only \":port\" after them.")
                              .arg(text));
        if (!rest.isEmpty())
            port = rest.mid(1);
    } else if (text.count(u':') == 1) {
        host = text.section(u':', 0, 0);
        port = text.section(u':', 1);
    } else if (isIpv6(text)) {
        if (isIpv6(text.section(u':', 0, -2)) && portFrom(text.section(u':', -1)))
            return refuse(tr("The address \"%1\" can be read in two ways: put the IPv6 address in "
                             "brackets, [IPv6 address] or [IPv6 address]:port.")
                              .arg(text));
    }

    if (!isIpv6(host) && !isHostName(host))
        return refuse(tr("The address \"%1\" is not understood: write a host name or an IP "
                         "address, followed by \":port\" if the port is not %2.")
                          .arg(text)
                          .arg(defaultPort));

    Address address{host, defaultPort};
    if (port) {
        const std::optional<quint16> number = portFrom(*port);
        if (!number)
            return refuse(tr("The port \"%1\" in the address \"%2\" is not valid: write a number "
                             "from 1 to 65535.")
                              .arg(*port, text));
        address.port = *number;
    }
    return address;
}

QString Address::toString() const
{
    return (host.contains(u':') ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2"))
        .arg(host)
        .arg(port);
}

QUrl Address::url() const
{
    QUrl url;
    url.setScheme(QStringLiteral("ws"));
    url.setHost(host);
    url.setPort(port);
    return url;
}

} // namespace rosbridge::protocol
