// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_QT_CONVERT_H
#define OLM_QT_CONVERT_H

#include "olm/core/Export.h"
#include "olm/core/StringList.h"

#include <QStringList>

namespace olm {
namespace qt {

/// Element by element and in order; byte strings are Latin-1, and a character that Latin-1
/// lacks becomes "?".
OLM_EXPORT QStringList convert(const olm::core::StringList& list);
OLM_EXPORT olm::core::StringList convert(const QStringList& list);

} // namespace qt
} // namespace olm

#endif
