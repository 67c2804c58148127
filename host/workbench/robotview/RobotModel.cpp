// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/robotview/RobotModel.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace host::workbench::robotview {

namespace {

const QColor onColour(0x2e, 0xa0, 0x43); // suits light and dark desktops, as the grey does
const QColor offColour(0x8a, 0x8a, 0x8a);

/// Filled, or empty as a second sign beside the colour.
QPixmap dot(bool isOn)
{
    constexpr int size = 10;
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(qRound(size * ratio), qRound(size * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isOn ? onColour : offColour, 1.5));
    if (isOn)
        painter.setBrush(onColour);
    painter.drawEllipse(QRectF(1, 1, size - 2, size - 2));
    return pixmap;
}

QString inWords(const std::optional<float>& place, bool isSliding)
{
    if (!place)
        return QStringLiteral("–");
    return (isSliding ? RobotModel::tr("%1 mm") : RobotModel::tr("%1°"))
        .arg(static_cast<double>(*place), 0, 'f', 1);
}

} // namespace

void RobotModel::refresh()
{
    Q_EMIT dataChanged(index(0, TargetColumn), index(RowCount - 1, PresentColumn));
}

int RobotModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : RowCount;
}

int RobotModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RobotModel::data(const QModelIndex& index, int role) const
{
    const int row = index.row();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return column == NameColumn ? name(row) : value(row, column);
    case Qt::ToolTipRole: {
        const QString old = age(row, column);
        return old.isEmpty() ? QVariant() : tr("%1 old").arg(old);
    }
    case Qt::ForegroundRole:
        if (column != NameColumn && (!m_state.isConnected() || !age(row, column).isEmpty()))
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        return {};
    case Qt::DecorationRole:
        if (const auto on = isOn(row); on && column == PresentColumn)
            return dot(*on);
        return {};
    default:
        return {};
    }
}

QVariant RobotModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case NameColumn:
        return tr("Part");
    case TargetColumn:
        return tr("Target");
    case PresentColumn:
        return tr("Current");
    default:
        return {};
    }
}

QString RobotModel::name(int row) const
{
    switch (row) {
    case CameraRow:
        return tr("Camera");
    case FirstLineRow:
    case SecondLineRow:
    case ThirdLineRow:
        return tr("Supply line %1").arg(row - FirstLineRow + 1);
    case TorqueRow:
        return tr("Torque");
    case DriveRow:
        return tr("Drive");
    default:
        return tr("Axis %1").arg(row + 1);
    }
}

QString RobotModel::value(int row, int column) const
{
    if (row < RobotState::axisCount) {
        const RobotState::Axis& axis = m_state.axis(row);
        const bool isSliding =
            m_state.joints().joint(row).unit == device::readers::JointTable::Unit::Metres;
        return inWords(column == TargetColumn ? axis.target : axis.present, isSliding);
    }
    if (column != PresentColumn)
        return {};
    if (row == CameraRow) {
        const QString old = age(row, column);
        if (!old.isEmpty())
            return tr("no picture for %1").arg(old);
        const unsigned int rate = m_state.cameraRate(RobotState::Clock::now());
        return rate > 0 ? tr("%1 Hz").arg(rate) : QStringLiteral("–");
    }
    const auto on = isOn(row);
    if (!on)
        return QStringLiteral("–");
    if (row == DriveRow)
        return *on ? tr("enabled") : tr("disabled");
    return *on ? tr("on") : tr("off");
}

QString RobotModel::age(int row, int column) const
{
    if (row > CameraRow || column == NameColumn || !m_state.isConnected())
        return {};
    RobotState::Topic topic = RobotState::Camera;
    if (row < RobotState::axisCount)
        topic = column == TargetColumn ? RobotState::ArmState : RobotState::JointStates;
    return m_state.overdue(topic, RobotState::Clock::now());
}

std::optional<bool> RobotModel::isOn(int row) const
{
    switch (row) {
    case FirstLineRow:
    case SecondLineRow:
    case ThirdLineRow:
        return m_state.isSet(
            static_cast<RobotState::Topic>(RobotState::FirstLine + row - FirstLineRow));
    case TorqueRow:
        return m_state.isSet(RobotState::Torque);
    case DriveRow: {
        const auto isDisabled = m_state.isSet(RobotState::DriveDisabled);
        return isDisabled ? std::make_optional(!*isDisabled) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

} // namespace host::workbench::robotview
