#include "host/device/Commands.h"

#include "host/device/Connection.h"
#include "host/device/MessageRole.h"
#include "olm/core/Vector.h"

#include <QCborArray>

namespace host::device {

using plugin::plugin::DataRole;

Commands::Commands(Connection& connection) : m_connection(connection)
{
    connection.follow(QStringLiteral("/arm/torque_enabled"), QStringLiteral("std_msgs/Bool"),
                      [this](const QCborMap& state) {
                          m_isTorqueOn = state.value(QLatin1String("data")).toBool();
                      });
}

void Commands::disableDriveSystem(bool on)
{
    setBool(QStringLiteral("/drive/disable"), on,
            on ? tr("Disable the drive system") : tr("Enable the drive system"), baseLogLine);
}

void Commands::setCameraResolution(const Variant& size)
{
    const auto pixels = size.get<olm::core::Vector<unsigned int>>();
    if (pixels.size() != 2)
        return;
    const QString mode = QStringLiteral("%1x%2").arg(pixels[0]).arg(pixels[1]);
    const QCborMap parameter{{QStringLiteral("name"), QStringLiteral("video_mode")},
                             {QStringLiteral("value"), mode}};
    const QCborMap config{{QStringLiteral("strs"), QCborArray{parameter}}};
    call(QStringLiteral("/camera/set_parameters"), {{QStringLiteral("config"), config}},
         tr("Camera resolution %1").arg(mode), baseLogLine);
}

void Commands::enableLine(int line, bool on)
{
    const QString what = on ? tr("Enable line %1") : tr("Disable line %1");
    setBool(QStringLiteral("/arm/line%1").arg(line), on, what.arg(line + 1), manipulatorLogLine);
}

void Commands::toggleTorque()
{
    setBool(QStringLiteral("/arm/torque"), !m_isTorqueOn,
            m_isTorqueOn ? tr("Switch torque off") : tr("Switch torque on"), manipulatorLogLine);
}

void Commands::setBool(const QString& service, bool on, const QString& what, DataRole log)
{
    call(service, {{QStringLiteral("data"), on}}, what, log);
}

void Commands::call(const QString& service, const QCborMap& args, const QString& what, DataRole log)
{
    const auto refuse = [this, what, log](const QString& why) {
        Q_EMIT message(log, tr("%1: not done. %2").arg(what, why));
    };
    if (m_connection.state() == Connection::passive)
        return refuse(tr("Another client is in control of the robot."));
    if (m_connection.state() != Connection::connected)
        return refuse(tr("The device is not connected."));
    m_connection.call(service, args, [refuse](const Result& result) {
        if (!result.ok)
            return refuse(result.error);
        // A service without this field has nothing to refuse in it.
        if (!result.values.value(QLatin1String("success")).toBool(true))
            refuse(result.values.value(QLatin1String("message")).toString());
    });
}

} // namespace host::device
