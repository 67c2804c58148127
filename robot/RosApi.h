#ifndef ROBOT_ROSAPI_H
#define ROBOT_ROSAPI_H

#include "robot/endpoint/ServiceRegistry.h"

#include <QCborMap>
#include <QCoreApplication>

namespace robot {

class TopicRegistry;

/// The services by which a client finds out what the robot offers: what it needs of ROS's
/// rosapi node.
class RosApi
{
    Q_DECLARE_TR_FUNCTIONS(robot::RosApi)

public:
    /// @p parameters by canonical name. Everything must outlive the API.
    RosApi(const TopicRegistry& topics, const ServiceRegistry& services,
           const QCborMap& parameters);

    /// Once, before clients come.
    void addTo(ServiceRegistry& services) const;

private:
    ServiceReply topics() const;
    ServiceReply services() const;
    ServiceReply topicType(const QCborMap& args) const;
    ServiceReply serviceType(const QCborMap& args) const;
    ServiceReply parameter(const QCborMap& args) const;

    const TopicRegistry& m_topics;
    const ServiceRegistry& m_services;
    QCborMap m_parameters;
};

} // namespace robot

#endif
