#include "host/device/connection/Commands.h"

#include "host/device/connection/Connection.h"
#include "host/device/connection/Listener.h"
#include "host/device/connection/MessageRole.h"
#include "host/device/connection/Offer.h"
#include "host/device/readers/BoolReader.h"
#include "olm/core/Vector.h"
#include "rosbridge/protocol/Services.h"
#include "rosbridge/protocol/Topics.h"

#include <QCborArray>
#include <QScopedValueRollback>
#include <QStringList>

#include <utility>

namespace host::device::connection {

using plugin::plugin::DataRole;
namespace service = rosbridge::protocol::service;
namespace topic = rosbridge::protocol::topic;

Commands::Commands(Connection& connection, Listener& listener, const Offer& offer)
    : m_connection(connection),
      m_offer(offer)
{
    connect(&connection, &Connection::stateChanged, this, [this](int state) {
        if (state == Connection::notConnected) {
            m_waiting = 0;
            m_isTorqueOn = false;
            m_failures.clear();
        }
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

void Commands::disableDriveSystem(bool on)
{
    setBool(service::disableDrive.name, on,
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
    call(service::setCamera.name, {{QStringLiteral("config"), config}},
         tr("Camera resolution %1").arg(mode), baseLogLine);
}

void Commands::enableLine(int line, bool on)
{
    const QString what = on ? tr("Enable line %1") : tr("Disable line %1");
    setBool(service::armLine.at(static_cast<std::size_t>(line)).name, on, what.arg(line + 1),
            manipulatorLogLine);
}

void Commands::toggleTorque()
{
    setBool(service::armTorque.name, !m_isTorqueOn,
            m_isTorqueOn ? tr("Switch torque off") : tr("Switch torque on"), manipulatorLogLine);
}

void Commands::sendOffered(const std::function<void()>& settings)
{
    const QScopedValueRollback<bool> onlyOffered(m_isOnlyOffered, true);
    settings();
}

void Commands::setBool(const QString& service, bool on, const QString& what, DataRole log)
{
    call(service, {{QStringLiteral("data"), on}}, what, log);
}

void Commands::call(const QString& service, const QCborMap& args, const QString& what, DataRole log)
{
    if (m_connection.state() == Connection::passive)
        return refuse({log, what, tr("Another client is in control of the robot.")});
    if (m_connection.state() != Connection::connected)
        return refuse({log, what, tr("The device is not connected.")});
    if (m_isOnlyOffered && m_offer.lacks(service))
        return;
    ++m_waiting;
    m_connection.call(service, args, [this, what, log](const Result& result) {
        --m_waiting;
        if (!result.ok)
            onFailed({log, what, result.error});
        // A service without this field has nothing to refuse in it.
        else if (!result.values.value(QLatin1String("success")).toBool(true))
            refuse({log, what, result.values.value(QLatin1String("message")).toString()});
        if (m_waiting == 0)
            sayFailures();
    });
}

void Commands::refuse(const Failure& failure)
{
    Q_EMIT message(failure.log, tr("%1: not done. %2").arg(failure.what, failure.why));
}

/// Where the robot does not tell what it offers, this is how it is found out: not a line for each.
void Commands::onFailed(const Failure& failure)
{
    if (m_offer.knowsServices())
        refuse(failure);
    else
        m_failures.append(failure);
}

void Commands::sayFailures()
{
    const QVector<Failure> failures = std::exchange(m_failures, {});
    if (failures.size() == 1)
        return refuse(failures.first());
    QStringList words;
    for (const Failure& failure : failures)
        words += tr("%1 (%2)").arg(failure.what, failure.why);
    if (!words.isEmpty())
        Q_EMIT message(baseLogLine,
                       tr("Not done: %1. If the robot has other names for what it does not know, "
                          "enter them in Robot > Names….")
                           .arg(words.join(QStringLiteral("; "))));
}

} // namespace host::device::connection
