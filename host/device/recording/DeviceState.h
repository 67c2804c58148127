// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_RECORDING_DEVICESTATE_H
#define HOST_DEVICE_RECORDING_DEVICESTATE_H

#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceHost.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace host::device::variables {
class Variables;
} // namespace host::device::variables

namespace host::device::recording {

/// What a device was at a moment of its recording: when it began, and from time to time since.
struct DeviceState
{
    Q_DECLARE_TR_FUNCTIONS(host::device::recording::DeviceState)

public:
    struct Variable
    {
        plugin::gui::VariableKind kind;
        std::string name;
        olm::core::variant::Variant value; ///< empty where it was never set
        bool isRegistered;                 ///< a widget asked to be told of it
    };

    struct Property
    {
        plugin::gui::VariableKind kind;
        std::string variable;
        std::string name;
        olm::core::variant::Variant value;
    };

    /// The format of the messages about the plugin.
    static constexpr int format = 1;

    static DeviceState of(const variables::Variables& variables);

    /// See docs/recording.md.
    QByteArray toJson() const;
    /// Nothing if @p json is none, or of a format that this program does not know, and in @p error
    /// why.
    static std::optional<DeviceState> read(const QJsonObject& json, QString* error);

    QString program; ///< that recorded, with its version
    QString device;  ///< its name
    int connectionState = -1;
    std::vector<Variable> variables;
    std::vector<Property> properties;
};

} // namespace host::device::recording

#endif
