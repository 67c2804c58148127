// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_CLIENTS_H
#define QUANDREL_CLIENTS_H

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QWebSocket>

#include <deque>

/// Clients of a rosbridge server that count the messages they get and look into none.
class Clients : public QObject
{
public:
    /// Lets @p number of them connect to @p address, host and port.
    Clients(const QString& address, int number);

    /// False where one could not connect.
    bool waitUntilConnected();

    /// Subscribes all of them to the laser's scans; @p compression as in rosbridge.
    void subscribe(const QString& compression);

    int count() const { return m_count; }
    const QByteArray& newest() const { return m_newest; } ///< the newest message, as it came

private:
    bool areConnected() const;

    std::deque<QWebSocket> m_sockets;
    int m_count = 0;
    QByteArray m_newest;
};

#endif
