// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_DEVICEHISTORYBUNDLE_H
#define PLUGIN_GUI_DEVICEHISTORYBUNDLE_H

#include "olm/core/Export.h"
#include "plugin/gui/HistoryBundle.h"

namespace plugin {
namespace gui {

/// The bundle that a device's widgets get.
class OLM_EXPORT DeviceHistoryBundle : public HistoryBundle
{
public:
    explicit DeviceHistoryBundle(const HistoryBundleContent& content);
};

} // namespace gui
} // namespace plugin

#endif
