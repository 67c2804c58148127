// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_INPUT_CONTROLPATH_H
#define HOST_INPUT_CONTROLPATH_H

#include <QString>

class QWidget;

namespace host::input {

/// Where @p control is below @p root, so that another process with the same plugin finds it:
/// "QTabWidget/QCheckBox#1". Empty for @p root itself.
QString pathOf(const QWidget& control, const QWidget& root);

/// Null where there is none.
QWidget* atPath(QWidget& root, const QString& path);

} // namespace host::input

#endif
