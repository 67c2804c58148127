// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Whatever a client sends, the robot answers in its protocol and keeps to its limits.
#include "LinkInput.h"
#include "Require.h"

#include "robot/network/Control.h"
#include "robot/network/Parameters.h"
#include "robot/network/RobotLimits.h"
#include "robot/network/RosApi.h"
#include "robot/network/TypeDefinitions.h"
#include "rosbridge/protocol/Codec.h"
#include "rosbridge/server/Conversation.h"
#include "rosbridge/server/Publication.h"
#include "rosbridge/server/ServiceRegistry.h"
#include "rosbridge/server/TopicRegistry.h"

#include <cmath>

using namespace robot::network;
using namespace rosbridge::server;
using namespace std::chrono_literals;

namespace {

/// Small ones, so that they are met.
Limits limits()
{
    Limits limits = robot::network::robotLimits();
    limits.textLength = 64;
    limits.subscriptions = 2;
    limits.advertisements = 1;
    limits.queueLength = 3;
    limits.queueBytes = 256;
    return limits;
}

/// What a robot serves: topics, commands with and without control, services.
class Offer
{
public:
    Offer()
    {
        topics.addPublished(QStringLiteral("/clock"), QStringLiteral("rosgraph_msgs/Clock"));
        topics.addPublished(QStringLiteral("/scan"), QStringLiteral("sensor_msgs/LaserScan"));
        const auto obey = [](const Peer&, const QCborMap& msg) {
            return msg.isEmpty() ? QStringLiteral("the message is empty") : QString();
        };
        topics.addCommand(QStringLiteral("/cmd_vel"), QStringLiteral("geometry_msgs/Twist"),
                          Access::RequiresControl, obey);
        topics.addCommand(QStringLiteral("/chatter"), QStringLiteral("std_msgs/String"),
                          Access::Anyone, obey);
        api.addTo(services);
        const QString type = QStringLiteral("std_srvs/Trigger");
        services.add(QStringLiteral("/control/acquire"),
                     {type, {}, Access::Anyone, [this](const Peer& caller, const QCborMap&) {
                          return triggered(control.acquire(caller));
                      }});
        services.add(QStringLiteral("/control/release"),
                     {type, {}, Access::Anyone, [this](const Peer& caller, const QCborMap&) {
                          return triggered(control.release(caller));
                      }});
        services.add(QStringLiteral("/reset"),
                     {type, {}, Access::RequiresControl, [](const Peer&, const QCborMap& args) {
                          return ServiceReply{args, QString()};
                      }});
    }

    Control control;
    TopicRegistry topics{control};
    ServiceRegistry services{control};

private:
    static ServiceReply triggered(const Control::Answer& answer)
    {
        return {{{QStringLiteral("success"), answer.success},
                 {QStringLiteral("message"), answer.message}},
                QString()};
    }

    TypeDefinitions types;
    RosApi api{topics, services, types, Parameters({{QStringLiteral("/use_sim_time"), true}})};
};

/// Counts what the robot sends, and requires that a client can make sense of it.
class Listener
{
public:
    /// What comes from now on answers the message with this id.
    explicit Listener(const QCborValue& id) : m_id(id) {}

    void hear(const EncodedMessage& frame, Outbox::Kind kind)
    {
        require(frame.bytes.size() <= rosbridge::protocol::maximumMessageSize);
        const std::optional<QCborMap> message =
            frame.encoding == Encoding::Json
                ? rosbridge::protocol::decodeText(frame.bytes, nullptr)
                : rosbridge::protocol::decodeBinary(frame.bytes, nullptr);
        require(message.has_value());
        const QString op = message->value(QLatin1String("op")).toString();
        require((op == QLatin1String("publish")) == (kind == Outbox::Kind::Topic));
        if (op == QLatin1String("publish")) {
            ++publications;
            return;
        }
        require(isSame(message->value(QLatin1String("id")), m_id));
        if (op == QLatin1String("service_response")) {
            ++responses;
            const QCborValue values = message->value(QLatin1String("values"));
            const bool ok = message->value(QLatin1String("result")).toBool();
            require(ok ? values.isMap() : !values.toString().isEmpty());
        } else {
            require(op == QLatin1String("status"));
            ++statuses;
            require(!message->value(QLatin1String("msg")).toString().isEmpty());
        }
    }

    int publications = 0;
    int responses = 0;
    int statuses = 0;

private:
    /// JSON has one kind of number.
    static bool isSame(const QCborValue& a, const QCborValue& b)
    {
        return a == b || ((a.isInteger() || a.isDouble()) && a.toDouble() == b.toDouble());
    }

    QCborValue m_id;
};

/// The id that answers to a message have; undefined for none.
QCborValue idOf(const QCborMap& message, int textLength)
{
    QCborValue id = message.value(QLatin1String("id"));
    const bool isNumber = id.isInteger() || (id.isDouble() && std::isfinite(id.toDouble()));
    const bool isText = id.isString() && id.toString().size() <= textLength;
    return isNumber || isText ? id : QCborValue(QCborValue::Undefined);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Offer offer;
    static const Publication clock(QStringLiteral("/clock"),
                                   {{QStringLiteral("secs"), 7}, {QStringLiteral("nsecs"), 0}});
    static const Publication scan(
        QStringLiteral("/scan"),
        {{QStringLiteral("ranges"), rosbridge::protocol::typedArray({1.5F, -1.0F, 8.0F})},
         {QStringLiteral("data"), QByteArray(64, '\xff')}});

    const Peer peer{1, QStringLiteral("client 1 (127.0.0.1:51344)")};
    const Limits bounds = limits();
    Listener listener{QCborValue(QCborValue::Undefined)};
    Conversation conversation(peer, offer.topics, offer.services, bounds,
                              [&listener](const EncodedMessage& frame, Outbox::Kind kind) {
                                  listener.hear(frame, kind);
                              });
    Conversation::Time now{0};
    for (const InputFrame& frame :
         framesOf({reinterpret_cast<const char*>(data), static_cast<int>(size)})) {
        QString error;
        const std::optional<QCborMap> message = decode(frame, &error);
        listener = Listener(idOf(message.value_or(QCborMap()), bounds.textLength));
        if (message)
            conversation.handle(*message);
        else
            conversation.tell(Conversation::Level::Error, error);
        require(listener.publications == 0 && listener.responses <= 1 && listener.statuses <= 3);

        now += 10ms;
        conversation.offer(clock, now);
        conversation.offer(scan, now);
    }

    // More than all queues hold together; what they kept of it goes out in the end.
    const int most = bounds.subscriptions * bounds.queueLength;
    for (int i = 0; i <= most; ++i) {
        conversation.offer(clock, now);
        conversation.offer(scan, now);
    }
    listener.publications = 0;
    while (const std::optional<Conversation::Time> due = conversation.due()) {
        conversation.sendDue(*due);
        require(listener.publications <= most);
    }
    offer.control.leave(peer);
    return 0;
}
