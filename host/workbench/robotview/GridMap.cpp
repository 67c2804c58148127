// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/GridMap.h"

#include <QVector>

namespace host::workbench::robotview {

namespace {

constexpr int mostCells = 32767; // along an edge: what can be painted
constexpr double coarsest = 100; // metres

} // namespace

std::optional<GridMap> GridMap::read(const QCborMap& message, QString* fault)
{
    rosbridge::protocol::Fields fields(message, fault);
    GridMap map;
    map.frame = fields.object("header").text("frame_id");
    rosbridge::protocol::Fields info = fields.object("info");
    const int width = static_cast<int>(info.integer("width", 1, mostCells));
    const int height = static_cast<int>(info.integer("height", 1, mostCells));
    map.resolution = info.number("resolution");
    if (!(map.resolution > 0 && map.resolution <= coarsest))
        info.fail("resolution",
                  tr("is %1, which is not a valid cell size in metres").arg(map.resolution));
    map.origin = Transform::read(info.object("origin"), "position", "orientation");
    const QVector<float> data = fields.floats("data");
    const qint64 count = qint64(width) * height;
    if (data.size() != count)
        fields.fail("data",
                    tr("has %1 cells, not %2 x %3").arg(data.size()).arg(width).arg(height));
    if (!fields.isGood())
        return std::nullopt;

    map.cells = QImage(width, height, QImage::Format_Indexed8);
    const float* cell = data.constData();
    for (int row = 0; row < height; ++row) {
        uchar* const line = map.cells.scanLine(row);
        for (int column = 0; column < width; ++column, ++cell)
            line[column] = *cell >= 0 && *cell <= 100 ? static_cast<uchar>(*cell) : uchar(unknown);
    }
    return map;
}

} // namespace host::workbench::robotview
