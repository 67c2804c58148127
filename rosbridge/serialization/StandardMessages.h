// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef ROSBRIDGE_SERIALIZATION_STANDARDMESSAGES_H
#define ROSBRIDGE_SERIALIZATION_STANDARDMESSAGES_H

#include <QString>

namespace rosbridge::serialization {

/// The full text of the definition of @p type, as MessageDefinition reads it: of the messages that
/// Debian's packages define, and of some that no package does. Empty for others.
QString standardDefinition(const QString& type);

} // namespace rosbridge::serialization

#endif
