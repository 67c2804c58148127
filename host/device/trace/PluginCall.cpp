// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/trace/PluginCall.h"

#include <QWidget>

namespace host::device::trace {

PluginCall::PluginCall(Direction direction, const char* name, const QWidget* widget,
                       std::shared_ptr<const Arguments> arguments)
    : direction(direction),
      name(name),
      // A plugin stays loaded until the program ends, and so does what describes its classes.
      widgetClass(widget ? &typeid(*widget) : nullptr),
      widgetName(widget ? widget->objectName() : QString()),
      arguments(std::move(arguments))
{
}

} // namespace host::device::trace
