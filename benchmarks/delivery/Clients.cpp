// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Clients.h"

#include <QTest>
#include <QUrl>

#include <algorithm>

namespace {

constexpr int patience = 30000;

} // namespace

Clients::Clients(const QString& address, int number)
{
    for (int i = 0; i < number; ++i) {
        QWebSocket& socket = m_sockets.emplace_back();
        connect(&socket, &QWebSocket::textMessageReceived, this, [this](const QString& text) {
            ++m_count;
            m_newest = text.toUtf8();
        });
        connect(&socket, &QWebSocket::binaryMessageReceived, this, [this](const QByteArray& bytes) {
            ++m_count;
            m_newest = bytes;
        });
        socket.open(QUrl(QStringLiteral("ws://") + address));
    }
}

bool Clients::waitUntilConnected()
{
    return QTest::qWaitFor([this] { return areConnected(); }, patience);
}

bool Clients::areConnected() const
{
    return std::all_of(m_sockets.begin(), m_sockets.end(),
                       [](const QWebSocket& socket) { return socket.isValid(); });
}

void Clients::subscribe(const QString& compression)
{
    const QString request = QStringLiteral(R"({"op":"subscribe","topic":"/scan",)"
                                           R"("type":"sensor_msgs/LaserScan","compression":"%1"})")
                                .arg(compression);
    for (QWebSocket& socket : m_sockets)
        socket.sendTextMessage(request);
}
