// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/operation/DrivePad.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTouchEvent>
#include <QVector>

#include <algorithm>
#include <array>

namespace host::workbench::operation {

namespace {

constexpr int keysEach = 2;

struct KeyDirection
{
    std::array<int, keysEach> keys{};
    QPointF direction; // right and down
};

const std::array<KeyDirection, 4>& keyDirections()
{
    static const std::array<KeyDirection, 4> directions{{
        {{Qt::Key_Up, Qt::Key_W}, {0, -1}},
        {{Qt::Key_Down, Qt::Key_S}, {0, 1}},
        {{Qt::Key_Left, Qt::Key_A}, {-1, 0}},
        {{Qt::Key_Right, Qt::Key_D}, {1, 0}},
    }};
    return directions;
}

bool isOurs(const QKeyEvent& event)
{
    const auto others = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !(event.modifiers() & others) &&
           std::any_of(keyDirections().begin(), keyDirections().end(),
                       [&](const KeyDirection& each) {
                           return std::count(each.keys.begin(), each.keys.end(), event.key()) > 0;
                       });
}

QPointF positionOf(const QMouseEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.localPos();
#else
    return event.position();
#endif
}

QPointF positionOf(const QTouchEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.touchPoints().first().pos();
#else
    return event.points().first().position();
#endif
}

} // namespace

DrivePad::DrivePad()
{
    setObjectName("pad");
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_AcceptTouchEvents); // a touch that is cancelled lets go, too
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DrivePad::setDriving(bool isDriving)
{
    m_isDriving = isDriving;
    update();
}

QSize DrivePad::minimumSizeHint() const
{
    constexpr int lines = 6;
    const int side = lines * fontMetrics().lineSpacing();
    return {side, side};
}

QSize DrivePad::sizeHint() const
{
    return 3 * minimumSizeHint() / 2;
}

bool DrivePad::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return touch(*event);
    case QEvent::ShortcutOverride:
        if (isOurs(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::WindowDeactivate:
        releaseAll();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool DrivePad::touch(QEvent& event)
{
    if (event.type() == QEvent::TouchBegin)
        setFocus(Qt::MouseFocusReason);
    if (event.type() == QEvent::TouchBegin || (event.type() == QEvent::TouchUpdate && m_isPointed))
        press(positionOf(static_cast<const QTouchEvent&>(event)));
    else
        releasePointer();
    event.accept();
    return true;
}

void DrivePad::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        press(positionOf(*event));
}

void DrivePad::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isPointed)
        press(positionOf(*event));
}

void DrivePad::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        releasePointer();
}

void DrivePad::keyPressEvent(QKeyEvent* event)
{
    if (!isOurs(*event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat())
        return; // it was held before, be it before the focus came
    m_keys.insert(event->key());
    tell();
}

void DrivePad::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat() || !m_keys.remove(event->key()))
        QWidget::keyReleaseEvent(event);
    else
        tell();
}

void DrivePad::focusOutEvent(QFocusEvent* event)
{
    releaseAll();
    QWidget::focusOutEvent(event);
    update();
}

void DrivePad::hideEvent(QHideEvent* event)
{
    releaseAll();
    QWidget::hideEvent(event);
}

void DrivePad::press(const QPointF& position)
{
    const QRectF square = this->square();
    const QPointF offset = (position - square.center()) / (square.width() / 2);
    m_isPointed = true;
    m_pointer = {std::clamp(offset.x(), -1.0, 1.0), std::clamp(offset.y(), -1.0, 1.0)};
    tell();
}

void DrivePad::releasePointer()
{
    if (!m_isPointed)
        return;
    m_isPointed = false;
    tell();
}

void DrivePad::releaseAll()
{
    if (!m_isPointed && m_keys.isEmpty())
        return;
    m_isPointed = false;
    m_keys.clear();
    tell();
}

void DrivePad::tell()
{
    update();
    if (!m_isPointed && m_keys.isEmpty()) {
        Q_EMIT letGo();
        return;
    }
    const QPointF direction = this->direction();
    Q_EMIT held(-direction.y(), -direction.x());
}

QRectF DrivePad::square() const
{
    constexpr int margin = 4;
    const double side = std::max(std::min(width(), height()) - 2 * margin, 1);
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(rect()).center());
    return square;
}

/// Right and down; the pointer goes before the keys.
QPointF DrivePad::direction() const
{
    if (m_isPointed)
        return m_pointer;
    QPointF direction;
    for (const KeyDirection& each : keyDirections()) {
        if (m_keys.contains(each.keys.front()) || m_keys.contains(each.keys.back()))
            direction += each.direction;
    }
    return direction;
}

void DrivePad::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double arrowPart = 0.09; // of the square's side
    constexpr double knobPart = 0.11;
    constexpr double rounding = 6;
    const QRectF square = this->square();
    const double reach = square.width() / 2;
    const QPointF centre = square.center();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText),
                        hasFocus() ? 3 : 1));
    painter.setBrush(palette().base());
    painter.drawRoundedRect(square, rounding, rounding);

    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().text());
    const double arrow = arrowPart * square.width();
    for (const KeyDirection& each : keyDirections()) {
        const QPointF along = each.direction;
        const QPointF across(-along.y(), along.x());
        const QPointF tip = centre + along * (reach - arrow / 2);
        painter.drawPolygon(QVector<QPointF>{tip, tip - along * arrow + across * arrow / 2 * 1.2,
                                             tip - along * arrow - across * arrow / 2 * 1.2});
    }

    const double knob = knobPart * square.width();
    const QPointF place = centre + direction() * (reach - knob);
    if (m_isDriving) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
        painter.drawLine(centre, place);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().highlight());
    } else {
        painter.setPen(QPen(palette().color(QPalette::Text), 1));
        painter.setBrush(palette().button());
    }
    painter.drawEllipse(place, knob, knob);
}

} // namespace host::workbench::operation
