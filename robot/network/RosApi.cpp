#include "robot/network/RosApi.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/server/TopicRegistry.h"

#include <QCborArray>
#include <QJsonArray>
#include <QJsonDocument>

namespace robot::network {

namespace service = rosbridge::protocol::service;

namespace {

/// JSON of any value: QJsonDocument knows only arrays and objects.
QString toJson(const QCborValue& value)
{
    const QByteArray array =
        QJsonDocument(QJsonArray{value.toJsonValue()}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

/// rosapi takes a default that is not JSON for plain text, and none for null.
QString defaultAsJson(const QString& text)
{
    if (text.isEmpty())
        return QStringLiteral("null");
    const QJsonDocument document = QJsonDocument::fromJson('[' + text.toUtf8() + ']');
    if (document.isArray() && document.array().size() == 1)
        return toJson(QCborValue::fromJsonValue(document.array().first()));
    return toJson(text);
}

} // namespace

RosApi::RosApi(const rosbridge::server::TopicRegistry& topics,
               const rosbridge::server::ServiceRegistry& services, const QCborMap& parameters)
    : m_topics(topics),
      m_services(services),
      m_parameters(parameters)
{
}

void RosApi::addTo(rosbridge::server::ServiceRegistry& services) const
{
    services.add(service::topics.name,
                 {service::topics.type,
                  {},
                  rosbridge::server::Access::Anyone,
                  [this](const rosbridge::server::Peer&, const QCborMap&) { return topics(); }});
    services.add(service::services.name, {service::services.type,
                                          {},
                                          rosbridge::server::Access::Anyone,
                                          [this](const rosbridge::server::Peer&, const QCborMap&) {
                                              return this->services();
                                          }});
    services.add(
        QStringLiteral("/rosapi/topic_type"),
        {QStringLiteral("rosapi/TopicType"),
         {QStringLiteral("topic")},
         rosbridge::server::Access::Anyone,
         [this](const rosbridge::server::Peer&, const QCborMap& args) { return topicType(args); }});
    services.add(QStringLiteral("/rosapi/service_type"),
                 {QStringLiteral("rosapi/ServiceType"),
                  {QStringLiteral("service")},
                  rosbridge::server::Access::Anyone,
                  [this](const rosbridge::server::Peer&, const QCborMap& args) {
                      return serviceType(args);
                  }});
    services.add(
        service::parameter.name,
        {service::parameter.type,
         {QStringLiteral("name"), QStringLiteral("default")},
         rosbridge::server::Access::Anyone,
         [this](const rosbridge::server::Peer&, const QCborMap& args) { return parameter(args); }});
}

rosbridge::server::ServiceReply RosApi::topics() const
{
    QCborArray names;
    QCborArray types;
    for (auto topic = m_topics.all().cbegin(); topic != m_topics.all().cend(); ++topic) {
        names.append(topic.key());
        types.append(topic->type);
    }
    return {{{QStringLiteral("topics"), names}, {QStringLiteral("types"), types}}, QString()};
}

rosbridge::server::ServiceReply RosApi::services() const
{
    QCborArray names;
    for (auto service = m_services.all().cbegin(); service != m_services.all().cend(); ++service)
        names.append(service.key());
    return {{{QStringLiteral("services"), names}}, QString()};
}

rosbridge::server::ServiceReply RosApi::topicType(const QCborMap& args) const
{
    const QCborValue name = args.value(QLatin1String("topic"));
    if (!name.isString())
        return rosbridge::server::ServiceReply::failure(tr("topic must be text"));
    const rosbridge::server::TopicRegistry::Topic* topic = m_topics.find(name.toString());
    return {{{QStringLiteral("type"), topic ? topic->type : QString()}}, QString()};
}

rosbridge::server::ServiceReply RosApi::serviceType(const QCborMap& args) const
{
    const QCborValue name = args.value(QLatin1String("service"));
    if (!name.isString())
        return rosbridge::server::ServiceReply::failure(tr("service must be text"));
    const rosbridge::server::ServiceRegistry::Service* service = m_services.find(name.toString());
    return {{{QStringLiteral("type"), service ? service->type : QString()}}, QString()};
}

rosbridge::server::ServiceReply RosApi::parameter(const QCborMap& args) const
{
    const QCborValue name = args.value(QLatin1String("name"));
    if (!name.isString())
        return rosbridge::server::ServiceReply::failure(tr("name must be text"));
    const QCborValue value =
        m_parameters.value(rosbridge::protocol::canonicalName(name.toString()));
    const QString fallback = args.value(QLatin1String("default")).toString();
    return {
        {{QStringLiteral("value"), value.isUndefined() ? defaultAsJson(fallback) : toJson(value)}},
        QString()};
}

} // namespace robot::network
