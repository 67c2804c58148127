// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef PLUGIN_GUI_UNITDELEGATE_H
#define PLUGIN_GUI_UNITDELEGATE_H

#include "olm/core/Export.h"

namespace plugin {
namespace gui {

/// The host object that stands for one unit.
class OLM_EXPORT UnitDelegate
{
public:
    virtual ~UnitDelegate();
};

} // namespace gui
} // namespace plugin

#endif
