// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "LoudRobot.h"

#include "rosbridge/protocol/Codec.h"
#include "rosbridge/websocket/Socket.h"

#include <QTimer>

#include <chrono>

namespace {

using namespace std::chrono_literals;
using namespace rosbridge::websocket;

constexpr auto step = 10ms;
constexpr qint64 mostWaiting = 4000000; // bytes that the network has not taken

void answer(Socket& socket, const QByteArray& text)
{
    const auto message = rosbridge::protocol::decodeText(text, nullptr);
    if (!message || message->value(QLatin1String("op")) != QLatin1String("call_service"))
        return;
    const bool isControl =
        message->value(QLatin1String("service")).toString() == QLatin1String("/control/acquire");
    socket.send(Opcode::Text, rosbridge::protocol::encodeText(
                                  {{QStringLiteral("op"), QStringLiteral("service_response")},
                                   {QStringLiteral("id"), message->value(QLatin1String("id"))},
                                   {QStringLiteral("result"), isControl},
                                   {QStringLiteral("values"),
                                    QCborMap{{QStringLiteral("success"), isControl}}}}));
}

void serve(Socket* socket, const QByteArray& message, int rate, std::atomic<int>* count)
{
    QObject::connect(socket, &Socket::readyRead, socket, [socket] {
        while (const auto item = socket->take())
            answer(*socket, item->data);
    });
    auto* const timer = new QTimer(socket);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, socket, [=] {
        const auto due = rate * step.count() / 1000;
        for (int i = 0; i < due && socket->bytesToWrite() < mostWaiting; ++i, ++*count)
            socket->send(Opcode::Text, message);
    });
    timer->start(step);
}

} // namespace

LoudRobot::LoudRobot(const QByteArray& message, int rate)
{
    m_there.moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(
        &m_there,
        [this, message, rate] {
            m_listener = std::make_unique<Listener>(Listener::Limits{4, 1000000, 5s});
            m_listener->listen(QHostAddress::LocalHost, 0);
            m_address = QStringLiteral("127.0.0.1:%1").arg(m_listener->port());
            QObject::connect(m_listener.get(), &Listener::connected, m_listener.get(),
                             [this, message, rate](Socket* socket) {
                                 socket->setParent(m_listener.get());
                                 serve(socket, message, rate, &m_count);
                             });
        },
        Qt::BlockingQueuedConnection);
}

LoudRobot::~LoudRobot()
{
    QMetaObject::invokeMethod(
        &m_there, [this] { m_listener.reset(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}
