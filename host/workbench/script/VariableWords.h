// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_SCRIPT_VARIABLEWORDS_H
#define HOST_WORKBENCH_SCRIPT_VARIABLEWORDS_H

#include "host/device/variables/Variables.h"
#include "host/workbench/script/text/Form.h"

#include <QStringList>

/// Variables and the types of values as a script names them, in every language alike.
namespace host::workbench::script {

using text::Arguments;

/// The variable that the placeholders KIND and NAME say.
device::variables::Variables::Key variableOf(const Arguments& arguments);

/// As values::enterableTypes(), with "empty" in English.
QStringList typeNames();

/// The index in there, -1 for none.
int typeNamed(const QString& name);

} // namespace host::workbench::script

#endif
