// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_TRACE_PLUGINCALL_H
#define HOST_DEVICE_TRACE_PLUGINCALL_H

#include "olm/core/variant/Variant.h"
#include "plugin/gui/DeviceHost.h"

#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <typeinfo>
#include <vector>

class QWidget;

namespace host::device::trace {

/// What a call was given: a value, with a name where the value alone says little.
struct Argument
{
    std::string name;
    olm::core::variant::Variant value;
    std::optional<plugin::gui::VariableKind> kind{}; ///< of the variable that the name is of
};

using Arguments = std::vector<Argument>;

/// A call between the host and its plugin, as it is remembered: values are kept as they are, and
/// put into words only for those who look.
struct PluginCall
{
    enum class Direction
    {
        ToPlugin,
        ToHost
    };

    using Clock = std::chrono::system_clock;

    /// A person notices when a window does not react for that long.
    static constexpr std::chrono::milliseconds tooLong{50};

    PluginCall(Direction direction, const char* name, const QWidget* widget,
               std::shared_ptr<const Arguments> arguments);

    bool isTooLong() const { return duration && *duration > tooLong; }

    Direction direction;
    quint64 number = 0; ///< counts the calls of a device, in the order in which they began
    const char* name;   ///< of the function; lives as long as the program
    const std::type_info* widgetClass;          ///< null where no widget is known
    QString widgetName;                         ///< the object name
    std::shared_ptr<const Arguments> arguments; ///< never null; the calls of one delivery share it
    int depth = 0;                              ///< how many other calls it was made within
    Clock::time_point began = Clock::now();
    std::optional<std::chrono::nanoseconds> duration; ///< none while the call is under way
    std::optional<olm::core::variant::Variant> result;
    bool hasThrown = false;
};

} // namespace host::device::trace

#endif
