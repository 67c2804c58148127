// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/Address.h"

#include <QHostAddress>
#include <QRegularExpression>
#include <QUrl>

namespace rosbridge::protocol {

namespace {

bool isIpv6(const QString& text)
{
    // QHostAddress alone would stop at a null character, and take anything for an interface.
    static const QRegularExpression form(
        QStringLiteral("^[0-9A-Fa-f.]*:[0-9A-Fa-f:.]*(%[0-9A-Za-z._~-]+)?$"));
    return form.match(text).hasMatch() &&
           QHostAddress(text).protocol() == QAbstractSocket::IPv6Protocol;
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

/// Of a URL's part from the path on; what is encoded already stays so.
QString encodedPath(QString text)
{
    if (text.startsWith(u'?'))
        text.prepend(u'/');
    if (text == QLatin1String("/"))
        return {};
    return QString::fromLatin1(
        text.toUtf8().toPercentEncoding("!$&'()*+,;=:@/?").replace("%25", "%"));
}

std::nullopt_t notAnAddress(QString* error, const QString& why)
{
    if (error)
        *error = why;
    return std::nullopt;
}

} // namespace

std::optional<Address> Address::parse(const QString& text, QString* error)
{
    if (text.isEmpty())
        return notAnAddress(error,
                            tr("The robot's address is empty: write a host name or an IP address, "
                               "for example %1:%2.")
                                .arg(QLatin1String(defaultHost))
                                .arg(defaultPort));
    static const QRegularExpression blank(QStringLiteral("\\s"));
    if (text.contains(blank))
        return notAnAddress(error, tr("The address \"%1\" contains a space: remove it.").arg(text));

    const auto scheme = text.indexOf(QLatin1String("://"));
    if (scheme < 0)
        return parseAuthority(text, text, defaultPort, error);

    const QString before = text.left(scheme).toLower();
    const bool isSecure = before == QLatin1String("wss");
    if (!isSecure && before != QLatin1String("ws"))
        return notAnAddress(
            error, tr("The address \"%1\" is not that of a robot: write ws:// or wss:// in "
                      "place of %2, or leave it out.")
                       .arg(text, text.left(scheme) + QLatin1String("://")));
    const QString rest = text.mid(scheme + 3);
    if (rest.contains(u'#'))
        return notAnAddress(
            error, tr("The address \"%1\" contains a \"#\": leave it out, and what follows "
                      "it.")
                       .arg(text));
    const auto end = rest.indexOf(QRegularExpression(QStringLiteral("[/?]")));
    const QString authority = rest.left(end);
    if (authority.contains(u'@')) // which is not repeated: it may hold a password
        return notAnAddress(
            error, tr("The address of \"%1\" contains a user name, but this program cannot "
                      "log in: leave out all up to the \"@\".")
                       .arg(authority.section(u'@', -1)));
    std::optional<Address> address =
        parseAuthority(text, authority, isSecure ? secureWebPort : webPort, error);
    if (!address)
        return std::nullopt;
    address->isSecure = isSecure;
    if (end >= 0)
        address->path = encodedPath(rest.mid(end));
    return address;
}

/// Of "host:port", in the address @p text.
std::optional<Address> Address::parseAuthority(const QString& text, const QString& authority,
                                               quint16 usualPort, QString* error)
{
    QString host = authority;
    std::optional<QString> port;
    if (authority.startsWith(u'[')) {
        const auto bracket = authority.indexOf(u']');
        if (bracket < 0)
            return notAnAddress(
                error, tr("The address \"%1\" lacks the closing bracket: write [IPv6 address] "
                          "or [IPv6 address]:port.")
                           .arg(text));
        host = authority.mid(1, bracket - 1);
        const QString rest = authority.mid(bracket + 1);
        if (!isIpv6(host) || (!rest.isEmpty() && !rest.startsWith(u':')))
            return notAnAddress(
                error, tr("The address \"%1\" is not understood: put only an IPv6 address in "
                          "brackets, and only \":port\" after them.")
                           .arg(text));
        if (!rest.isEmpty())
            port = rest.mid(1);
    } else if (authority.count(u':') == 1) {
        host = authority.section(u':', 0, 0);
        port = authority.section(u':', 1);
    } else if (isIpv6(authority)) {
        if (isIpv6(authority.section(u':', 0, -2)) && portFrom(authority.section(u':', -1)))
            return notAnAddress(
                error, tr("The address \"%1\" can be read in two ways: put the IPv6 address in "
                          "brackets, [IPv6 address] or [IPv6 address]:port.")
                           .arg(text));
    }

    if (!isIpv6(host) && !isHostName(host))
        return notAnAddress(error,
                            tr("The address \"%1\" is not understood: write a host name or an IP "
                               "address, followed by \":port\" if the port is not %2.")
                                .arg(text, QString::number(usualPort)));

    Address address{host, usualPort};
    if (port) {
        const std::optional<quint16> number = portFrom(*port);
        if (!number)
            return notAnAddress(
                error, tr("The port \"%1\" in the address \"%2\" is not valid: write a number "
                          "from 1 to 65535.")
                           .arg(*port, text));
        address.port = *number;
    }
    return address;
}

QString Address::toString() const
{
    if (!isSecure && path.isEmpty())
        return authority();
    return (isSecure ? QLatin1String("wss://") : QLatin1String("ws://")) + authority() + path;
}

QString Address::authority() const
{
    return (host.contains(u':') ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2"))
        .arg(host, QString::number(port));
}

} // namespace rosbridge::protocol
