// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_CHECK_STAGE_USAGE_H
#define HOST_CHECK_STAGE_USAGE_H

#include "plugin/gui/DeviceHost.h"

#include <QSet>
#include <QString>

#include <set>
#include <string>
#include <utility>

namespace host::check::stage {

/// A variable of a device.
using Variable = std::pair<plugin::gui::VariableKind, std::string>;

/// As people read it: config "brightness".
QString inWords(const Variable& variable);

/// What a plugin was seen to use of its device and its host.
struct Usage
{
    std::set<Variable> registered;
    std::set<Variable> read;
    std::set<Variable> written;
    QSet<QString> texts; ///< that were to be translated
    QSet<QString> helpContexts;
};

} // namespace host::check::stage

#endif
