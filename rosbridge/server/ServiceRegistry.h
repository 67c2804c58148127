// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERVER_SERVICEREGISTRY_H
#define ROSBRIDGE_SERVER_SERVICEREGISTRY_H

#include "rosbridge/server/Access.h"
#include "rosbridge/server/Peer.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

namespace rosbridge::server {

class Authority;

/// What a service call came to: the response's fields, or the reason there are none.
struct ServiceReply
{
    QCborMap values;
    QString error; ///< empty if the call succeeded

    static ServiceReply failure(const QString& reason) { return {{}, reason}; }
};

/// The services the robot offers. Names are given and kept in the canonical form,
/// "/control/acquire".
class ServiceRegistry
{
    Q_DECLARE_TR_FUNCTIONS(rosbridge::server::ServiceRegistry)

public:
    using Handler = std::function<ServiceReply(const Peer& caller, const QCborMap& args)>;

    struct Service
    {
        QString type;
        QStringList fields; ///< of the request, in the order of its type
        Access access = Access::Anyone;
        Handler handler;
    };

    /// @p authority must outlive the registry.
    explicit ServiceRegistry(const Authority& authority);

    /// Once per name, before clients come.
    void add(const QString& name, const Service& service);

    /// @p name in either form; null if the robot has no such service.
    const Service* find(const QString& name) const;

    /// A client's call. @p args is what rosbridge allows: an object of named fields, a list of
    /// their values in order, or nothing.
    ServiceReply call(const Peer& caller, const QString& name, const QCborValue& args) const;

    /// Sorted by name.
    const QMap<QString, Service>& all() const { return m_services; }

private:
    const Authority& m_authority;
    QMap<QString, Service> m_services;
};

} // namespace rosbridge::server

#endif
