// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_KINDNAME_H
#define HOST_DEVICE_RECORDING_KINDNAME_H

#include "plugin/gui/DeviceHost.h"

#include <QLatin1String>
#include <QString>

#include <array>
#include <optional>

namespace host::device::recording {

/// What recordings call the kinds of variables.
constexpr std::array<const char*, 4> kindNames{"input", "output", "state", "config"};

inline const char* kindName(plugin::gui::VariableKind kind)
{
    return kindNames.at(static_cast<std::size_t>(kind));
}

/// Nothing where it is none of these names.
inline std::optional<plugin::gui::VariableKind> kindNamed(const QString& name)
{
    for (std::size_t kind = 0; kind < kindNames.size(); ++kind) {
        if (name == QLatin1String(kindNames.at(kind)))
            return static_cast<plugin::gui::VariableKind>(kind);
    }
    return std::nullopt;
}

} // namespace host::device::recording

#endif
