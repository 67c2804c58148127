// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_PREFERENCES_CONTRAST_H
#define HOST_WORKBENCH_PREFERENCES_CONTRAST_H

#include <QColor>

/// As the Web Content Accessibility Guidelines measure it: from 1, the same, to 21, black on white.
namespace host::workbench::preferences {

constexpr double contrastOfText = 4.5;     ///< what small text needs at least
constexpr double contrastOfControls = 3.0; ///< what the edge of a control needs at least

/// Of opaque colours.
double contrast(const QColor& one, const QColor& other);

/// @p colour, or one as near to it as is needed for @p least on @p ground: darker on a bright
/// ground, brighter on a dark one.
QColor contrasting(const QColor& colour, const QColor& ground, double least);

} // namespace host::workbench::preferences

#endif
