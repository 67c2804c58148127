// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "PositionVariables.h"

// std::to_string groups no digits, whatever locale the host has set.

std::string PositionVariables::values(int position)
{
    return "pos" + std::to_string(position);
}

std::string PositionVariables::name(int position)
{
    return values(position) + "_name";
}
