// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/WorldView.h"

#include <QCursor>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace host::workbench::robotview {

namespace {

constexpr std::chrono::milliseconds paintInterval(33);
constexpr double smallestScale = 1e-4; // pixels a metre
constexpr double largestScale = 1000;
constexpr double zoomStep = 1.25;
constexpr int keyStep = 40;   // pixels
constexpr double margin = 12; // pixels
constexpr double footprintOpacity = 0.35;
constexpr double openReach = 5.0; // metres about a robot that tells nothing of its surroundings

const QColor rayColour(0xe8, 0x6a, 0x17); // seen on light and on dark

QColor staleColour(const QPalette& palette)
{
    return palette.color(QPalette::Disabled, QPalette::Text);
}

} // namespace

WorldView::WorldView(const RobotState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::OpenHandCursor);
    setMouseTracking(true);
}

void WorldView::refresh()
{
    if (isVisible())
        m_refresh.request(paintInterval);
}

void WorldView::setFollowing(bool following)
{
    if (following != isFollowing())
        setMode(following ? Mode::Follow : Mode::Free);
}

void WorldView::showAll()
{
    setMode(Mode::ShowAll);
}

void WorldView::zoom(double factor, const QPointF& pixel)
{
    arrange();
    const QPointF place = placeAt(pixel);
    m_scale = std::clamp(m_scale * factor, smallestScale, largestScale);
    if (!isFollowing()) {
        m_centre += place - placeAt(pixel);
        setMode(Mode::Free);
    }
    update();
}

QTransform WorldView::toPixels() const
{
    QTransform transform;
    transform.translate(width() / 2.0, height() / 2.0);
    transform.scale(m_scale, -m_scale);
    transform.translate(-m_centre.x(), -m_centre.y());
    return transform;
}

QSize WorldView::sizeHint() const
{
    return {420, 160};
}

QSize WorldView::minimumSizeHint() const
{
    return {120, 100};
}

void WorldView::paintEvent(QPaintEvent* /*event*/)
{
    arrange();
    QPainter painter(this);
    const bool hasMap = m_state.mapPlace().has_value();
    painter.fillRect(rect(), hasMap ? MapPicture::unknownColour(palette())
                                    : palette().color(QPalette::Base));
    painter.setOpacity(m_state.isConnected() ? 1.0 : 0.5);
    paintMap(painter);
    paintRays(painter);
    paintPath(painter);
    paintFootprint(painter);
    paintRobot(painter);
    painter.setOpacity(1.0);
    paintScale(painter);
    m_ruler.paint(painter, toPixels(), *this);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void WorldView::wheelEvent(QWheelEvent* event)
{
    zoom(std::pow(zoomStep, event->angleDelta().y() / 120.0), event->position());
}

void WorldView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_isMeasuring = event->modifiers().testFlag(Qt::ShiftModifier);
    m_dragged = event->pos();
    if (m_isMeasuring)
        m_ruler.begin(placeAt(event->pos()));
    else
        m_ruler.clear();
    setCursor(m_isMeasuring ? Qt::CrossCursor : Qt::ClosedHandCursor);
    update();
}

void WorldView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton) && m_isMeasuring)
        m_ruler.extend(placeAt(event->pos()));
    else if (event->buttons().testFlag(Qt::LeftButton))
        move(event->pos() - m_dragged);
    m_dragged = event->pos();
    m_ruler.point(placeAt(event->pos()));
    update();
}

void WorldView::leaveEvent(QEvent* /*event*/)
{
    m_ruler.point({});
    update();
}

void WorldView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setCursor(Qt::OpenHandCursor);
}

void WorldView::keyPressEvent(QKeyEvent* event)
{
    const QPointF pointed =
        underMouse() ? mapFromGlobal(QCursor::pos()) : QPointF(width() / 2.0, height() / 2.0);
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        zoom(zoomStep, pointed);
        break;
    case Qt::Key_Minus:
        zoom(1 / zoomStep, pointed);
        break;
    case Qt::Key_Left:
        move({keyStep, 0});
        break;
    case Qt::Key_Right:
        move({-keyStep, 0});
        break;
    case Qt::Key_Up:
        move({0, keyStep});
        break;
    case Qt::Key_Down:
        move({0, -keyStep});
        break;
    case Qt::Key_Home:
        showAll();
        break;
    case Qt::Key_Escape:
        m_ruler.clear();
        update();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void WorldView::setMode(Mode mode)
{
    const bool wasFollowing = isFollowing();
    m_mode = mode;
    update();
    if (isFollowing() != wasFollowing)
        Q_EMIT followingChanged(isFollowing());
}

/// Moves what is shown.
void WorldView::move(const QPointF& pixels)
{
    arrange();
    m_centre -= QPointF(pixels.x() / m_scale, -pixels.y() / m_scale);
    setMode(Mode::Free);
}

void WorldView::arrange()
{
    if (m_mode == Mode::Follow) {
        if (const auto robot = m_state.robotPlace())
            m_centre = robot->onFloor().map(QPointF(0, 0));
    } else if (m_mode == Mode::ShowAll) {
        const QRectF all = extent();
        m_centre = all.center();
        m_scale = std::clamp(
            std::min((width() - 2 * margin) / all.width(), (height() - 2 * margin) / all.height()),
            smallestScale, largestScale);
    }
}

QPointF WorldView::placeAt(const QPointF& pixel) const
{
    return toPixels().inverted().map(pixel);
}

/// Of all that there is to be seen, in the world; never empty.
QRectF WorldView::extent() const
{
    QRectF extent;
    if (const auto place = m_state.mapPlace()) {
        const GridMap& map = *m_state.map();
        extent = place->onFloor().mapRect(
            QRectF(0, 0, map.cells.width() * map.resolution, map.cells.height() * map.resolution));
    } else {
        for (const QLineF& line : m_state.path().lines())
            extent |= QRectF(line.p1(), line.p2()).normalized();
        const double reach = m_state.rays() ? m_state.rays()->reach : 0;
        const double about = std::max(reach, openReach);
        const auto& centre = m_state.robotPlace() ? m_state.robotPlace() : m_state.raysPlace();
        const QPointF middle = centre ? centre->onFloor().map(QPointF(0, 0)) : QPointF(0, 0);
        extent |= QRectF(middle.x() - about, middle.y() - about, 2 * about, 2 * about);
    }
    if (const auto robot = m_state.robotPlace()) {
        const QPointF place = robot->onFloor().map(QPointF(0, 0));
        extent |= QRectF(place.x() - 0.5, place.y() - 0.5, 1, 1);
    }
    return extent;
}

void WorldView::paintMap(QPainter& painter)
{
    const auto place = m_state.mapPlace();
    if (!place)
        return;
    const GridMap& map = *m_state.map();
    m_map.paint(painter, map.cells,
                QTransform::fromScale(map.resolution, map.resolution) * place->onFloor() *
                    toPixels(),
                palette());
}

void WorldView::paintRays(QPainter& painter) const
{
    if (!m_state.raysPlace())
        return;
    const bool isStale = !m_state.overdue(RobotState::Scan, RobotState::Clock::now()).isEmpty();
    QColor colour = isStale ? staleColour(palette()) : rayColour;
    const QTransform transform = m_state.raysPlace()->onFloor() * toPixels();
    const QPolygonF hits = transform.map(m_state.rays()->hits);
    painter.save();
    painter.setPen(QPen(colour, 2));
    painter.drawPoints(hits);
    colour.setAlpha(50);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(transform.map(m_state.rays()->swept));
    colour.setAlpha(255);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(colour);
    painter.drawEllipse(transform.map(QPointF(0, 0)), 3, 3); // the sensor
    painter.restore();
}

void WorldView::paintPath(QPainter& painter) const
{
    const QTransform transform = toPixels();
    const QRectF sight = QRectF(rect()).adjusted(-1, -1, 1, 1);
    QVector<QLineF> lines;
    lines.reserve(m_state.path().lines().size());
    for (const QLineF& line : m_state.path().lines()) {
        const QLineF mapped = transform.map(line);
        const QRectF room(mapped.p1(), mapped.p2());
        if (room.normalized().adjusted(0, 0, 1, 1).intersects(sight))
            lines.append(mapped);
    }
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawLines(lines);
}

void WorldView::paintRobot(QPainter& painter) const
{
    const auto place = m_state.robotPlace();
    if (!place)
        return;
    const QTransform transform = place->onFloor() * toPixels();
    const QPointF centre = transform.map(QPointF(0, 0));
    if (!QRectF(rect()).adjusted(-20, -20, 20, 20).contains(centre))
        return;
    const QPointF ahead = transform.map(QPointF(1, 0)) - centre;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(centre);
    painter.rotate(std::atan2(ahead.y(), ahead.x()) * 180 / std::acos(-1.0));
    painter.setPen(QPen(palette().color(QPalette::Base), 1.5));
    painter.setBrush(robotColour());
    painter.drawPolygon(QPolygonF(QVector<QPointF>{{12, 0}, {-8, 8}, {-4, 0}, {-8, -8}}));
    painter.restore();
}

/// To scale, below the arrow, which shows the robot where its outline is too small to be seen.
void WorldView::paintFootprint(QPainter& painter) const
{
    if (!m_state.footprintPlace())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor colour = robotColour();
    painter.setPen(QPen(colour, 1.5));
    colour.setAlphaF(footprintOpacity);
    painter.setBrush(colour);
    const QTransform transform = m_state.footprintPlace()->onFloor() * toPixels();
    painter.drawPolygon(transform.map(m_state.footprint()->outline));
    painter.restore();
}

QColor WorldView::robotColour() const
{
    const bool isStale =
        !m_state.overdue(RobotState::Transforms, RobotState::Clock::now()).isEmpty();
    return isStale ? staleColour(palette()) : palette().color(QPalette::Highlight);
}

/// A bar of a round length, and the length in words.
void WorldView::paintScale(QPainter& painter) const
{
    if (!m_state.mapPlace() && !m_state.robotPlace() && !m_state.raysPlace())
        return;
    const double longest = std::min(90.0, width() / 4.0); // pixels
    double metres = std::pow(10, std::floor(std::log10(longest / m_scale)));
    for (const double factor : {5.0, 2.0}) {
        if (metres * factor * m_scale <= longest) {
            metres *= factor;
            break;
        }
    }
    const int length = qRound(metres * m_scale);
    const QString words = tr("%1 m").arg(QLocale().toString(metres));
    const int left = 8;
    const int bottom = height() - 8;
    const int room = std::max(length, 4 + fontMetrics().horizontalAdvance(words));
    QColor ground = palette().color(QPalette::Base);
    ground.setAlpha(190); // to be read on walls as well
    painter.fillRect(left - 3, bottom - fontMetrics().height() - 3, room + 6,
                     fontMetrics().height() + 6, ground);
    painter.setPen(QPen(palette().color(QPalette::Text), 1));
    painter.drawLine(left, bottom, left + length, bottom);
    painter.drawLine(left, bottom - 4, left, bottom);
    painter.drawLine(left + length, bottom - 4, left + length, bottom);
    painter.drawText(left + 4, bottom - 4, words);
}

} // namespace host::workbench::robotview
