// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_QT_REPLACEFILE_H
#define OLM_QT_REPLACEFILE_H

#include "olm/core/Export.h"

#include <QByteArray>
#include <QString>

namespace olm {
namespace qt {

/// Puts @p content in the place of the file in one step, once all of it is on the disk. Until then,
/// and if that fails, an older file stays as it is. Returns nothing, or why it failed, in the
/// system's words.
OLM_EXPORT QString replaceFile(const QString& fileName, const QByteArray& content);

} // namespace qt
} // namespace olm

#endif
