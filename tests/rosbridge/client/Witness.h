// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_WITNESS_H
#define ROBOT_LINK_TESTS_WITNESS_H

#include "rosbridge/client/Client.h"

#include <QStringList>
#include <QTcpServer>
#include <QVariant>

/// What a client told of its connection, in order.
class Witness : public QObject
{
public:
    explicit Witness(rosbridge::client::Client& client)
    {
        using rosbridge::client::Client;
        connect(&client, &Client::opened, this, [this, &client] {
            events.append(client.state() == Client::State::Open ? "opened" : "opened?");
        });
        connect(&client, &Client::closed, this,
                [this, &client](Client::Cause cause, const QString& reason) {
                    const QString name = QVariant::fromValue(cause).toString();
                    events.append(client.state() == Client::State::Closed ? name : name + "?");
                    text = reason;
                });
    }

    QStringList events;
    QString text;
};

/// A port of this machine that nobody listens on.
inline quint16 unusedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

#endif
