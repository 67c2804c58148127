// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Camera.h"

#include <QStringList>

#include <cmath>

namespace robot::simulation {

namespace {

constexpr std::array<Camera::Resolution, 3> resolutions{{
    {320, 240, 30},
    {640, 480, 20},
    {1024, 768, 10},
}};

constexpr double fieldOfView = 60.0 * degree; // horizontal

// A pinhole camera with square pixels and a lens that does not distort.
CameraInfo infoOf(const Camera::Resolution& resolution)
{
    const double f = resolution.width / 2.0 / std::tan(fieldOfView / 2.0);
    const double cx = (resolution.width - 1) / 2.0;
    const double cy = (resolution.height - 1) / 2.0;
    CameraInfo info;
    info.header.frame_id = Camera::frameId;
    info.height = resolution.height;
    info.width = resolution.width;
    info.distortion_model = QStringLiteral("plumb_bob");
    info.D.assign(5, 0.0);
    info.K = {f, 0, cx, 0, f, cy, 0, 0, 1};
    info.R = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    info.P = {f, 0, cx, 0, 0, f, cy, 0, 0, 0, 1, 0};
    return info;
}

} // namespace

QString Camera::Resolution::name() const
{
    return QStringLiteral("%1x%2").arg(width).arg(height);
}

Camera::Camera() : m_resolution(resolutions[1]) {}

bool Camera::setResolution(const QString& name, Time now, QString* error)
{
    QStringList known;
    for (const Resolution& resolution : resolutions) {
        if (resolution.name() == name) {
            m_resolution = resolution;
            m_start = now;
            m_next = 0;
            return true;
        }
        known.append(resolution.name());
    }
    if (error) {
        *error = tr("The camera has no resolution \"%1\"; it has %2.")
                     .arg(name, known.join(QStringLiteral(", ")));
    }
    return false;
}

std::optional<CameraInfo> Camera::takeFrame(Time now)
{
    constexpr Time second = std::chrono::seconds(1);
    if (now < m_start)
        return std::nullopt;
    const qint64 newest = (now - m_start) * m_resolution.rate / second;
    if (newest < m_next)
        return std::nullopt;
    m_seq += static_cast<quint32>(newest - m_next);
    m_next = newest + 1;

    CameraInfo info = infoOf(m_resolution);
    info.header.seq = m_seq++;
    info.header.stamp = m_start + newest * second / m_resolution.rate;
    return info;
}

} // namespace robot::simulation
