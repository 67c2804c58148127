// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/Quantity.h"

#include "host/device/Device.h"
#include "host/device/variables/Latin1.h"
#include "host/workbench/plots/Numbers.h"
#include "rosbridge/protocol/Topics.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <tuple>

namespace host::workbench::plots {

using device::connection::Remappings;
using device::readers::JointTable;
namespace topics = rosbridge::protocol::topic;

namespace {

/// A key is a list of these.
enum KeyPart
{
    KindPart,
    NamePart,
    PathPart,
    IndexPart,
    KeyPartCount,
};

constexpr int kindCount = static_cast<int>(Quantity::Kind::Field) + 1;
constexpr int variableKindCount = static_cast<int>(::plugin::gui::VariableKind::Config) + 1;

bool isIndexOf(int index, int count)
{
    return index >= 0 && index < count;
}

} // namespace

QString Quantity::topic() const
{
    switch (kind) {
    case Kind::Variable:
        return {};
    case Kind::Present:
        return topics::jointStates.name;
    case Kind::Target:
        return topics::armState.name;
    default:
        return name;
    }
}

QString Quantity::inWords(device::Device& device) const
{
    const auto theirs = [&] { return device.remappings().theirs(name); };
    switch (kind) {
    case Kind::Variable:
        return name + path;
    case Kind::Present:
        return tr("Axis %1: current").arg(index + 1);
    case Kind::Target:
        return tr("Axis %1: target").arg(index + 1);
    case Kind::Rate:
        return tr("%1: rate").arg(theirs());
    default:
        return theirs() + QStringLiteral(": ") + path;
    }
}

QString Quantity::unit(device::Device& device) const
{
    switch (kind) {
    case Kind::Present:
    case Kind::Target:
        return device.joints().table().joint(index).unit == JointTable::Unit::Metres ? tr("mm")
                                                                                     : tr("°");
    case Kind::Rate:
        return tr("Hz");
    case Kind::Variable: {
        const auto unit =
            device.variables().property(static_cast<::plugin::gui::VariableKind>(index),
                                        device::variables::toLatin1(name).c_str(), "unit");
        return device::variables::fromLatin1(unit.toString());
    }
    default:
        return {};
    }
}

QString Quantity::key() const
{
    const QJsonArray parts{static_cast<int>(kind), name, path, index};
    return QString::fromUtf8(QJsonDocument(parts).toJson(QJsonDocument::Compact));
}

std::optional<Quantity> Quantity::fromKey(const QString& key)
{
    const QJsonArray parts = QJsonDocument::fromJson(key.toUtf8()).array();
    const int kind = parts.at(KindPart).toInt(-1);
    if (parts.size() != KeyPartCount || !isIndexOf(kind, kindCount))
        return std::nullopt;
    const Quantity quantity{static_cast<Kind>(kind), parts.at(NamePart).toString(),
                            parts.at(PathPart).toString(), parts.at(IndexPart).toInt(-1)};
    const bool isAxis = quantity.kind == Kind::Present || quantity.kind == Kind::Target;
    if (isAxis)
        return isIndexOf(quantity.index, JointTable::axisCount) ? std::optional(quantity)
                                                                : std::nullopt;
    const bool isNamed = quantity.kind == Kind::Variable
                             ? !quantity.name.isEmpty()
                             : Remappings::fault(quantity.name).isEmpty();
    const bool isKnown = isNamed && isIndexOf(quantity.index, variableKindCount) &&
                         quantity.path.size() <= longestPath;
    return isKnown ? std::optional(quantity) : std::nullopt;
}

bool Quantity::operator==(const Quantity& other) const
{
    return std::tie(kind, name, path, index) ==
           std::tie(other.kind, other.name, other.path, other.index);
}

} // namespace host::workbench::plots
