// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/camera/CameraState.h"

#include "host/workbench/camera/CompressedPicture.h"
#include "rosbridge/protocol/Topics.h"

#include <QStringList>

namespace host::workbench::camera {

namespace {

using namespace std::chrono_literals;

constexpr auto pictureIsFreshFor = 2s;

} // namespace

void CameraState::begin()
{
    *this = {};
    m_isConnected = true;
    m_name = rosbridge::protocol::topic::cameraImage.name;
}

void CameraState::setOffered(Offered offered, const QString& name, const QString& type)
{
    m_offered = offered;
    m_name = name;
    m_type = type;
}

void CameraState::read(const QCborMap& message, TimePoint arrival)
{
    m_fault.clear();
    const QImage picture = CompressedPicture::read(message, &m_fault);
    if (picture.isNull())
        return;
    m_picture = picture;
    m_arrival = arrival;
}

bool CameraState::isOld(TimePoint now) const
{
    return !m_isConnected || now - m_arrival > pictureIsFreshFor;
}

QString CameraState::problem(TimePoint now) const
{
    if (!m_isConnected)
        return tr("Not connected.");
    if (!m_fault.isEmpty())
        return tr("A picture on %1 cannot be shown: %2.").arg(m_name, m_fault);
    const bool isOld = this->isOld(now);
    if (!m_picture.isNull() && !isOld)
        return {};
    if (m_offered == Offered::Missing)
        return tr("The robot does not publish %1. If it has another name for its pictures, enter "
                  "it in Robot > Names….")
            .arg(m_name);
    if (m_offered == Offered::OtherType)
        return tr("The robot publishes %1 as %2, not as %3.")
            .arg(m_name, m_type, rosbridge::protocol::topic::cameraImage.type);
    return m_picture.isNull() ? tr("Waiting for a picture on %1 …").arg(m_name)
                              : tr("The picture is %1 old.").arg(age(now));
}

QString CameraState::caption(TimePoint now) const
{
    if (m_picture.isNull())
        return {};
    QStringList parts{tr("%1 × %2").arg(m_picture.width()).arg(m_picture.height())};
    const unsigned int rate = m_meter.rate(now);
    if (m_isConnected && rate > 0)
        parts += tr("%1 Hz").arg(rate);
    parts += tr("%1 old").arg(age(now));
    return parts.join(QStringLiteral(" · "));
}

QString CameraState::age(TimePoint now) const
{
    const double seconds = std::chrono::duration<double>(now - m_arrival).count();
    constexpr double minute = 60;
    if (seconds < 2 * minute)
        return tr("%1 s").arg(seconds, 0, 'f', seconds < 2 ? 1 : 0);
    return tr("%1 min").arg(static_cast<int>(seconds / minute));
}

} // namespace host::workbench::camera
