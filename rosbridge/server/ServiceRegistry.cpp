// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/server/ServiceRegistry.h"

#include "rosbridge/protocol/CanonicalName.h"
#include "rosbridge/server/Authority.h"

#include <QCborArray>

#include <optional>

namespace rosbridge::server {

namespace {

/// The arguments by name; nothing if they do not fit @p fields.
std::optional<QCborMap> named(const QCborValue& args, const QStringList& fields)
{
    if (args.isUndefined() || args.isNull())
        return QCborMap();
    if (args.isMap())
        return args.toMap();
    const QCborArray list = args.toArray();
    if (!args.isArray() || list.size() > fields.size())
        return std::nullopt;
    QCborMap map;
    for (int i = 0; i < static_cast<int>(list.size()); ++i)
        map.insert(fields.at(i), list.at(i));
    return map;
}

} // namespace

ServiceRegistry::ServiceRegistry(const Authority& authority) : m_authority(authority) {}

void ServiceRegistry::add(const QString& name, const Service& service)
{
    Q_ASSERT(name == protocol::canonicalName(name));
    Q_ASSERT(!m_services.contains(name));
    m_services.insert(name, service);
}

const ServiceRegistry::Service* ServiceRegistry::find(const QString& name) const
{
    const auto service = m_services.constFind(protocol::canonicalName(name));
    return service == m_services.cend() ? nullptr : &*service;
}

ServiceReply ServiceRegistry::call(const Peer& caller, const QString& name,
                                   const QCborValue& args) const
{
    const Service* service = find(name);
    if (!service)
        return ServiceReply::failure(
            tr("this robot has no service \"%1\"; /rosapi/services lists them").arg(name));
    const std::optional<QCborMap> fields = named(args, service->fields);
    if (!fields)
        return ServiceReply::failure(
            tr("args of \"%1\" must be an object, or a list of at most %2 values")
                .arg(name)
                .arg(service->fields.size()));
    const QString refusal =
        service->access == Access::RequiresControl ? m_authority.refusal(caller) : QString();
    return refusal.isEmpty() ? service->handler(caller, *fields) : ServiceReply::failure(refusal);
}

} // namespace rosbridge::server
