#include "robot/RosApi.h"

#include "robot/endpoint/TopicRegistry.h"
#include "robot/link/Names.h"

#include <QCborArray>
#include <QJsonArray>
#include <QJsonDocument>

namespace robot {

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

RosApi::RosApi(const TopicRegistry& topics, const ServiceRegistry& services,
               const QCborMap& parameters)
    : m_topics(topics),
      m_services(services),
      m_parameters(parameters)
{
}

void RosApi::addTo(ServiceRegistry& services) const
{
    services.add(
        QStringLiteral("/rosapi/topics"),
        {QStringLiteral("rosapi/Topics"), {}, Access::Anyone, [this](const Peer&, const QCborMap&) {
             return topics();
         }});
    services.add(QStringLiteral("/rosapi/services"),
                 {QStringLiteral("rosapi/Services"),
                  {},
                  Access::Anyone,
                  [this](const Peer&, const QCborMap&) { return this->services(); }});
    services.add(QStringLiteral("/rosapi/topic_type"),
                 {QStringLiteral("rosapi/TopicType"),
                  {QStringLiteral("topic")},
                  Access::Anyone,
                  [this](const Peer&, const QCborMap& args) { return topicType(args); }});
    services.add(QStringLiteral("/rosapi/service_type"),
                 {QStringLiteral("rosapi/ServiceType"),
                  {QStringLiteral("service")},
                  Access::Anyone,
                  [this](const Peer&, const QCborMap& args) { return serviceType(args); }});
    services.add(QStringLiteral("/rosapi/get_param"),
                 {QStringLiteral("rosapi/GetParam"),
                  {QStringLiteral("name"), QStringLiteral("default")},
                  Access::Anyone,
                  [this](const Peer&, const QCborMap& args) { return parameter(args); }});
}

ServiceReply RosApi::topics() const
{
    QCborArray names;
    QCborArray types;
    for (auto topic = m_topics.all().cbegin(); topic != m_topics.all().cend(); ++topic) {
        names.append(topic.key());
        types.append(topic->type);
    }
    return {{{QStringLiteral("topics"), names}, {QStringLiteral("types"), types}}, QString()};
}

ServiceReply RosApi::services() const
{
    QCborArray names;
    for (auto service = m_services.all().cbegin(); service != m_services.all().cend(); ++service)
        names.append(service.key());
    return {{{QStringLiteral("services"), names}}, QString()};
}

ServiceReply RosApi::topicType(const QCborMap& args) const
{
    const QCborValue name = args.value(QLatin1String("topic"));
    if (!name.isString())
        return ServiceReply::failure(tr("topic must be text"));
    const TopicRegistry::Topic* topic = m_topics.find(name.toString());
    return {{{QStringLiteral("type"), topic ? topic->type : QString()}}, QString()};
}

ServiceReply RosApi::serviceType(const QCborMap& args) const
{
    const QCborValue name = args.value(QLatin1String("service"));
    if (!name.isString())
        return ServiceReply::failure(tr("service must be text"));
    const ServiceRegistry::Service* service = m_services.find(name.toString());
    return {{{QStringLiteral("type"), service ? service->type : QString()}}, QString()};
}

ServiceReply RosApi::parameter(const QCborMap& args) const
{
    const QCborValue name = args.value(QLatin1String("name"));
    if (!name.isString())
        return ServiceReply::failure(tr("name must be text"));
    const QCborValue value = m_parameters.value(link::canonicalName(name.toString()));
    const QString fallback = args.value(QLatin1String("default")).toString();
    return {
        {{QStringLiteral("value"), value.isUndefined() ? defaultAsJson(fallback) : toJson(value)}},
        QString()};
}

} // namespace robot
