// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/connection/Commands.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "host/device/readers/BoolReader.h"
#include "olm/core/Vector.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborArray>

namespace host::device::connection {

using plugin::plugin::DataRole;
namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

Commands::Commands(Connection& connection, Listener& listener) : m_connection(connection)
{
    connect(&connection, &Connection::stateChanged, this, [this](int state) {
        if (state == Connection::notConnected)
            m_isTorqueOn = false;
    });
    listener.listen(topic::armTorqueEnabled, manipulatorLogLine,
                    [this](const QCborMap& state) { return readTorque(state); });
}

QString Commands::readTorque(const QCborMap& state)
{
    QString fault;
    if (const auto isOn = readers::readBool(state, &fault))
        m_isTorqueOn = *isOn;
    return fault;
}

void Commands::disableDriveSystem(bool on, const Done& done)
{
    setBool(service::disableDrive.name, on,
            on ? tr("Disable the drive system") : tr("Enable the drive system"), baseLogLine, done);
}

void Commands::setCameraResolution(const Variant& size, const Done& done)
{
    const auto pixels = size.get<olm::core::Vector<unsigned int>>();
    if (pixels.size() != 2)
        return done(false);
    const QString mode = QStringLiteral("%1x%2").arg(pixels[0]).arg(pixels[1]);
    const QCborMap parameter{{QStringLiteral("name"), QStringLiteral("video_mode")},
                             {QStringLiteral("value"), mode}};
    const QCborMap config{{QStringLiteral("strs"), QCborArray{parameter}}};
    call(service::setCamera.name, {{QStringLiteral("config"), config}},
         tr("Camera resolution %1").arg(mode), baseLogLine, done);
}

void Commands::enableLine(int line, bool on, const Done& done)
{
    const QString what = on ? tr("Enable line %1") : tr("Disable line %1");
    setBool(service::armLine.at(static_cast<std::size_t>(line)).name, on, what.arg(line + 1),
            manipulatorLogLine, done);
}

void Commands::toggleTorque()
{
    setBool(service::armTorque.name, !m_isTorqueOn,
            m_isTorqueOn ? tr("Switch torque off") : tr("Switch torque on"), manipulatorLogLine,
            [](bool) {}); // the robot tells the state
}

void Commands::setBool(const QString& service, bool on, const QString& what, DataRole log,
                       const Done& done)
{
    call(service, {{QStringLiteral("data"), on}}, what, log, done);
}

void Commands::call(const QString& service, const QCborMap& args, const QString& what, DataRole log,
                    const Done& done)
{
    if (m_connection.state() == Connection::passive)
        return refuse(what,
                      tr("The device is not in control of the robot. To take control, choose "
                         "Robot > Control."),
                      log, done);
    if (m_connection.state() != Connection::connected)
        return refuse(what, tr("The device is not connected."), log, done);
    m_connection.call(
        service, args, [this, what, log, done](const rosbridge::client::Client::Result& result) {
            if (!result.ok)
                refuse(what, result.error, log, done);
            // A service without this field has nothing to refuse in it.
            else if (!result.values.value(QLatin1String("success")).toBool(true))
                refuse(what, result.values.value(QLatin1String("message")).toString(), log, done);
            else
                done(true);
        });
}

void Commands::refuse(const QString& what, const QString& why, DataRole log, const Done& done)
{
    Q_EMIT message(log, tr("%1: not done. %2").arg(what, why));
    done(false);
}

} // namespace host::device::connection
