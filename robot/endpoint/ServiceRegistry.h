#ifndef ROBOT_ENDPOINT_SERVICEREGISTRY_H
#define ROBOT_ENDPOINT_SERVICEREGISTRY_H

#include "robot/endpoint/Access.h"
#include "robot/endpoint/Peer.h"

#include <QCborMap>
#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

namespace robot {

class Control;

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
    Q_DECLARE_TR_FUNCTIONS(robot::ServiceRegistry)

public:
    using Handler = std::function<ServiceReply(const Peer& caller, const QCborMap& args)>;

    struct Service
    {
        QString type;
        QStringList fields; ///< of the request, in the order of its type
        Access access = Access::Anyone;
        Handler handler;
    };

    /// @p control must outlive the registry.
    explicit ServiceRegistry(const Control& control);

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
    const Control& m_control;
    QMap<QString, Service> m_services;
};

} // namespace robot

#endif
