// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "rosbridge/protocol/CanonicalName.h"

#include <QStringList>

namespace rosbridge::protocol {

QString canonicalName(const QString& name)
{
    return name.isEmpty() || name.startsWith(u'/') ? name : u'/' + name;
}

QString canonicalType(const QString& type)
{
    const QStringList parts = type.split(u'/');
    const bool isRos2 = parts.size() == 3 && (parts.at(1) == u"msg" || parts.at(1) == u"srv");
    return isRos2 ? parts.first() + u'/' + parts.last() : type;
}

} // namespace rosbridge::protocol
