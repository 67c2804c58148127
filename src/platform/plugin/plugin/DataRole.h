// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_PLUGIN_DATAROLE_H
#define PLUGIN_PLUGIN_DATAROLE_H

namespace plugin {
namespace plugin {

/// What a message from the device side is about. The numbers belong to each kind of device, so
/// any `int` is a value.
enum DataRole : int
{
};

} // namespace plugin
} // namespace plugin

#endif
