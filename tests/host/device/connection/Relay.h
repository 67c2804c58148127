// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_CONNECTION_TESTS_RELAY_H
#define HOST_DEVICE_CONNECTION_TESTS_RELAY_H

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

/// A slow line from a robot to one client: what the robot sends comes through at a given speed,
/// and what it holds by itself is little.
class Relay : public QObject
{
public:
    /// To the robot at @p port of this computer.
    Relay(quint16 port, int bytesPerSecond) : m_bytesPerTurn(bytesPerSecond * interval / 1000)
    {
        m_server.listen(QHostAddress::LocalHost);
        m_robot.bind(QHostAddress::LocalHost); // makes the socket
        m_robot.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, buffer);
        m_robot.setReadBufferSize(buffer);
        connect(&m_server, &QTcpServer::newConnection, this, [this, port] {
            m_client = m_server.nextPendingConnection();
            connect(m_client, &QTcpSocket::readyRead, this, [this] { passUp(); });
            m_robot.connectToHost(QHostAddress::LocalHost, port);
        });
        connect(&m_robot, &QTcpSocket::connected, this, [this] { passUp(); });
        connect(&m_timer, &QTimer::timeout, this, [this] { passDown(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(interval);
    }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }

    /// What came through from the robot, in bytes.
    qint64 passed() const { return m_passed; }

    /// From now on the line is as quick as the computer.
    void open() { m_bytesPerTurn = 100 * buffer; }

private:
    static constexpr int interval = 10; // ms
    static constexpr int buffer = 16 * 1024;

    void passUp()
    {
        if (m_client && m_robot.state() == QAbstractSocket::ConnectedState)
            m_robot.write(m_client->readAll());
    }

    void passDown()
    {
        qint64 left = m_bytesPerTurn;
        while (m_client && left > 0) {
            const QByteArray bytes = m_robot.read(std::min<qint64>(left, buffer));
            if (bytes.isEmpty())
                return;
            m_client->write(bytes);
            m_client->flush();
            m_passed += bytes.size();
            left -= bytes.size();
        }
    }

    QTcpServer m_server;
    QTcpSocket* m_client = nullptr; // the server's
    QTcpSocket m_robot;
    QTimer m_timer;
    qint64 m_bytesPerTurn;
    qint64 m_passed = 0;
};

#endif
