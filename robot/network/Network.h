// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_NETWORK_H
#define ROBOT_NETWORK_NETWORK_H

#include "robot/network/Control.h"
#include "robot/network/Log.h"
#include "robot/network/LogWriter.h"
#include "robot/network/RosApi.h"
#include "robot/network/Serializer.h"
#include "robot/network/Stop.h"
#include "robot/network/TypeDefinitions.h"
#include "rosbridge/server/Endpoint.h"
#include "rosbridge/server/Limits.h"
#include "rosbridge/server/ServiceRegistry.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QCborMap>
#include <QObject>
#include <QStringList>

namespace rosbridge::protocol {
struct Address;
struct Service;
} // namespace rosbridge::protocol

namespace robot::network {

class Clock;

/// What the robot's parts share to deal with clients: their topics and services, who is in control,
/// the stop, the log, and the endpoint that serves them. Knows nothing of what the robot is or
/// does.
class Network : public QObject
{
    Q_OBJECT

public:
    /// @p clock gives the log its stamps and must outlive the network.
    Network(const Clock& clock, const rosbridge::server::Limits& limits);
    ~Network() override;

    /// See Endpoint::setAllowedOrigins(); none at first.
    void setAllowedOrigins(const QStringList& origins);

    /// Starts to serve. Looks up a host name, which may take a while; port 0 takes any free one.
    /// On failure returns false, and @p error says what to do about it.
    bool listen(const rosbridge::protocol::Address& address, QString* error);

    /// The one clients connect to; 0 if not listening.
    quint16 port() const { return m_endpoint.port(); }

    /// Stops serving; listen() may be called again.
    void close();

    /// For the parts to add theirs, before clients come.
    rosbridge::server::TopicRegistry& topics() { return m_topics; }
    rosbridge::server::ServiceRegistry& services() { return m_services; }

    /// For the parts to add types that the simulated robot does not use, before clients come.
    TypeDefinitions& types() { return m_types; }

    /// Tells when the client in control gives it back, which ends what it had commanded.
    const Control& control() const { return m_control; }

    /// Tells the parts when to stop, and why they may not obey.
    const Stop& stop() const { return m_stop; }

    /// The robot's diary; each part has a LogWriter for it.
    Log& log() { return m_log; }

    /// Sends @p msg to all who subscribed to @p topic, a published topic's canonical name.
    void publish(const QString& topic, const QCborMap& msg);

    /// Whether anybody is connected.
    bool hasClients() const { return m_endpoint.hasClients(); }

    /// Whether anybody would get a message of @p topic now; else it need not be made.
    bool hasSubscribers(const QString& topic) const { return m_endpoint.hasSubscribers(topic); }

Q_SIGNALS:
    /// A client is connected and has not been answered yet.
    void joined();

private:
    void addControlServices();
    void addStop();
    void addStopService(const rosbridge::protocol::Service& service,
                        rosbridge::server::Access access, QString (Stop::*call)());
    void publishStopped();
    void keepLog();

    TypeDefinitions m_types;
    Serializer m_serializer{m_types};
    Control m_control;
    Stop m_stop;
    rosbridge::server::TopicRegistry m_topics;
    rosbridge::server::ServiceRegistry m_services;
    RosApi m_rosApi;
    rosbridge::server::Endpoint m_endpoint;
    Log m_log;
    LogWriter m_clientLog;
};

} // namespace robot::network

#endif
