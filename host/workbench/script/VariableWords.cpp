// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/VariableWords.h"

#include "host/device/variables/Latin1.h"
#include "host/workbench/values/ValueText.h"

namespace host::workbench::script {

using ::plugin::gui::VariableKind;

device::variables::Variables::Key variableOf(const Arguments& arguments)
{
    const QString kind = arguments.value("KIND");
    return {kind == "input"    ? VariableKind::Input
            : kind == "output" ? VariableKind::Output
            : kind == "state"  ? VariableKind::State
                               : VariableKind::Config,
            device::variables::toLatin1(arguments.value("NAME"))};
}

QStringList typeNames()
{
    QStringList names = values::enterableTypes();
    names.first() = QStringLiteral("empty");
    return names;
}

int typeNamed(const QString& name)
{
    return static_cast<int>(typeNames().indexOf(name));
}

} // namespace host::workbench::script
