// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_OUTSIDETEXT_H
#define HOST_WORKBENCH_VALUES_OUTSIDETEXT_H

#include <QString>

/// Texts that robots, plugins and files wrote: they may be of any length, and look like markup,
/// which Qt would load files for.
namespace host::workbench::values {

/// As much of @p text as has room in a window.
QString shortened(const QString& text);

/// @p text for a tool tip, which shows it as it was written; empty where @p text is.
QString plainToolTip(const QString& text);

} // namespace host::workbench::values

#endif
