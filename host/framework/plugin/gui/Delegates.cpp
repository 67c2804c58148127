// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/UnitDelegate.h"

namespace plugin {
namespace gui {

DeviceDelegate::~DeviceDelegate() = default;

UnitDelegate::~UnitDelegate() = default;

} // namespace gui
} // namespace plugin
