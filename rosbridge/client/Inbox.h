// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_CLIENT_INBOX_H
#define ROSBRIDGE_CLIENT_INBOX_H

#include <QCborMap>
#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

namespace rosbridge::client {

/// What arrives at the client end of the link, on its way to whoever waits for it: answers to
/// service calls, messages of topics, status messages. Knows nothing of the socket.
///
/// It may be deleted from inside its own signals and callbacks.
class Inbox : public QObject
{
    Q_OBJECT

public:
    /// The answer to a service call.
    struct Result
    {
        bool ok = false;
        QCborMap values; ///< as the service gave them, also with a failure if it gave any
        QString error;   ///< for a person to read; empty if ok
    };

    using Callback = std::function<void(const Result&)>;
    using Handler = std::function<void(const QCborMap& msg)>;

    struct PendingCall
    {
        QString service;
        Callback callback;
    };

    using QObject::QObject;

    /// @p callback gets one answer: the server's, or the one given to answer() before.
    void addCall(const QString& id, const PendingCall& call);

    /// Answers the call @p id; does nothing if it was answered already, or is unknown.
    void answer(const QString& id, const Result& result);

    /// @p handler gets the messages of @p topic, in its canonical form.
    void addSubscription(const QString& id, const QString& topic, const Handler& handler);

    /// The topic of the subscription that ends by this; empty if there was none with this id.
    QString removeSubscription(const QString& id);

    /// Of the topics that are subscribed to, the one whose name stands in @p bytes, a part of a
    /// message as it came; empty if none does.
    QString topicIn(const QByteArray& bytes) const;

    /// Ends all subscriptions, and returns the calls that nothing answers any more.
    QHash<QString, PendingCall> clear();

    /// One message of the server.
    void receive(const QCborMap& message);

Q_SIGNALS:
    /// @p id is that of the request it is about, where it is about one. What was wrong with a call
    /// that waits is left to its answer.
    void statusReceived(const QString& level, const QString& text, const QString& id);

    /// The message was not understood and is ignored; @p text says why.
    void malformedReceived(const QString& text);

private:
    struct Subscription
    {
        QString topic;
        Handler handler;
    };

    void receivePublish(const QCborMap& message);
    void receiveServiceResponse(const QCborMap& message);
    void receiveStatus(const QCborMap& message);

    QHash<QString, PendingCall> m_calls;
    QHash<QString, Subscription> m_subscriptions;
};

} // namespace rosbridge::client

#endif
