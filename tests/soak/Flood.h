// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_FLOOD_H
#define QUANDREL_FLOOD_H

#include <QTcpSocket>

#include <array>

/// Other clients of a robot that mean harm: one sends pings as fast as they are taken, and some
/// come and never say what they want.
class Flood
{
public:
    /// @p address is "host:port".
    explicit Flood(const QString& address);

    /// The robot has cut the flood off. The silent ones go with this object.
    bool isOver() const { return m_pinger.state() == QAbstractSocket::UnconnectedState; }

private:
    void ping();

    QTcpSocket m_pinger;
    std::array<QTcpSocket, 20> m_silent;
};

#endif
