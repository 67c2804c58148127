// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef POSITIONVARIABLES_H
#define POSITIONVARIABLES_H

#include <string>

/// The names of the configuration variables that hold the stored arm positions: "pos0" and
/// "pos0_name" are those of the first one. They are asked for with every cell that is painted.
namespace PositionVariables {

/// The variable with the targets and speeds of the axes; @p position counts from 0.
std::string values(int position);
/// The variable with the display name.
std::string name(int position);

} // namespace PositionVariables

#endif
