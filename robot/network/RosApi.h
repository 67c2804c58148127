// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_NETWORK_ROSAPI_H
#define ROBOT_NETWORK_ROSAPI_H

#include "robot/network/Parameters.h"
#include "rosbridge/server/ServiceRegistry.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QStringList>

namespace rosbridge::protocol {
struct Service;
} // namespace rosbridge::protocol

namespace rosbridge::server {
class TopicRegistry;
} // namespace rosbridge::server

namespace robot::network {

class TypeDefinitions;

/// The services by which a client finds out what the robot offers: what roslib and viewers ask of
/// ROS's rosapi node. The whole robot is one node.
class RosApi
{
    Q_DECLARE_TR_FUNCTIONS(robot::network::RosApi)

public:
    /// The registries and the types must outlive the API.
    RosApi(const rosbridge::server::TopicRegistry& topics,
           const rosbridge::server::ServiceRegistry& services, const TypeDefinitions& types,
           const Parameters& parameters);

    /// Once, before clients come.
    void addTo(rosbridge::server::ServiceRegistry& services) const;

private:
    using Reply = rosbridge::server::ServiceReply;
    using List = QCborMap (RosApi::*)() const;
    using Lookup = Reply (RosApi::*)(const QString& key) const;

    void add(rosbridge::server::ServiceRegistry& services,
             const rosbridge::protocol::Service& service, List list) const;
    void add(rosbridge::server::ServiceRegistry& services,
             const rosbridge::protocol::Service& service, Lookup lookup) const;
    void addParameter(rosbridge::server::ServiceRegistry& services) const;

    QStringList requestFields(const rosbridge::protocol::Service& service) const;
    QCborMap topics() const;
    QCborMap services() const;
    QCborMap nodes() const;
    QCborMap parameterNames() const;
    QCborMap topicsAndRawTypes() const;
    Reply details(const QString& key, const QString& type) const;
    Reply topicType(const QString& topic) const;
    Reply serviceType(const QString& service) const;
    Reply topicsForType(const QString& type) const;
    Reply nodeDetails(const QString& node) const;
    Reply messageDetails(const QString& type) const;
    Reply requestDetails(const QString& type) const;
    Reply responseDetails(const QString& type) const;

    const rosbridge::server::TopicRegistry& m_topics;
    const rosbridge::server::ServiceRegistry& m_services;
    const TypeDefinitions& m_types;
    Parameters m_parameters;
};

} // namespace robot::network

#endif
