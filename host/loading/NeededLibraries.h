// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_LOADING_NEEDEDLIBRARIES_H
#define HOST_LOADING_NEEDEDLIBRARIES_H

#include <QByteArrayList>
#include <QString>

namespace host::loading {

/// The libraries that the shared library @p file was linked to, by the names that the system's
/// loader looks for; nothing of it is loaded or run. Empty for what this machine cannot load, and
/// for what is damaged: the loader has words for that.
QByteArrayList neededLibraries(const QString& file);

} // namespace host::loading

#endif
