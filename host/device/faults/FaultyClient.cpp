// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/faults/FaultyClient.h"

#include "host/device/faults/Faults.h"

#include <QTimer>

namespace host::device::faults {

FaultyClient::FaultyClient(const Timeouts& timeouts, Faults& faults)
    : Client(timeouts),
      m_faults(faults)
{
    connect(&m_faults, &Faults::linkDropped, this, [this] {
        if (state() != State::Closed)
            lose();
    });
}

void FaultyClient::open(const rosbridge::protocol::Address& address)
{
    m_isRefused = m_faults.takeRefusal();
    m_link = std::make_unique<QObject>();
    Client::open(address);
}

QString FaultyClient::subscribe(const QString& topic, const QString& type,
                                const SubscribeOptions& options, const Handler& handler)
{
    const auto count = std::make_shared<quint64>(0); // by all copies of the handler together
    return Client::subscribe(topic, type, options, [this, handler, count](const QCborMap& message) {
        if (!m_faults.dropsMessage(++*count))
            handler(message);
    });
}

void FaultyClient::openSocket()
{
    if (m_isRefused)
        endConnecting(rosbridge::websocket::Connector::Failure::Refused, QString());
    else
        Client::openSocket();
}

void FaultyClient::onHandshake()
{
    afterDelay([this] { Client::onHandshake(); });
}

void FaultyClient::onMessage(const QCborMap& message)
{
    if (message.value(QLatin1String("op")) == QLatin1String("service_response"))
        afterDelay([this, message] { Client::onMessage(message); });
    else
        Client::onMessage(message);
}

/// What the link owes is forgotten with it.
void FaultyClient::afterDelay(const std::function<void()>& step)
{
    if (m_faults.delay() == m_faults.delay().zero())
        return step();
    QTimer::singleShot(m_faults.delay(), m_link.get(), [this, step] {
        if (state() != State::Closed)
            step();
    });
}

} // namespace host::device::faults
