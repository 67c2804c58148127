// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_TESTS_ROBOT_WATCHER_H
#define QUANDREL_TESTS_ROBOT_WATCHER_H

#include "Patience.h"

#include "rosbridge/client/Client.h"

#include <QCborMap>
#include <QStringList>
#include <QVector>

#include <map>

/// A client, and what the robot told it.
class Watcher
{
public:
    using Client = rosbridge::client::Client;

    explicit Watcher(quint16 port)
    {
        QObject::connect(&client, &Client::statusReceived,
                         [this](const QString&, const QString& text) { complaints.append(text); });
        client.open({QStringLiteral("127.0.0.1"), port});
    }

    bool isOpen() const { return client.state() == Client::State::Open; }

    void call(const char* service, const QCborMap& args = {})
    {
        client.callService(
            QLatin1String(service), args,
            [this](const Client::Result& result) { answers.append(result); },
            std::chrono::milliseconds(patience));
    }

    /// Every message of @p topic from now on ends up in messages[topic].
    void subscribe(const QString& topic, const QString& type,
                   Client::Compression compression = Client::Compression::None)
    {
        Client::SubscribeOptions options;
        options.compression = compression;
        client.subscribe(topic, type, options,
                         [this, topic](const QCborMap& msg) { messages[topic].append(msg); });
    }

    Client client;
    QStringList complaints;
    QVector<Client::Result> answers;
    std::map<QString, QVector<QCborMap>> messages;
};

#endif
