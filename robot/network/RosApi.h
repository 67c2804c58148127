#ifndef ROBOT_NETWORK_ROSAPI_H
#define ROBOT_NETWORK_ROSAPI_H

#include "rosbridge/server/ServiceRegistry.h"

#include <QCborMap>
#include <QCoreApplication>

namespace rosbridge::server {
class TopicRegistry;
} // namespace rosbridge::server

namespace robot::network {

/// The services by which a client finds out what the robot offers: what it needs of ROS's
/// rosapi node.
class RosApi
{
    Q_DECLARE_TR_FUNCTIONS(robot::network::RosApi)

public:
    /// @p parameters by canonical name. Everything must outlive the API.
    RosApi(const rosbridge::server::TopicRegistry& topics,
           const rosbridge::server::ServiceRegistry& services, const QCborMap& parameters);

    /// Once, before clients come.
    void addTo(rosbridge::server::ServiceRegistry& services) const;

private:
    rosbridge::server::ServiceReply topics() const;
    rosbridge::server::ServiceReply services() const;
    rosbridge::server::ServiceReply topicType(const QCborMap& args) const;
    rosbridge::server::ServiceReply serviceType(const QCborMap& args) const;
    rosbridge::server::ServiceReply parameter(const QCborMap& args) const;

    const rosbridge::server::TopicRegistry& m_topics;
    const rosbridge::server::ServiceRegistry& m_services;
    QCborMap m_parameters;
};

} // namespace robot::network

#endif
