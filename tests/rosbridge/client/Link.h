// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_LINK_H
#define ROBOT_LINK_TESTS_LINK_H

#include "Peer.h"

#include <QtTest>

#include <memory>

/// A text field of @p message; empty if there is none.
inline QString text(const QCborMap& message, const char* field)
{
    return message.value(QLatin1String(field)).toString();
}

inline QCborMap response(const QString& id, bool result, const QCborValue& values)
{
    return {{QStringLiteral("op"), QStringLiteral("service_response")},
            {QStringLiteral("id"), id},
            {QStringLiteral("result"), result},
            {QStringLiteral("values"), values}};
}

inline QCborMap publication(const QString& topic, const QCborMap& msg)
{
    return {{QStringLiteral("op"), QStringLiteral("publish")},
            {QStringLiteral("topic"), topic},
            {QStringLiteral("msg"), msg}};
}

inline QCborMap number(int value)
{
    return {{QStringLiteral("data"), value}};
}

/// A client whose link to a peer is open.
class Link
{
public:
    Link()
    {
        client->open(peer.address());
        QTRY_VERIFY_WITH_TIMEOUT(
            peer.socket() && client->state() == rosbridge::client::Client::State::Open, patience);
    }

    /// The next message that the peer got; empty if none comes.
    QCborMap next()
    {
        const bool isThere =
            QTest::qWaitFor([this] { return peer.messages().size() > m_read; }, patience);
        return isThere ? peer.messages().at(m_read++) : QCborMap();
    }

    /// Returns when all that either end has sent so far has reached the other.
    void settle()
    {
        bool isAnswered = false;
        client->callService(
            "settle", {}, [&](const rosbridge::client::Client::Result&) { isAnswered = true; },
            std::chrono::milliseconds(patience));
        QString id;
        while (id.isEmpty()) {
            const QCborMap message = next();
            QVERIFY(!message.isEmpty());
            if (text(message, "service") == "/settle")
                id = text(message, "id");
        }
        peer.send(response(id, true, QCborMap()));
        QTRY_VERIFY_WITH_TIMEOUT(isAnswered, patience);
    }

    /// Returns when a call made now has run into its timeout.
    void waitForTimeout(std::chrono::milliseconds timeout)
    {
        bool isOver = false;
        client->callService(
            "never", {}, [&](const rosbridge::client::Client::Result&) { isOver = true; }, timeout);
        QTRY_VERIFY_WITH_TIMEOUT(isOver, patience);
    }

    Peer peer;
    std::unique_ptr<rosbridge::client::Client> client =
        std::make_unique<rosbridge::client::Client>(noHurry());

private:
    int m_read = 0;
};

#endif
