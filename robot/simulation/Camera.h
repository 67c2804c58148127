// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_CAMERA_H
#define ROBOT_SIMULATION_CAMERA_H

#include "robot/simulation/Geometry.h"
#include "robot/simulation/Header.h"

#include <QCoreApplication>

#include <array>
#include <optional>
#include <vector>

namespace robot::simulation {

/// sensor_msgs/CameraInfo without its binning and region of interest, which are all 0.
struct CameraInfo
{
    Header header;
    quint32 height = 0; ///< pixels
    quint32 width = 0;
    QString distortion_model;
    std::vector<double> D;
    std::array<double, 9> K{};
    std::array<double, 9> R{};
    std::array<double, 12> P{};
};

/// The robot's camera: knows its three resolutions, when which frame is due and what lens it looks
/// through. The pictures themselves are not its concern. 640x480 to begin with.
class Camera
{
    Q_DECLARE_TR_FUNCTIONS(robot::simulation::Camera)

public:
    static constexpr const char* frameId = "camera_optical_frame";
    static constexpr Pose2D mount{0.22, 0.0, 0.0}; ///< in base_link; it looks along x
    static constexpr double mountHeight = 0.45;    ///< metres above base_link

    struct Resolution
    {
        quint32 width = 0; ///< pixels
        quint32 height = 0;
        int rate = 0; ///< frames a second

        QString name() const; ///< "640x480"
    };

    Camera();

    /// Takes "320x240", "640x480" or "1024x768"; the first frame is due at @p now. Anything else
    /// changes nothing and gives false and, in @p error (may be null), what can be picked.
    bool setResolution(const QString& name, Time now, QString* error);
    Resolution resolution() const { return m_resolution; }

    /// The newest frame that is due at @p now and was not taken yet, as its CameraInfo; nothing if
    /// there is none. Frames that nobody took in time are lost, which shows in seq.
    std::optional<CameraInfo> takeFrame(Time now);

private:
    Resolution m_resolution;
    Time m_start{0};
    qint64 m_next = 0; // frames since m_start
    quint32 m_seq = 0; // of m_next
};

} // namespace robot::simulation

#endif
