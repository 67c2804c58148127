// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Benchmarks.h"
#include "Ratios.h"
#include "Scan.h"
#include "tests/host/workbench/robotview/RobotMessages.h"
#include "tests/host/workbench/robotview/Tell.h"

#include "host/workbench/robotview/MapPicture.h"
#include "host/workbench/robotview/WorldView.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>
#include <QGraphicsPathItem>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

// A room of 10 x 10 metres, the robot on a long way through it, and a whole sweep of its laser. All
// sides paint it into a picture of the size that the dock has in a large window.

using namespace host::workbench::robotview;

namespace {

const int cells = 200; // along an edge of the room
const double resolution = 0.05;
const QSize size(600, 500);

QCborMap room()
{
    QCborMap map = message::map("map", cells, cells, resolution, message::pose(-5, -5, 0), {});
    QCborArray data;
    for (int i = 0; i < cells * cells; ++i)
        data.append(i % cells == 0 || i < cells ? 100 : i % 37 == 0 ? -1 : 0);
    map[QLatin1String("data")] = data;
    return map;
}

QCborMap sweep()
{
    const olm::core::LaserScanMessage scan = exampleScan();
    QVector<float> ranges;
    for (int i = 0; i < static_cast<int>(scan.ranges.size()); ++i)
        ranges.append(scan.ranges[i]);
    QCborMap sweep = message::scan("base_link", scan.minimumAngle, scan.angleIncrement, {});
    sweep[QLatin1String("range_max")] = double(scan.maximumRange);
    sweep[QLatin1String("ranges")] = rosbridge::protocol::typedArray(ranges);
    return sweep;
}

RobotState stateInTheRoom()
{
    RobotState state;
    state.begin();
    const auto now = RobotState::Clock::now();
    state.read(RobotState::Map, room(), now);
    for (int i = 0; i < Path::mostLines; ++i) {
        const double angle = i * 0.01;
        state.read(RobotState::Odometry,
                   message::odometry("map", "base_link", 3 * std::cos(angle),
                                     3 * std::sin(angle * 1.3), angle),
                   now + std::chrono::milliseconds(i));
    }
    tell(state, RobotState::Scan, sweep(), now);
    return state;
}

void paintView(benchmark::State& state)
{
    const RobotState robot = stateInTheRoom();
    WorldView view(robot);
    view.resize(size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (!robot.mapPlace() || !robot.raysPlace() || robot.path().lines().size() < 1000)
        state.SkipWithError("the view lacks what it should paint");
    measure(state, [&] { view.render(&picture); });
}

/// The same shapes where they are on the screen, so that nothing is left but the painting.
struct Shapes
{
    Shapes()
    {
        const RobotState robot = stateInTheRoom();
        WorldView view(robot);
        view.resize(size);
        view.grab(); // all is in sight now
        const QTransform toPixels = view.toPixels();
        const QTransform laser = robot.raysPlace()->onFloor() * toPixels;
        hits = laser.map(robot.rays()->hits);
        swept = laser.map(robot.rays()->swept);
        for (const QLineF& line : robot.path().lines())
            path.append(toPixels.map(line));
        const GridMap& grid = *robot.map();
        place = QTransform::fromScale(grid.resolution, grid.resolution) *
                robot.mapPlace()->onFloor() * toPixels;
        QImage coloured = grid.cells;
        for (int i = 0; i <= GridMap::unknown; ++i)
            coloured.setColor(i, qRgb(255 - i, 255 - i, 255 - i));
        map = QPixmap::fromImage(coloured.convertToFormat(QImage::Format_RGB32));
        sweptColour.setAlpha(50);
    }

    QPixmap map;
    QTransform place; // of the map
    QPolygonF hits;
    QPolygonF swept;
    QVector<QLineF> path;
    QColor sweptColour{Qt::red};
};

void paintShapes(benchmark::State& state)
{
    const Shapes shapes;
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        QPainter painter(&picture);
        painter.fillRect(picture.rect(), Qt::gray);
        painter.setTransform(shapes.place);
        painter.drawPixmap(0, 0, shapes.map);
        painter.resetTransform();
        painter.setPen(QPen(Qt::red, 2));
        painter.drawPoints(shapes.hits);
        painter.setPen(Qt::NoPen);
        painter.setBrush(shapes.sweptColour);
        painter.drawPolygon(shapes.swept);
        painter.setPen(QPen(Qt::blue, 1.5));
        painter.drawLines(shapes.path);
    });
}

/// The same as items of Qt's own scene: one each for map, hits, swept area and path.
void paintScene(benchmark::State& state)
{
    const Shapes shapes;
    QPainterPath hits;
    for (const QPointF& hit : shapes.hits)
        hits.addRect(QRectF(hit.x() - 1, hit.y() - 1, 2, 2));
    QPainterPath path;
    for (const QLineF& line : shapes.path) {
        path.moveTo(line.p1());
        path.lineTo(line.p2());
    }
    QGraphicsScene scene(QRectF(QPointF(), size));
    scene.addPixmap(shapes.map)->setTransform(shapes.place);
    scene.addPath(hits, Qt::NoPen, QColor(Qt::red));
    scene.addPolygon(shapes.swept, Qt::NoPen, shapes.sweptColour);
    scene.addPath(path, QPen(Qt::blue, 1.5));
    QGraphicsView view(&scene);
    view.setFrameShape(QFrame::NoFrame);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.resize(size);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] { view.QWidget::render(&picture); });
}

/// 200 x 200 metres.
QImage largeMap()
{
    QImage map(4000, 4000, QImage::Format_Indexed8);
    map.setColorCount(GridMap::unknown + 1);
    for (int y = 0; y < map.height(); ++y) {
        uchar* const line = map.scanLine(y);
        for (int x = 0; x < map.width(); ++x)
            line[x] = x % 50 == 0 || y % 80 == 0 ? 100 : 0;
    }
    return map;
}

/// From all of the map in sight to a quarter of its width and back, in steps of the mouse wheel.
class Zoom
{
public:
    double step()
    {
        if (m_steps == 0 || m_steps == 6)
            m_factor = 1 / m_factor;
        m_steps += m_factor > 1 ? 1 : -1;
        return m_scale *= m_factor;
    }

private:
    double m_factor = 1 / 1.25;
    double m_scale = size.height() / 4000.0;
    int m_steps = 0;
};

void zoomMap(benchmark::State& state)
{
    const QImage map = largeMap();
    MapPicture shown;
    Zoom zoom;
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        const double scale = zoom.step();
        QPainter painter(&picture);
        shown.paint(painter, map, QTransform::fromScale(scale, -scale).translate(0, -4000),
                    QPalette());
    });
}

void scaleMap(benchmark::State& state)
{
    const QImage map = largeMap();
    Zoom zoom;
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    measure(state, [&] {
        const int pixels = static_cast<int>(4000 * zoom.step());
        QPainter painter(&picture);
        painter.drawImage(
            0, 0,
            map.convertToFormat(QImage::Format_RGB32)
                .scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    });
}

void readScan(benchmark::State& state)
{
    RobotState robot = stateInTheRoom();
    const QCborMap scan = sweep();
    measure(state, [&] { tell(robot, RobotState::Scan, scan, RobotState::Clock::now()); });
    if (!robot.raysPlace())
        state.SkipWithError("the scan is not shown");
}

/// What has to be done with every message that comes.
void decodeScan(benchmark::State& state)
{
    const QByteArray bytes = rosbridge::protocol::encodeBinary(sweep());
    measure(state,
            [&] { benchmark::DoNotOptimize(rosbridge::protocol::decodeBinary(bytes, nullptr)); });
}

} // namespace

void addWorldView(Ratios& ratios)
{
    benchmark::RegisterBenchmark("world: repaint", paintView);
    benchmark::RegisterBenchmark("world: its shapes, ready to paint", paintShapes);
    benchmark::RegisterBenchmark("world: its shapes in a QGraphicsView", paintScene);
    benchmark::RegisterBenchmark("world: zoom over 4000 x 4000 cells", zoomMap);
    benchmark::RegisterBenchmark("world: 4000 x 4000 cells, scaled anew", scaleMap);
    benchmark::RegisterBenchmark("world: scan, read and placed", readScan);
    benchmark::RegisterBenchmark("world: scan, decoded", decodeScan);
    ratios.compare("world: repaint", "world: its shapes, ready to paint", 0);
    ratios.compare("world: repaint", "world: its shapes in a QGraphicsView", 0);
    ratios.compare("world: zoom over 4000 x 4000 cells", "world: 4000 x 4000 cells, scaled anew",
                   0);
    ratios.compare("world: scan, read and placed", "world: scan, decoded", 0);
}
