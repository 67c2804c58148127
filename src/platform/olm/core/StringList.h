// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_STRINGLIST_H
#define OLM_CORE_STRINGLIST_H

#include "olm/core/List.h"

#include <string>

namespace olm {
namespace core {

/// A list of byte strings, the value of a device variable with several texts.
class StringList : public List<std::string>
{
};

} // namespace core
} // namespace olm

#endif
