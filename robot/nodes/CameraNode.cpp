// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/nodes/CameraNode.h"

#include "robot/network/Network.h"
#include "robot/nodes/RosMessages.h"
#include "robot/simulation/CameraView.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QBuffer>
#include <QCborArray>
#include <QImage>
#include <QStringList>

#include <utility>

namespace robot::nodes {

namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

namespace {

const QString& videoMode()
{
    static const QString name = QStringLiteral("video_mode");
    return name;
}

/// Empty if Qt cannot write it.
QByteArray jpeg(const QImage& picture)
{
    constexpr int quality =
        80; // of 100: a viewer sees no difference, and it is a third of the size
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "jpeg", quality);
    return bytes;
}

/// The lists of a dynamic_reconfigure/Config.
const QStringList& configLists()
{
    static const QStringList names{QStringLiteral("bools"), QStringLiteral("ints"),
                                   QStringLiteral("strs"), QStringLiteral("doubles"),
                                   QStringLiteral("groups")};
    return names;
}

} // namespace

CameraNode::CameraNode(network::Network& network, const simulation::World& world)
    : m_network(network),
      m_log(network.log(), QStringLiteral("base")),
      m_world(world)
{
    network.topics().addPublished(topic::cameraInfo.name, topic::cameraInfo.type);
    network.topics().addFleeting(topic::cameraImage.name, topic::cameraImage.type);
    network.services().add(service::setCamera.name,
                           {service::setCamera.type,
                            {QStringLiteral("config")},
                            rosbridge::server::Access::RequiresControl,
                            [this](const rosbridge::server::Peer&, const QCborMap& args) {
                                return setParameters(args);
                            }});
}

void CameraNode::step(simulation::Time now)
{
    m_now = now;
    const std::optional<simulation::CameraInfo> frame = m_camera.takeFrame(now);
    if (frame && m_network.hasSubscribers(topic::cameraInfo.name))
        m_network.publish(topic::cameraInfo.name, toMessage(*frame));
    if (frame && m_network.hasSubscribers(topic::cameraImage.name))
        publishPicture(*frame);
}

void CameraNode::publishPicture(const simulation::CameraInfo& info)
{
    const QByteArray data = jpeg(simulation::CameraView(m_world, info).picture());
    if (!data.isEmpty())
        m_network.publish(topic::cameraImage.name,
                          compressedImageMessage(info.header, QStringLiteral("jpeg"), data));
    else if (!std::exchange(m_hasFailed, true))
        m_log.write(network::Log::Level::Error,
                    tr("the camera has no pictures: Qt's plugin for JPEG is missing"));
}

rosbridge::server::ServiceReply CameraNode::setParameters(const QCborMap& args)
{
    const QCborValue config = args.value(QLatin1String("config"));
    if (!config.isMap())
        return rosbridge::server::ServiceReply::failure(
            tr("config must be an object with the list strs"));
    QString error;
    const QString mode = modeIn(config.toMap(), &error);
    if (!error.isEmpty() || (!mode.isNull() && !m_camera.setResolution(mode, m_now, &error)))
        return rosbridge::server::ServiceReply::failure(error);
    return {{{QStringLiteral("config"), this->config()}}, QString()};
}

// Null if the mode is to stay as it is.
QString CameraNode::modeIn(const QCborMap& config, QString* error) const
{
    QString mode;
    for (auto list = config.cbegin(); list != config.cend() && error->isEmpty(); ++list) {
        const QString name = list.key().toString();
        if (!configLists().contains(name))
            *error = tr("config has no field \"%1\"; it has %2")
                         .arg(name, configLists().join(QStringLiteral(", ")));
        else if (!list.value().isArray() && !list.value().isNull())
            *error = tr("config.%1 must be a list").arg(name);
        if (name == QLatin1String("groups"))
            continue; // how a user interface arranges the parameters
        const QCborArray parameters = list.value().toArray();
        for (const QCborValue parameter : parameters) {
            const QString parameterName = parameter[QLatin1String("name")].toString();
            const QCborValue value = parameter[QLatin1String("value")];
            if (name != QLatin1String("strs") || parameterName != videoMode())
                *error = tr("the camera has no parameter \"%1\" in config.%2; it has \"%3\" in "
                            "config.strs")
                             .arg(parameterName, name, videoMode());
            else if (!value.isString())
                *error = tr("the value of \"%1\" must be text, for example \"%2\"")
                             .arg(videoMode(), m_camera.resolution().name());
            mode = value.toString();
        }
    }
    return mode;
}

QCborMap CameraNode::config() const
{
    QCborMap config;
    for (const QString& list : configLists())
        config.insert(list, QCborArray());
    config.insert(QStringLiteral("strs"),
                  QCborArray{QCborMap{{QStringLiteral("name"), videoMode()},
                                      {QStringLiteral("value"), m_camera.resolution().name()}}});
    return config;
}

} // namespace robot::nodes
