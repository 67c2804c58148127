// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/network/RosApi.h"

#include "robot/network/TypeDetails.h"
#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QCborArray>

namespace robot::network {

namespace service = rosbridge::protocol::service;

using rosbridge::protocol::canonicalName;
using rosbridge::protocol::canonicalType;
using rosbridge::protocol::Service;
using rosbridge::server::Access;
using rosbridge::server::Peer;
using rosbridge::server::ServiceRegistry;
using rosbridge::server::ServiceReply;
using rosbridge::server::TopicRegistry;

namespace {

const QLatin1String node("/quandrel_robot");

Service rosapi(const char* name, const char* type)
{
    return {QLatin1String(name), QLatin1String(type)};
}

QCborMap list(const char* field, const QStringList& texts)
{
    return {{QLatin1String(field), QCborArray::fromStringList(texts)}};
}

ServiceReply text(const char* field, const QString& text)
{
    return {{{QLatin1String(field), text}}, QString()};
}

} // namespace

RosApi::RosApi(const TopicRegistry& topics, const ServiceRegistry& services,
               const TypeDefinitions& types, const Parameters& parameters)
    : m_topics(topics),
      m_services(services),
      m_types(types),
      m_parameters(parameters)
{
}

void RosApi::addTo(ServiceRegistry& services) const
{
    add(services, service::topics, &RosApi::topics);
    add(services, service::services, &RosApi::services);
    add(services, rosapi("/rosapi/nodes", "rosapi/Nodes"), &RosApi::nodes);
    add(services, rosapi("/rosapi/get_param_names", "rosapi/GetParamNames"),
        &RosApi::parameterNames);
    add(services, rosapi("/rosapi/topics_and_raw_types", "rosapi/TopicsAndRawTypes"),
        &RosApi::topicsAndRawTypes);
    add(services, rosapi("/rosapi/topic_type", "rosapi/TopicType"), &RosApi::topicType);
    add(services, rosapi("/rosapi/service_type", "rosapi/ServiceType"), &RosApi::serviceType);
    add(services, rosapi("/rosapi/topics_for_type", "rosapi/TopicsForType"),
        &RosApi::topicsForType);
    add(services, rosapi("/rosapi/node_details", "rosapi/NodeDetails"), &RosApi::nodeDetails);
    add(services, rosapi("/rosapi/message_details", "rosapi/MessageDetails"),
        &RosApi::messageDetails);
    add(services, rosapi("/rosapi/service_request_details", "rosapi/ServiceRequestDetails"),
        &RosApi::requestDetails);
    add(services, rosapi("/rosapi/service_response_details", "rosapi/ServiceResponseDetails"),
        &RosApi::responseDetails);
    addParameter(services);
}

/// A service without a request.
void RosApi::add(ServiceRegistry& services, const Service& service, List list) const
{
    services.add(service.name,
                 {service.type, {}, Access::Anyone, [this, list](const Peer&, const QCborMap&) {
                      return Reply{(this->*list)(), QString()};
                  }});
}

/// A service whose request is one text.
void RosApi::add(ServiceRegistry& services, const Service& service, Lookup lookup) const
{
    const QStringList fields = requestFields(service);
    services.add(service.name,
                 {service.type, fields, Access::Anyone,
                  [this, lookup, field = fields.first()](const Peer&, const QCborMap& args) {
                      const QCborValue key = args.value(field);
                      return key.isString() ? (this->*lookup)(key.toString())
                                            : Reply::failure(tr("%1 must be text").arg(field));
                  }});
}

void RosApi::addParameter(ServiceRegistry& services) const
{
    services.add(service::parameter.name,
                 {service::parameter.type, requestFields(service::parameter), Access::Anyone,
                  [this](const Peer&, const QCborMap& args) {
                      const QCborValue name = args.value(QLatin1String("name"));
                      const QString fallback = args.value(QLatin1String("default")).toString();
                      return name.isString()
                                 ? text("value", m_parameters.json(name.toString(), fallback))
                                 : Reply::failure(tr("name must be text"));
                  }});
}

QStringList RosApi::requestFields(const Service& service) const
{
    return TypeDetails(m_types, service.type + QLatin1String("Request")).fieldNames();
}

QCborMap RosApi::topics() const
{
    QStringList types;
    for (const TopicRegistry::Topic& topic : m_topics.all())
        types.append(topic.type);
    QCborMap topics = list("topics", m_topics.all().keys());
    topics.insert(QStringLiteral("types"), QCborArray::fromStringList(types));
    return topics;
}

QCborMap RosApi::services() const
{
    return list("services", m_services.all().keys());
}

QCborMap RosApi::nodes() const
{
    return list("nodes", {node});
}

QCborMap RosApi::parameterNames() const
{
    return list("names", m_parameters.names());
}

QCborMap RosApi::topicsAndRawTypes() const
{
    QStringList definitions;
    for (const TopicRegistry::Topic& topic : m_topics.all())
        definitions.append(TypeDetails(m_types, topic.type).fullText());
    QCborMap topics = this->topics();
    topics.insert(QStringLiteral("typedefs_full_text"), QCborArray::fromStringList(definitions));
    return topics;
}

RosApi::Reply RosApi::topicType(const QString& topic) const
{
    const TopicRegistry::Topic* const found = m_topics.find(topic);
    return text("type", found ? found->type : QString());
}

RosApi::Reply RosApi::serviceType(const QString& service) const
{
    const ServiceRegistry::Service* const found = m_services.find(service);
    return text("type", found ? found->type : QString());
}

RosApi::Reply RosApi::topicsForType(const QString& type) const
{
    const QString wanted = canonicalType(type);
    QStringList names;
    for (auto topic = m_topics.all().cbegin(); topic != m_topics.all().cend(); ++topic) {
        if (topic->type == wanted)
            names.append(topic.key());
    }
    return {list("topics", names), QString()};
}

RosApi::Reply RosApi::nodeDetails(const QString& name) const
{
    const bool isOurs = canonicalName(name) == node;
    QStringList subscribing;
    QStringList publishing;
    for (auto topic = m_topics.all().cbegin(); isOurs && topic != m_topics.all().cend(); ++topic)
        (topic->handler ? subscribing : publishing).append(topic.key());
    QCborMap details = list("services", isOurs ? m_services.all().keys() : QStringList());
    details.insert(QStringLiteral("subscribing"), QCborArray::fromStringList(subscribing));
    details.insert(QStringLiteral("publishing"), QCborArray::fromStringList(publishing));
    return {details, QString()};
}

/// Of the type @p key, which the client knows as @p type.
RosApi::Reply RosApi::details(const QString& key, const QString& type) const
{
    const TypeDetails details(m_types, key);
    if (!details.isKnown())
        return Reply::failure(tr("this robot has no type \"%1\"").arg(type));
    return {{{QStringLiteral("typedefs"), details.withNested()}}, QString()};
}

RosApi::Reply RosApi::messageDetails(const QString& type) const
{
    return details(canonicalType(type), type);
}

RosApi::Reply RosApi::requestDetails(const QString& type) const
{
    return details(canonicalType(type) + QLatin1String("Request"), type);
}

RosApi::Reply RosApi::responseDetails(const QString& type) const
{
    return details(canonicalType(type) + QLatin1String("Response"), type);
}

} // namespace robot::network
