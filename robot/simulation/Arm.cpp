// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "robot/simulation/Arm.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace robot::simulation {

namespace {

constexpr int none = -1;

int axisNamed(const QString& name)
{
    for (int axis = 0; axis < Arm::axisCount; ++axis) {
        if (name == Arm::name(axis))
            return axis;
    }
    return none;
}

/// For people, who count from 1.
QString axisInWords(int axis)
{
    return Arm::tr("axis %1").arg(axis + 1);
}

/// Not so for NaN.
bool isWithin(double value, double maximum)
{
    return value >= 0.0 && value <= maximum;
}

QString number(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace

void Arm::Axis::stop()
{
    target = position;
    velocity = 0.0;
}

QString Arm::name(int axis)
{
    return QStringLiteral("axis%1").arg(axis);
}

Arm::Answer Arm::move(const std::vector<Movement>& movements)
{
    if (movements.empty())
        return {false, tr("the command names no axis; name one of %1 to %2 at least")
                           .arg(name(0), name(axisCount - 1))};
    std::array<const Movement*, axisCount> wanted{};
    for (const Movement& movement : movements) {
        const QString refusal = refusalOf(movement);
        if (!refusal.isEmpty())
            return {false, refusal};
        const Movement*& place = wanted.at(axisNamed(movement.axis));
        if (place)
            return {false, tr("\"%1\" is named twice; name each axis once").arg(movement.axis)};
        place = &movement;
    }
    if (!m_isTorqueEnabled)
        return {false, tr("the torque is off: the arm does not move; switch it on first")};

    bool isAnyPowered = false;
    QStringList moving;
    QStringList still;
    for (int axis = 0; axis < axisCount; ++axis) {
        if (!wanted.at(axis))
            continue;
        if (isPowered(axis)) {
            m_axes.at(axis).target = wanted.at(axis)->target;
            m_axes.at(axis).speed = wanted.at(axis)->speed;
            isAnyPowered = true;
        }
        const QString why = hindrance(axis);
        if (why.isEmpty())
            moving.append(axisInWords(axis));
        else
            still.append(QStringLiteral("%1 (%2)").arg(axisInWords(axis), why));
    }
    QStringList message;
    if (!moving.isEmpty())
        message.append(tr("moving: %1").arg(moving.join(QStringLiteral(", "))));
    if (!still.isEmpty())
        message.append(tr("not moving: %1").arg(still.join(QStringLiteral(", "))));
    return {isAnyPowered, message.join(QStringLiteral("; "))};
}

Arm::Answer Arm::setTorqueEnabled(bool isEnabled)
{
    m_isTorqueEnabled = isEnabled;
    stopUnpowered();
    if (!isEnabled)
        return {true, tr("torque off: the arm does not move")};
    QStringList message{tr("torque on")};
    for (int line = 0; line < lineCount; ++line) {
        if (!m_isLineEnabled.at(line))
            message.append(lineOff(line));
    }
    return {true, message.join(QStringLiteral("; "))};
}

Arm::Answer Arm::setLineEnabled(int line, bool isEnabled)
{
    m_isLineEnabled.at(line) = isEnabled;
    stopUnpowered();
    if (!isEnabled)
        return {true, lineOff(line)};
    if (!m_isTorqueEnabled)
        return {true, tr("line %1 on; the torque is off: the arm does not move").arg(line + 1)};
    return {true, tr("line %1 on").arg(line + 1)};
}

bool Arm::stop()
{
    bool hadTarget = false;
    for (Axis& axis : m_axes) {
        hadTarget |= axis.target != axis.position;
        axis.stop();
    }
    return hadTarget;
}

void Arm::step(Time elapsed)
{
    if (elapsed <= Time(0))
        return;
    const double seconds = std::chrono::duration<double>(elapsed).count();
    for (Axis& axis : m_axes) {
        const double before = axis.position;
        const double reach = axis.speed * seconds;
        axis.position = std::clamp(axis.target, before - reach, before + reach);
        axis.velocity = (axis.position - before) / seconds;
    }
}

/// Why the movement is unfit; empty if it is not.
QString Arm::refusalOf(const Movement& movement)
{
    const int axis = axisNamed(movement.axis);
    if (axis == none)
        return tr("the arm has no axis \"%1\"; it has %2 to %3")
            .arg(movement.axis, name(0), name(axisCount - 1));
    if (!isWithin(movement.target, maximumPosition))
        return tr("the target %1° of %2 is refused; give one from 0° to %3°")
            .arg(number(movement.target), axisInWords(axis), number(maximumPosition));
    if (!isWithin(movement.speed, maximumSpeed))
        return tr("the speed %1°/s of %2 is refused; give one from 0°/s to %3°/s")
            .arg(number(movement.speed), axisInWords(axis), number(maximumSpeed));
    return QString();
}

bool Arm::isPowered(int axis) const
{
    return m_isTorqueEnabled && m_isLineEnabled.at(axis / axesPerLine);
}

/// Why the axis stands still while the torque is on; empty if it moves.
QString Arm::hindrance(int axis) const
{
    const int line = axis / axesPerLine;
    if (!m_isLineEnabled.at(line))
        return tr("line %1 is off").arg(line + 1);
    if (m_axes.at(axis).target == m_axes.at(axis).position)
        return tr("it is already there");
    if (m_axes.at(axis).speed == 0.0)
        return tr("its speed is 0");
    return QString();
}

QString Arm::lineOff(int line)
{
    const int first = line * axesPerLine;
    return tr("line %1 off: axes %2 to %3 do not move")
        .arg(line + 1)
        .arg(first + 1)
        .arg(first + axesPerLine);
}

void Arm::stopUnpowered()
{
    for (int axis = 0; axis < axisCount; ++axis) {
        if (!isPowered(axis))
            m_axes.at(axis).stop();
    }
}

} // namespace robot::simulation
