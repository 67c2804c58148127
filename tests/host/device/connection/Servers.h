// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_TESTS_SERVERS_H
#define HOST_DEVICE_CONNECTION_TESTS_SERVERS_H

#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

/// A port that nobody else gets, and where nobody listens. Not of the address that all others use:
/// the ports of connections that have just been closed there are taken for a while, and tests of
/// floods close tens of thousands.
class ClosedPort
{
public:
    ClosedPort()
    {
        if (!m_socket.bind(QHostAddress(host())))
            qFatal("no port to be had: %s", qPrintable(m_socket.errorString()));
    }

    QString address() const
    {
        return QStringLiteral("%1:%2").arg(host()).arg(m_socket.localPort());
    }

private:
    static QString host() { return QStringLiteral("127.0.0.2"); }

    QTcpSocket m_socket;
};

/// The network accepts for it, but it never says a word.
class SilentServer
{
public:
    SilentServer() { m_server.listen(QHostAddress::LocalHost); }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }

    bool hasVisitor() const { return m_server.hasPendingConnections(); }

private:
    QTcpServer m_server;
};

#endif
