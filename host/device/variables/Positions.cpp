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

std::string valuesName(int row)
{
    return "pos" + std::to_string(row);
}

std::string titleName(int row)
{
    return valuesName(row) + "_name";
}

Position storedPosition(const Variables& variables, int row)
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
        positions.push_back(storedPosition(variables, row));
    return positions;
}

void storePosition(plugin::gui::DeviceHost& host, int row, const Position& position)
{
    olm::core::Vector<float> numbers;
    for (const Position::Axis& axis : position.axes) {
        numbers.append(axis.target);
        numbers.append(axis.speed);
    }
    host.write(VariableKind::Config, valuesName(row).c_str(), numbers);
    host.write(VariableKind::Config, titleName(row).c_str(), toLatin1(position.name));
}

void storePositions(plugin::gui::DeviceHost& host, const std::vector<Position>& positions,
                    const QString& title)
{
    host.beginTransaction(title);
    int row = 0;
    for (const Position& position : positions)
        storePosition(host, row++, position);
    host.write(VariableKind::Config, "num_pos", row);
    host.endTransaction();
}

} // namespace host::device::variables
