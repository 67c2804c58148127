// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/CameraView.h"

#include <algorithm>
#include <cmath>

namespace robot::simulation {

namespace {

constexpr double reach = FloorPlan::width + FloorPlan::height; // metres, beyond the farthest wall
constexpr double leastDepth = 0.05;                            // metres

struct Colour
{
    double red;
    double green;
    double blue;
};

constexpr Colour ceilingColour{206, 208, 212};
constexpr Colour lightTile{150, 158, 166};
constexpr Colour darkTile{118, 127, 137};
constexpr Colour wallColour{228, 220, 202};
constexpr Colour skirtingColour{128, 116, 104};
constexpr Colour woodColour{164, 112, 66};
constexpr Colour edgeColour{204, 156, 108};
constexpr Colour skinColour{226, 182, 152};
constexpr Colour hairColour{70, 48, 36};
constexpr Colour trousersColour{52, 58, 84};
constexpr std::array<Colour, 4> shirtColours{
    {{206, 58, 48}, {38, 104, 196}, {44, 148, 82}, {226, 166, 32}}};

constexpr int blockWidth = 16; // columns: as many as a line of the processor's cache holds

constexpr double tile = 0.5;        // metres
constexpr double skirting = 0.1;    // metres above the floor
constexpr double topEdge = 0.04;    // metres below the top of a piece of furniture
constexpr double personUpTo = 1.75; // metres above the floor

/// How bright something is at @p depth metres.
double brightness(double depth)
{
    return 0.3 + 0.7 / (1.0 + 0.03 * depth * depth);
}

QRgb lit(const Colour& colour, double light)
{
    return qRgb(static_cast<int>(colour.red * light), static_cast<int>(colour.green * light),
                static_cast<int>(colour.blue * light));
}

/// A part of a person: from where to where it is there, sideways, and its colour.
struct BodyPart
{
    double inner = 0.0; ///< metres from the middle
    double outer = 0.0;
    Colour colour{};
};

/// What a person has at @p height metres above the floor.
BodyPart bodyPart(double height, const Colour& shirt)
{
    constexpr double headRadius = 0.125;
    constexpr double headHeight = personUpTo - headRadius;
    if (height < 0.85)
        return {0.025, 0.17, trousersColour};
    if (height < 1.35)
        return {0.0, 0.2, shirt};
    if (height < 1.45) // the shoulders
        return {0.0, 0.2 - 1.2 * (height - 1.35), shirt};
    const double fromHead = height - headHeight;
    const double outer = std::sqrt(std::max(0.0, headRadius * headRadius - fromHead * fromHead));
    return {0.0, std::max(outer, height < headHeight ? 0.06 : 0.0),
            fromHead > 0.05 ? hairColour : skinColour};
}

} // namespace

CameraView::CameraView(const World& world, const CameraInfo& info)
    : m_world(world),
      m_f(info.K[0]),
      m_cx(info.K[2]),
      m_cy(info.K[5]),
      m_eye(fromFrame(world.robotPose(), Camera::mount)),
      m_ahead_x(std::cos(m_eye.theta)),
      m_ahead_y(std::sin(m_eye.theta)),
      m_people(world.people()),
      m_width(static_cast<int>(info.width)),
      m_block(static_cast<std::size_t>(blockWidth) * info.height)
{
    m_rows.reserve(info.height);
    for (quint32 row = 0; row < info.height; ++row) {
        const double below = (row - m_cy) / m_f;
        const double toSurface =
            below > 0.0 ? Camera::mountHeight : Camera::mountHeight - FloorPlan::ceiling;
        const double depth = std::min(reach, toSurface / below);
        const double light = brightness(depth);
        const auto tiles = static_cast<float>(depth / tile);
        if (below > 0.0)
            m_rows.push_back({tiles, lit(lightTile, light), lit(darkTile, light)});
        else
            m_rows.push_back({tiles, lit(ceilingColour, light), 0});
    }
}

QImage CameraView::picture()
{
    const std::size_t height = m_rows.size();
    QImage picture(m_width, static_cast<int>(height), QImage::Format_RGB32);
    // Memory is written much faster along a row than along a column.
    for (int left = 0; left < m_width; left += blockWidth) {
        const int count = std::min(blockWidth, m_width - left);
        for (int i = 0; i < count; ++i) {
            m_column = &m_block[static_cast<std::size_t>(i) * height];
            paintColumn(left + i);
        }
        for (std::size_t row = 0; row < height; ++row) {
            auto* const pixels =
                reinterpret_cast<QRgb*>(picture.scanLine(static_cast<int>(row))) + left;
            const QRgb* from = &m_block[row];
            for (int i = 0; i < count; ++i, from += height)
                pixels[i] = *from;
        }
    }
    return picture;
}

void CameraView::paintColumn(int column)
{
    const double sideways = (column - m_cx) / m_f;
    const double stretch = std::hypot(1.0, sideways); // of the ray, for each metre ahead
    const Pose2D ray{m_eye.x, m_eye.y, m_eye.theta - std::atan(sideways)};
    const std::vector<World::Hit> hits = m_world.castThrough(ray, reach);
    const double farthest = hits.empty() ? reach : hits.front().distance / stretch;
    paintCeiling(rowOf(FloorPlan::ceiling, farthest));
    paintFloor(sideways, rowOf(0.0, farthest));
    for (const World::Hit& hit : hits) {
        if (hit.person)
            paintPerson(*hit.person, sideways);
        else
            paintBox(hit, hit.distance / stretch);
    }
}

void CameraView::paintCeiling(std::size_t to)
{
    for (std::size_t row = 0; row < to; ++row)
        m_column[row] = m_rows[row].light;
}

void CameraView::paintFloor(double sideways, std::size_t from)
{
    // In tiles; a float is exact enough, and this is done for every second pixel.
    const auto x = static_cast<float>(m_eye.x / tile);
    const auto y = static_cast<float>(m_eye.y / tile);
    const auto dx = static_cast<float>(m_ahead_x + sideways * m_ahead_y);
    const auto dy = static_cast<float>(m_ahead_y - sideways * m_ahead_x);
    for (std::size_t row = from; row < m_rows.size(); ++row) {
        const Row& floor = m_rows[row];
        const auto column = static_cast<int>(x + floor.tiles * dx);
        const auto line = static_cast<int>(y + floor.tiles * dy);
        m_column[row] = ((column + line) % 2) == 0 ? floor.light : floor.dark;
    }
}

void CameraView::paintBox(const World::Hit& hit, double depth)
{
    // Sides that look in different directions differ, or else no corner would be seen.
    const double light = brightness(depth) * (0.78 + 0.22 * std::abs(hit.normal_x));
    const bool isWall = hit.upTo >= FloorPlan::ceiling;
    const auto top = rowOf(hit.upTo, depth);
    const auto bottom = rowOf(0.0, depth);
    const auto trim = isWall ? rowOf(skirting, depth) : rowOf(hit.upTo - topEdge, depth);
    fill(top, trim, lit(isWall ? wallColour : edgeColour, light));
    fill(trim, bottom, lit(isWall ? skirtingColour : woodColour, light));
}

void CameraView::paintPerson(int person, double sideways)
{
    const Pose2D place = toFrame(m_eye, m_people.at(static_cast<std::size_t>(person)));
    const double depth = std::max(leastDepth, place.x);
    const double aside = std::abs(sideways * depth + place.y);
    const double light = brightness(depth);
    const Colour& shirt = shirtColours.at(static_cast<std::size_t>(person) % shirtColours.size());
    const std::size_t bottom = rowOf(0.0, depth);
    for (std::size_t row = rowOf(personUpTo, depth); row < bottom; ++row) {
        const double height = Camera::mountHeight + (m_cy - static_cast<double>(row)) * depth / m_f;
        const BodyPart part = bodyPart(height, shirt);
        if (aside < part.inner || aside >= part.outer)
            continue;
        const double edge = aside / part.outer; // round, so that it is darker there
        m_column[row] = lit(part.colour, light * (0.55 + 0.45 * std::sqrt(1.0 - edge * edge)));
    }
}

void CameraView::fill(std::size_t from, std::size_t to, QRgb colour)
{
    for (std::size_t row = from; row < to; ++row)
        m_column[row] = colour;
}

/// The first row below what is @p height metres above the floor, @p depth metres ahead.
std::size_t CameraView::rowOf(double height, double depth) const
{
    const double row = m_cy + m_f * (Camera::mountHeight - height) / std::max(leastDepth, depth);
    return static_cast<std::size_t>(
        std::ceil(std::clamp(row, 0.0, static_cast<double>(m_rows.size()))));
}

} // namespace robot::simulation
