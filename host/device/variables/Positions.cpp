// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/variables/Positions.h"

#include "host/device/variables/Latin1.h"
#include "host/device/variables/Variables.h"
#include "olm/core/Vector.h"

#include <algorithm>
#include <string>

namespace host::device::variables {

using plugin::gui::VariableKind;

namespace {

constexpr int mostPositions = 1000;

std::string valuesName(std::size_t row)
{
    return "pos" + std::to_string(row);
}

std::string titleName(std::size_t row)
{
    return valuesName(row) + "_name";
}

Position storedPosition(const Variables& variables, std::size_t row)
{
    Position position;
    position.name =
        fromLatin1(variables.value(VariableKind::Config, titleName(row).c_str()).toString());
    const auto numbers = variables.value(VariableKind::Config, valuesName(row).c_str())
                             .get<olm::core::Vector<float>>();
    int number = 0;
    for (Position::Axis& axis : position.axes) {
        if (number + 1 < static_cast<int>(numbers.size()))
            axis = {numbers[number], numbers[number + 1]};
        number += 2;
    }
    return position;
}

} // namespace

bool isOfPositions(const std::string& name)
{
    return name == "num_pos" || name.rfind("pos", 0) == 0;
}

std::vector<Position> storedPositions(const Variables& variables)
{
    const int count =
        std::clamp(variables.value(VariableKind::Config, "num_pos").toInt(), 0, mostPositions);
    std::vector<Position> positions;
    positions.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row)
        positions.push_back(storedPosition(variables, static_cast<std::size_t>(row)));
    return positions;
}

void storePositions(plugin::gui::DeviceHost& host, const std::vector<Position>& positions,
                    const QString& title)
{
    host.beginTransaction(title);
    for (std::size_t row = 0; row < positions.size(); ++row) {
        const Position& position = positions[row];
        olm::core::Vector<float> numbers;
        for (const Position::Axis& axis : position.axes) {
            numbers.append(axis.target);
            numbers.append(axis.speed);
        }
        host.write(VariableKind::Config, valuesName(row).c_str(), numbers);
        host.write(VariableKind::Config, titleName(row).c_str(), toLatin1(position.name));
    }
    host.write(VariableKind::Config, "num_pos", static_cast<int>(positions.size()));
    host.endTransaction();
}

} // namespace host::device::variables
