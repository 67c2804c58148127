// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/readers/CameraRate.h"

namespace host::device::readers {

CameraRate::CameraRate()
{
    m_timer.setInterval(std::chrono::milliseconds(250));
    connect(&m_timer, &QTimer::timeout, this, &CameraRate::measure);
}

void CameraRate::reset()
{
    m_timer.stop();
    m_meter = {};
    setRate(0);
}

void CameraRate::count()
{
    m_meter.arrived(std::chrono::steady_clock::now());
    if (!m_timer.isActive())
        m_timer.start();
}

void CameraRate::measure()
{
    const auto now = std::chrono::steady_clock::now();
    if (m_meter.isSilent(now))
        m_timer.stop();
    setRate(m_meter.rate(now));
}

void CameraRate::setRate(unsigned int rate)
{
    if (rate == m_rate)
        return;
    m_rate = rate;
    Q_EMIT changed(rate);
}

} // namespace host::device::readers
