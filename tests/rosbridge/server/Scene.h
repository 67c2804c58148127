// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_LINK_TESTS_SCENE_H
#define ROBOT_LINK_TESTS_SCENE_H

#include "Controller.h"

#include "rosbridge/server/Endpoint.h"
#include "rosbridge/server/ServiceRegistry.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QHostAddress>
#include <QTcpSocket>

/// An endpoint with one topic on a free port of the loopback address.
class Scene
{
public:
    explicit Scene(const rosbridge::server::Limits& limits) : endpoint(topics, services, limits)
    {
        topics.addPublished(topic(), QStringLiteral("test/Picture"));
        isListening = endpoint.listen(QHostAddress::LocalHost, 0);
    }

    static QString topic() { return QStringLiteral("/picture"); }

    void publish(const QByteArray& data)
    {
        endpoint.publish(topic(), {{QStringLiteral("data"), QString::fromLatin1(data)}});
    }

    Controller control;
    rosbridge::server::TopicRegistry topics{control};
    rosbridge::server::ServiceRegistry services{control};
    rosbridge::server::Endpoint endpoint;
    bool isListening = false;
};

/// A peer that says what the test says, and neither reads nor answers a ping.
class LazyPeer
{
public:
    static QByteArray request()
    {
        return "GET / HTTP/1.1\r\nHost: localhost\r\nUpgrade: websocket\r\n"
               "Connection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
               "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n";
    }

    explicit LazyPeer(const Scene& scene, const QByteArray& greeting = request())
    {
        socket.setReadBufferSize(1);
        socket.connectToHost(QHostAddress::LocalHost, scene.endpoint.port());
        socket.write(greeting);
    }

    /// A text frame, masked with zeros. @p text is shorter than 65536 bytes.
    static QByteArray frame(const QByteArray& text)
    {
        QByteArray header("\x81\xfe", 2);
        header += static_cast<char>(text.size() >> 8);
        header += static_cast<char>(text.size() & 0xff);
        if (text.size() < 126)
            header = QByteArray("\x81", 1) + static_cast<char>(0x80 | text.size());
        return header + QByteArray(4, '\0') + text;
    }

    void send(const QByteArray& text) { socket.write(frame(text)); }

    void beginToRead() { socket.setReadBufferSize(0); }

    bool hasReceived(const QByteArray& text) { return received().contains(text); }

    const QByteArray& received()
    {
        m_received += socket.readAll();
        return m_received;
    }

    QTcpSocket socket;

private:
    QByteArray m_received;
};

#endif
