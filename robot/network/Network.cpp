// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/Network.h"

#include "robot/network/Clock.h"
#include "rosbridge/protocol/Address.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QHostAddress>
#include <QHostInfo>

#include <algorithm>

namespace robot::network {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

/// The host's address, preferably IPv4, as clients that are given a name try that as well; a
/// null one if there is none.
QHostAddress addressOf(const QString& host)
{
    const QHostAddress literal(host);
    if (!literal.isNull())
        return literal;
    const QList<QHostAddress> addresses = QHostInfo::fromName(host).addresses();
    const auto v4 = std::find_if(addresses.cbegin(), addresses.cend(), [](const auto& address) {
        return address.protocol() == QAbstractSocket::IPv4Protocol;
    });
    return v4 != addresses.cend() ? *v4 : addresses.value(0);
}

rosbridge::server::ServiceReply trigger(const Control::Answer& answer)
{
    return {
        {{QStringLiteral("success"), answer.success}, {QStringLiteral("message"), answer.message}},
        QString()};
}

} // namespace

Network::Network(const Clock& clock, const rosbridge::server::Limits& limits)
    : m_topics(m_control),
      m_services(m_control),
      m_rosApi(m_topics, m_services, m_types,
               Parameters({{QStringLiteral("/use_sim_time"), true}})),
      m_endpoint(m_topics, m_services, limits),
      m_log(m_endpoint, clock),
      m_clientLog(m_log, QStringLiteral("base"))
{
    m_topics.setMakeRaw([this, &clock](const QString& type, const QCborMap& msg) {
        QCborMap raw = Clock::stamp(clock.now());
        raw.insert(QLatin1String("bytes"), m_serializer.serialize(type, msg));
        return raw;
    });
    m_topics.addPublished(topic::log.name, topic::log.type);
    m_rosApi.addTo(m_services);
    addControlServices();
    addStop();
    keepLog();
    connect(&m_endpoint, &rosbridge::server::Endpoint::left, &m_control,
            [this](const rosbridge::server::Peer& peer) { m_control.leave(peer); });
    connect(&m_endpoint, &rosbridge::server::Endpoint::joined, this, &Network::joined);
}

Network::~Network()
{
    close(); // while there is still a log to write that clients left
}

void Network::setAllowedOrigins(const QStringList& origins)
{
    m_endpoint.setAllowedOrigins(origins);
}

bool Network::listen(const rosbridge::protocol::Address& address, QString* error)
{
    const QHostAddress host = addressOf(address.host);
    if (host.isNull()) {
        *error = tr("cannot listen on %1: no such host; give an address of this computer")
                     .arg(address.toString());
        return false;
    }
    if (m_endpoint.listen(host, address.port))
        return true;
    *error = tr("cannot listen on %1: %2; choose another address or port, or end the program "
                "that uses it")
                 .arg(address.toString(), m_endpoint.errorString());
    return false;
}

void Network::close()
{
    m_endpoint.close();
}

void Network::publish(const QString& topic, const QCborMap& msg)
{
    Q_ASSERT(m_topics.find(topic) && !m_topics.find(topic)->handler);
    m_endpoint.publish(topic, msg);
}

void Network::addControlServices()
{
    m_services.add(service::acquireControl.name,
                   {service::acquireControl.type,
                    {},
                    rosbridge::server::Access::Anyone,
                    [this](const rosbridge::server::Peer& caller, const QCborMap&) {
                        return trigger(m_control.acquire(caller));
                    }});
    m_services.add(service::releaseControl.name,
                   {service::releaseControl.type,
                    {},
                    rosbridge::server::Access::Anyone,
                    [this](const rosbridge::server::Peer& caller, const QCborMap&) {
                        return trigger(m_control.release(caller));
                    }});
}

void Network::addStop()
{
    m_topics.addLatched(topic::stopped.name, topic::stopped.type);
    publishStopped();
    addStopService(service::stop, rosbridge::server::Access::Anyone, &Stop::engage);
    addStopService(service::releaseStop, rosbridge::server::Access::RequiresControl,
                   &Stop::release);
}

void Network::addStopService(const rosbridge::protocol::Service& service,
                             rosbridge::server::Access access, QString (Stop::*call)())
{
    m_services.add(
        service.name,
        {service.type,
         {},
         access,
         [this, call, name = service.name](const rosbridge::server::Peer& caller, const QCborMap&) {
             const QString message = (m_stop.*call)();
             publishStopped();
             m_clientLog.write(Log::Level::Warning,
                               tr("%1 called %2: %3").arg(caller.name, name, message));
             return trigger({true, message});
         }});
}

void Network::publishStopped()
{
    publish(topic::stopped.name, {{QStringLiteral("data"), m_stop.isEngaged()}});
}

void Network::keepLog()
{
    connect(&m_endpoint, &rosbridge::server::Endpoint::joined, this,
            [this](const rosbridge::server::Peer& peer) {
                m_clientLog.write(Log::Level::Info, tr("%1 joined").arg(peer.name));
            });
    connect(&m_endpoint, &rosbridge::server::Endpoint::left, this,
            [this](const rosbridge::server::Peer& peer, const QString& why) {
                m_clientLog.write(Log::Level::Info, tr("%1 left: %2").arg(peer.name, why));
            });
    connect(&m_endpoint, &rosbridge::server::Endpoint::originRefused, this,
            [this](const QString& origin) {
                m_clientLog.write(Log::Level::Warning, tr("a page of %1 was refused").arg(origin));
            });
    connect(&m_endpoint, &rosbridge::server::Endpoint::acceptFailed, this, [this] {
        m_clientLog.write(Log::Level::Error, tr("new clients have to wait: there are no file "
                                                "descriptors or memory left"));
    });
    connect(&m_control, &Control::acquired, this, [this](const rosbridge::server::Peer& peer) {
        m_clientLog.write(Log::Level::Info, tr("%1 took control").arg(peer.name));
    });
    connect(&m_control, &Control::released, this, [this](const rosbridge::server::Peer& peer) {
        m_clientLog.write(Log::Level::Info, tr("%1 released control").arg(peer.name));
    });
    connect(&m_control, &Control::refused, this,
            [this](const rosbridge::server::Peer& peer, const QString& reason) {
                m_clientLog.write(Log::Level::Warning,
                                  tr("%1 was refused control: %2").arg(peer.name, reason));
            });
}

} // namespace robot::network
