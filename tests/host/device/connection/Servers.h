// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_TESTS_SERVERS_H
#define HOST_DEVICE_CONNECTION_TESTS_SERVERS_H

#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

/// A port that nobody else gets, and where nobody listens.
class ClosedPort
{
public:
    ClosedPort()
    {
        if (!m_socket.bind(QHostAddress::LocalHost))
            qFatal("no port to be had: %s", qPrintable(m_socket.errorString()));
    }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_socket.localPort()); }

private:
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
