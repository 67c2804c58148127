// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROBOT_SIMULATION_CAMERAVIEW_H
#define ROBOT_SIMULATION_CAMERAVIEW_H

#include "robot/simulation/Camera.h"
#include "robot/simulation/World.h"

#include <QImage>

#include <vector>

namespace robot::simulation {

/// One picture of the world through the robot's camera. A ray for each column of pixels finds what
/// is in sight; floor and ceiling follow from the height of the camera. What is far away is darker.
class CameraView
{
public:
    /// @p world must outlive the view. The lens is that of @p info.
    CameraView(const World& world, const CameraInfo& info);

    /// As the world is now.
    QImage picture();

private:
    /// Of floor or ceiling: how far ahead it is that is seen there, and the colours of its tiles;
    /// the ceiling has only one.
    struct Row
    {
        float tiles = 0.0F; // the floor's, one after the other
        QRgb light = 0;
        QRgb dark = 0;
    };

    // What is "sideways" is that many metres to the right for each metre ahead.
    void paintColumn(int column);
    void paintCeiling(std::size_t to);
    void paintFloor(double sideways, std::size_t from);
    void paintBox(const World::Hit& hit, double depth);
    void paintPerson(int person, double sideways);
    void fill(std::size_t from, std::size_t to, QRgb colour);
    std::size_t rowOf(double height, double depth) const;

    const World& m_world;
    double m_f;  // pixels
    double m_cx; // where the optical axis meets the picture
    double m_cy;
    Pose2D m_eye;
    double m_ahead_x;
    double m_ahead_y;
    std::vector<Pose2D> m_people;
    int m_width;
    std::vector<Row> m_rows;
    std::vector<QRgb> m_block; // some columns, one after the other
    QRgb* m_column = nullptr;  // of these the one that is being painted
};

} // namespace robot::simulation

#endif
