#ifndef ROBOT_ROBOT_H
#define ROBOT_ROBOT_H

#include "robot/Clock.h"
#include "robot/Log.h"
#include "robot/RosApi.h"
#include "robot/endpoint/Control.h"
#include "robot/endpoint/Endpoint.h"
#include "robot/endpoint/Limits.h"
#include "robot/endpoint/ServiceRegistry.h"
#include "robot/endpoint/TopicRegistry.h"

#include <QCborMap>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace robot {

namespace link {
struct Address;
}

/// The simulated robot behind its rosbridge endpoint. Needs an event loop and nothing else;
/// there may be several in one process.
class Robot : public QObject
{
    Q_OBJECT

public:
    /// The same @p seed gives the same world.
    explicit Robot(quint32 seed, const Limits& limits = Limits(), QObject* parent = nullptr);

    quint32 seed() const { return m_seed; }

    /// See Endpoint::setAllowedOrigins(); none at first.
    void setAllowedOrigins(const QStringList& origins);

    /// Starts to serve. Looks up a host name, which may take a while; port 0 takes any free one.
    /// On failure returns false, and @p error says what to do about it.
    bool listen(const link::Address& address, QString* error);

    /// The one clients connect to; 0 if not listening.
    quint16 port() const { return m_endpoint.port(); }

    /// Stops serving; listen() may be called again.
    void close();

    TopicRegistry& topics() { return m_topics; }

    ServiceRegistry& services() { return m_services; }

    /// Sends @p msg to all who subscribed to @p topic, a published topic's canonical name.
    void publish(const QString& topic, const QCborMap& msg);

private:
    void addControlServices();
    void keepLog();

    quint32 m_seed;
    Clock m_clock;
    Control m_control;
    TopicRegistry m_topics;
    ServiceRegistry m_services;
    RosApi m_rosApi;
    Endpoint m_endpoint;
    Log m_log;
    QTimer m_clockTimer;
};

} // namespace robot

#endif
