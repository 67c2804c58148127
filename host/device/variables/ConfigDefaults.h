// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_DEVICE_VARIABLES_CONFIGDEFAULTS_H
#define HOST_DEVICE_VARIABLES_CONFIGDEFAULTS_H

#include "olm/core/variant/Variant.h"

#include <string>
#include <vector>

namespace host::device::variables {

/// A configuration variable that the device always has, with its value where none is stored.
struct ConfigDefault
{
    std::string name;
    olm::core::variant::Variant value;
};

std::vector<ConfigDefault> configDefaults();

} // namespace host::device::variables

#endif
